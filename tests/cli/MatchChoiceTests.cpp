#include <gtest/gtest.h>

#include "cli/MatchChoice.h"
#include "cli/NameChoice.h"

namespace corvale::Cli {
namespace {

const PairChoice files{{"old/a.csv", {}, {}}, {"b.csv", {}, {}}};

TablePair tables() {
    return {{DataTable({"ID", "Name"}, {{"1", "Ann"}, {"2", "Bo"}}, "a.csv"), {}},
            {DataTable({"id ", "Who"}, {{"1", "Ann"}, {"2", "Bo"}}, "b.csv"), {}}};
}

std::string failureOf(const RowMatch& wanted) {
    try {
        chooseMatch(wanted, files, tables());
    } catch (const ColumnFailure& failure) {
        return failure.what();
    }
    return "no failure";
}

TEST(MatchChoice, WhatIsWantedStaysAsItIs) {
    const MatchChoice choice = chooseMatch(RowMatch::key({"id"}), files, tables());
    EXPECT_EQ(choice.match, RowMatch::key({"id"}));
    EXPECT_FALSE(choice.isSuggested);
    EXPECT_EQ(chooseMatch(RowMatch::rowOrder(), files, tables()).match, RowMatch::rowOrder());
}

TEST(MatchChoice, WithoutAWishTheKeyIsSuggested) {
    const MatchChoice choice = chooseMatch(std::nullopt, files, tables());
    EXPECT_EQ(choice.match, RowMatch::key({"ID"}));
    EXPECT_TRUE(choice.isSuggested);
}

TEST(MatchChoice, WithoutAGoodKeyItIsRowOrder) {
    const TablePair unrelated{{DataTable({"A"}, {{"1"}}, "a.csv"), {}}, {DataTable({"B"}, {{"1"}}, "b.csv"), {}}};
    const MatchChoice choice = chooseMatch(std::nullopt, files, unrelated);
    EXPECT_EQ(choice.match, RowMatch::rowOrder());
    EXPECT_TRUE(choice.isSuggested);
}

TEST(MatchChoice, AKeyThatATableLacksIsNamedWithItsFile) {
    EXPECT_EQ(failureOf(RowMatch::key({"Name"})), "“b.csv” has no column “Name” to match rows by.");
    EXPECT_EQ(failureOf(RowMatch::key({"ID", "Who"})), "“old/a.csv” has no column “Who” to match rows by.");
}

}  // namespace
}  // namespace corvale::Cli
