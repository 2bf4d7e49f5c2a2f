#include <gtest/gtest.h>

#include <vector>

#include "Corvale/grid/ChangeWalk.h"
#include "tests/Corvale/grid/GridResults.h"

namespace corvale {
namespace {

using ChangeWalk::Start;
using ChangeWalk::Step;
using ChangeWalk::Stop;

// Rows 0 to 4: same, two changes, added, one change, same; in that order.
DiffResult sample() {
    return GridResults::compared("ID,A,B\n1,a,b\n2,a,b\n4,a,b\n5,a,b\n", "ID,A,B\n1,a,b\n2,x,y\n3,n,n\n4,a,z\n5,a,b\n");
}

TEST(ChangeWalk, NextGoesThroughTheCellsOfARowThenOn) {
    const auto result = sample();
    const auto rows = GridResults::allRows(result);
    EXPECT_EQ(ChangeWalk::next(result, rows, {}), (Step{{1, 0}, false}));
    EXPECT_EQ(ChangeWalk::next(result, rows, {0, {}}), (Step{{1, 0}, false}));
    EXPECT_EQ(ChangeWalk::next(result, rows, {1, {}}), (Step{{1, 0}, false}));
    EXPECT_EQ(ChangeWalk::next(result, rows, {1, 0}), (Step{{1, 1}, false}));
    EXPECT_EQ(ChangeWalk::next(result, rows, {1, 1}), (Step{{3, 0}, false}));
    EXPECT_EQ(ChangeWalk::next(result, rows, {2, {}}), (Step{{3, 0}, false}));
    EXPECT_EQ(ChangeWalk::next(result, rows, {3, 0}), (Step{{1, 0}, true}));
    EXPECT_EQ(ChangeWalk::next(result, rows, {4, {}}), (Step{{1, 0}, true}));
}

TEST(ChangeWalk, PreviousGoesTheSameWayBack) {
    const auto result = sample();
    const auto rows = GridResults::allRows(result);
    EXPECT_EQ(ChangeWalk::previous(result, rows, {}), (Step{{3, 0}, false}));
    EXPECT_EQ(ChangeWalk::previous(result, rows, {4, {}}), (Step{{3, 0}, false}));
    EXPECT_EQ(ChangeWalk::previous(result, rows, {3, 0}), (Step{{1, 1}, false}));
    EXPECT_EQ(ChangeWalk::previous(result, rows, {1, 1}), (Step{{1, 0}, false}));
    EXPECT_EQ(ChangeWalk::previous(result, rows, {1, 0}), (Step{{3, 0}, true}));
    EXPECT_EQ(ChangeWalk::previous(result, rows, {0, {}}), (Step{{3, 0}, true}));
}

TEST(ChangeWalk, OnlyListedRowsCount) {
    const auto result = sample();
    EXPECT_EQ(ChangeWalk::next(result, {0, 3, 4}, {}), (Step{{1, 0}, false}));
    EXPECT_EQ(ChangeWalk::next(result, {3}, Start{0, 0}), (Step{{0, 0}, true}));
    EXPECT_EQ(ChangeWalk::previous(result, {3}, Start{0, 0}), (Step{{0, 0}, true}));
    EXPECT_EQ(ChangeWalk::next(result, {0, 2, 4}, {}), std::nullopt);
    EXPECT_EQ(ChangeWalk::previous(result, {}, {}), std::nullopt);
}

TEST(ChangeWalk, AWholeRoundVisitsEveryChangeOnceEitherWay) {
    const auto result = sample();
    const auto rows = GridResults::allRows(result);
    std::vector<Stop> there;
    Start at;
    for (int i = 0; i < 3; ++i) {
        const auto step = ChangeWalk::next(result, rows, at);
        ASSERT_TRUE(step && !step->wrapped);
        there.push_back(step->stop);
        at = {step->stop.line, step->stop.change};
    }
    std::vector<Stop> back;
    at = {};
    for (int i = 0; i < 3; ++i) {
        const auto step = ChangeWalk::previous(result, rows, at);
        ASSERT_TRUE(step && !step->wrapped);
        back.insert(back.begin(), step->stop);
        at = {step->stop.line, step->stop.change};
    }
    EXPECT_EQ(there, back);
    EXPECT_EQ(there, (std::vector<Stop>{{1, 0}, {1, 1}, {3, 0}}));
}

}  // namespace
}  // namespace corvale
