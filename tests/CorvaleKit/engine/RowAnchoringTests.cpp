#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "CorvaleKit/engine/RowAnchoring.h"
#include "CorvaleKit/engine/RowPair.h"

namespace corvale {
namespace {

using Ids = std::vector<std::uint32_t>;

std::vector<std::uint32_t> partners(const Ids& before, const Ids& after, const CancelCheck& isCancelled = {}) {
    std::uint32_t count = 0;
    for (const Ids* ids : {&before, &after}) {
        for (const std::uint32_t id : *ids) {
            count = std::max(count, id + 1);
        }
    }
    PollMeter meter(isCancelled);
    return RowAnchoring::partners({before, after, count}, meter);
}

// Rows by letters, partners as digits; "-" for none.
std::string anchored(const std::string& before, const std::string& after) {
    std::string text;
    for (const std::uint32_t partner : partners({before.begin(), before.end()}, {after.begin(), after.end()})) {
        text += partner == RowPair::none ? "-" : std::to_string(partner);
    }
    return text;
}

TEST(RowAnchoring, TakesTheCommonHeadAndTail) {
    EXPECT_EQ(anchored("aabXcc", "aabYYcc"), "012-56");
    EXPECT_EQ(anchored("aaa", "aa"), "01-") << "the head first";
    EXPECT_EQ(anchored("", ""), "");
    EXPECT_EQ(anchored("ab", ""), "--");
}

TEST(RowAnchoring, TakesRowsThatAreUniqueOnBothSides) {
    EXPECT_EQ(anchored("XuYvZ", "1u2v3"), "-1-3-");
    EXPECT_EQ(anchored("XuuYvZ", "1u2v3"), "--1-3-") << "u repeats, until v has split the tables";
}

TEST(RowAnchoring, LooksForUniqueRowsAgainBetweenAnchors) { EXPECT_EQ(anchored("1aXm2aY", "3aZm4aW"), "-1-3-5-"); }

TEST(RowAnchoring, TakesHeadAndTailOfEveryStretch) {
    EXPECT_EQ(anchored("1rrmrr2", "3rrrmr4"), "-2345--") << "r stands on both sides of m more than once";
}

TEST(RowAnchoring, FallsBackToTheMinimalDifference) { EXPECT_EQ(anchored("XaabbY", "ZbbaaW"), "---12-"); }

// A table of `count` rows that repeat, between two that the other table lacks.
Ids repeating(std::size_t count, std::uint32_t side) {
    Ids ids{10 + side};
    for (std::size_t row = 0; row + 2 < count; ++row) {
        ids.push_back(static_cast<std::uint32_t>(row / (2 + side) % 2));
    }
    ids.push_back(20 + side);
    return ids;
}

bool anyAnchor(const Ids& before, const Ids& after) {
    const auto found = partners(before, after);
    return std::any_of(found.begin(), found.end(), [](std::uint32_t partner) { return partner != RowPair::none; });
}

TEST(RowAnchoring, LeavesStretchesOfMoreThanTwoThousandRowsWithoutUniqueOnes) {
    EXPECT_TRUE(anyAnchor(repeating(1000, 0), repeating(1000, 1)));
    EXPECT_TRUE(anyAnchor(repeating(10, 0), repeating(1990, 1)));
    EXPECT_FALSE(anyAnchor(repeating(1001, 0), repeating(1000, 1)));
    EXPECT_FALSE(anyAnchor(repeating(10, 0), repeating(1991, 1)));
}

TEST(RowAnchoring, CountsThoseRowsWithoutHeadAndTail) {
    Ids before(500, 7);
    Ids after(500, 7);
    for (const std::uint32_t id : repeating(1000, 0)) {
        before.push_back(id);
    }
    for (const std::uint32_t id : repeating(1000, 1)) {
        after.push_back(id);
    }
    before.insert(before.end(), 500, 8);
    after.insert(after.end(), 500, 8);
    const auto found = partners(before, after);
    EXPECT_TRUE(std::any_of(found.begin() + 500, found.begin() + 1500, [](auto p) { return p != RowPair::none; }));
}

// Rows that only come to be unique when the last but one is split off, in turn: x1 x2 x1 x3 x2 x4 x3 …, and fillers
// around each so that no head or tail is common.
struct Onion {
    Ids before;
    Ids after;
};

Onion onion(std::uint32_t layers) {
    Onion onion;
    std::uint32_t filler = layers;
    const auto add = [&](std::uint32_t id) {
        onion.before.insert(onion.before.end(), {filler, id});
        onion.after.insert(onion.after.end(), {filler + 1, id});
        filler += 2;
    };
    add(0);
    for (std::uint32_t layer = 1; layer < layers; ++layer) {
        add(layer);
        add(layer - 1);
    }
    onion.before.push_back(filler);
    onion.after.push_back(filler + 1);
    return onion;
}

TEST(RowAnchoring, PeelsTablesLayerByLayerWithoutExhaustingTheStack) {
    const auto [before, after] = onion(50'000);
    Ids expected;
    for (std::uint32_t row = 0; row < before.size(); ++row) {
        expected.push_back(row % 2 == 0 ? RowPair::none : row);
    }
    EXPECT_TRUE(partners(before, after) == expected);
}

std::size_t pollCount(const Onion& tables) {
    std::size_t polls = 0;
    partners(tables.before, tables.after, [&polls] {
        ++polls;
        return false;
    });
    return polls;
}

// A layer splits off two rows, one and then the other to its right, each with a stretch before and a stretch after it.
constexpr double stretchesPerLayer = 4;

TEST(RowAnchoring, PollsAtEvery64thStretch) {
    EXPECT_NEAR(static_cast<double>(pollCount(onion(6400))), 6400 * stretchesPerLayer / 64, 1);
}

TEST(RowAnchoring, DoesNotPollForAFewStretches) {
    Onion few;
    for (std::uint32_t id = 0; id < 30; ++id) {
        few.before.insert(few.before.end(), {id, 100 + id});
        few.after.insert(few.after.end(), {id, 200 + id});
    }
    EXPECT_EQ(pollCount(few), 0U);
}

TEST(RowAnchoring, StopsWhenAskedTo) {
    const auto [before, after] = onion(1000);
    int asked = 0;
    EXPECT_THROW(partners(before, after, [&asked] { return ++asked == 5; }), Cancelled);
    EXPECT_EQ(asked, 5);
}

// The work of any table stays close to linear: polls that come by work, not by stretches, tell.
TEST(RowAnchoring, CountsEveryRowFewTimesInHostileTables) {
    const auto [before, after] = onion(30'000);
    const Onion tables{before, after};
    const auto rows = static_cast<double>(before.size() + after.size());
    const double byStretches = 30'000 * stretchesPerLayer / 64;
    const double byWork = static_cast<double>(pollCount(tables)) - byStretches;
    EXPECT_LT(byWork * static_cast<double>(PollMeter::workPerPoll), 6 * rows * std::log2(rows));
}

}  // namespace
}  // namespace corvale
