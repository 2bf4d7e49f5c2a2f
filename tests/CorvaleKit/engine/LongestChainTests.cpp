#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "CorvaleKit/engine/LongestChain.h"

namespace corvale {
namespace {

// Points 0, 1, 2 … of Before with those After rows.
std::vector<RowPoint> points(const std::vector<std::uint32_t>& after) {
    std::vector<RowPoint> points;
    for (const std::uint32_t row : after) {
        points.push_back({static_cast<std::uint32_t>(points.size()), row});
    }
    return points;
}

std::vector<std::uint32_t> chain(const std::vector<std::uint32_t>& after) {
    const CancelCheck never;
    PollMeter meter(never);
    std::vector<std::uint32_t> rows;
    for (const RowPoint& point : LongestChain().of(points(after), meter)) {
        EXPECT_EQ(after[point.before], point.after);
        rows.push_back(point.after);
    }
    return rows;
}

using Chain = std::vector<std::uint32_t>;

TEST(LongestChain, OfNothingIsEmpty) { EXPECT_EQ(chain({}), Chain{}); }

TEST(LongestChain, OfIncreasingPointsIsAllOfThem) { EXPECT_EQ(chain({2, 3, 5, 8}), (Chain{2, 3, 5, 8})); }

TEST(LongestChain, OfDecreasingPointsIsTheLast) { EXPECT_EQ(chain({8, 5, 3, 2}), Chain{2}); }

TEST(LongestChain, LeavesOutWhatMoved) { EXPECT_EQ(chain({0, 1, 6, 2, 3, 4, 5}), (Chain{0, 1, 2, 3, 4, 5})); }

TEST(LongestChain, AmongEqualOnesFollowsTheLastPredecessors) {
    EXPECT_EQ(chain({1, 0, 3, 2}), (Chain{0, 2}));
    EXPECT_EQ(chain({4, 5, 6, 0, 1, 2}), (Chain{0, 1, 2}));
}

TEST(LongestChain, CanBeUsedAgain) {
    const CancelCheck never;
    PollMeter meter(never);
    LongestChain longest;
    EXPECT_EQ(longest.of(points({2, 0, 1}), meter), (std::vector<RowPoint>{{1, 0}, {2, 1}}));
    EXPECT_EQ(longest.of(points({0}), meter), (std::vector<RowPoint>{{0, 0}}));
    EXPECT_EQ(longest.of({}, meter), std::vector<RowPoint>{});
}

// By trying every subset.
std::size_t longestLength(const Chain& after) {
    std::size_t longest = 0;
    for (std::uint32_t subset = 0; subset < (1U << after.size()); ++subset) {
        Chain chosen;
        for (std::size_t i = 0; i < after.size(); ++i) {
            if ((subset >> i) % 2 == 1) {
                chosen.push_back(after[i]);
            }
        }
        if (std::is_sorted(chosen.begin(), chosen.end())) {
            longest = std::max(longest, chosen.size());
        }
    }
    return longest;
}

TEST(LongestChain, IsAsLongAsCanBeForEveryOrderOfSevenPoints) {
    for (std::size_t count = 1; count <= 7; ++count) {
        Chain after(count);
        std::iota(after.begin(), after.end(), 0U);
        do {
            const Chain found = chain(after);
            ASSERT_TRUE(std::is_sorted(found.begin(), found.end()));
            ASSERT_EQ(found.size(), longestLength(after)) << testing::PrintToString(after);
        } while (std::next_permutation(after.begin(), after.end()));
    }
}

TEST(LongestChain, StopsWhenAskedTo) {
    Chain after(PollMeter::workPerPoll);
    std::iota(after.begin(), after.end(), 0U);
    const CancelCheck always = [] { return true; };
    PollMeter meter(always);
    EXPECT_THROW(LongestChain().of(points(after), meter), Cancelled);
}

}  // namespace
}  // namespace corvale
