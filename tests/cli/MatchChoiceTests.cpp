#include <gtest/gtest.h>

#include "cli/MatchChoice.h"

namespace corvale::Cli {
namespace {

const PairChoice files{{"old/a.csv", {}, {}}, {"b.csv", {}, {}}};

TablePair tables() {
    return {DataTable({"ID", "Name"}, {{"1", "Ann"}, {"2", "Bo"}}, "a.csv"),
            DataTable({"id ", "Who"}, {{"1", "Ann"}, {"2", "Bo"}}, "b.csv")};
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
    const TablePair unrelated{DataTable({"A"}, {{"1"}}, "a.csv"), DataTable({"B"}, {{"1"}}, "b.csv")};
    const MatchChoice choice = chooseMatch(std::nullopt, files, unrelated);
    EXPECT_EQ(choice.match, RowMatch::rowOrder());
    EXPECT_TRUE(choice.isSuggested);
}

TEST(MatchChoice, AKeyThatATableLacksIsNamedWithItsFile) {
    EXPECT_EQ(failureOf(RowMatch::key({"Name"})), "“b.csv” has no column “Name” to match rows by.");
    EXPECT_EQ(failureOf(RowMatch::key({"ID", "Who"})), "“old/a.csv” has no column “Who” to match rows by.");
}

TEST(MatchChoice, AColumnIsFoundByItsNameOrElseIgnoringCase) {
    const std::vector<ColumnPair> columns{
        {"price", 0, 0, false, {}}, {"Price", 1, 1, false, {}}, {"Stock", 2, {}, false, {}}};
    const auto column = [&](const char* name) { return listFilter({DiffFilter::Show::all, name, ""}, columns).column; };
    EXPECT_EQ(column("Price"), 1);
    EXPECT_EQ(column("PRICE"), 0);
    EXPECT_EQ(column("stock"), 2);
    EXPECT_THROW(column("Age"), ColumnFailure);
}

TEST(MatchChoice, TheOtherListOptionsArePassedOn) {
    EXPECT_EQ(listFilter({DiffFilter::Show::removed, {}, "a b"}, {}),
              (DiffFilter{DiffFilter::Show::removed, std::nullopt, "a b"}));
}

}  // namespace
}  // namespace corvale::Cli
