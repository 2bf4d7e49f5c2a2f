#include <gtest/gtest.h>

#include "Corvale/model/HeaderRowChoices.h"
#include "CorvaleKit/loading/TableBuilder.h"
#include "tests/support/Grids.h"

namespace corvale {
namespace {

std::vector<HeaderRowChoice> choices(const Grids::Rows& rows) {
    return headerRowChoices(TableBuilder::build(Grids::rows(rows), "table.csv"));
}

// The preview of one row; empty when it offers no choice. The table's own header row comes first.
std::string preview(const Grids::Texts& row) {
    const auto all = choices({{"a", "b"}, row, {"1", "2"}});
    return all.size() > 1 && all[1].rowNumber == 2 ? all[1].preview : "";
}

TEST(HeaderRowChoices, ARowShowsItsFirstFourTexts) {
    const std::vector<std::pair<Grids::Texts, std::string>> cases = {
        {{"ID"}, "ID"},
        {{"ID", "Name"}, "ID, Name"},
        {{"a", "b", "c", "d"}, "a, b, c, d"},
        {{"a", "b", "c", "d", "e"}, "a, b, c, d, …"},
        {{"a", "b", "c", "d", "e", "f"}, "a, b, c, d, …"},
        {{"", "a", " \t\n", "b", "", "c", "d", ""}, "a, b, c, d"},
        {{"", "a", " ", "b", "", "c", "d", "\u00a0", "e"}, "a, b, c, d, …"},
        {{"  a\r\n", "\tb "}, "a, b"},
        {{"a b", "c,d"}, "a b, c,d"},
    };
    for (const auto& [row, text] : cases) {
        EXPECT_EQ(preview(row), text);
    }
}

TEST(HeaderRowChoices, ALongTextIsCutToSeventeenCharacters) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"123456789012345678", "123456789012345678"},
        {"1234567890123456789", "12345678901234567…"},
        {"1234567890123456789012345", "12345678901234567…"},
        {"  123456789012345678  ", "123456789012345678"},
        {"ÄÖÜäöüÄÖÜäöüÄÖÜäöü", "ÄÖÜäöüÄÖÜäöüÄÖÜäöü"},
        {"ÄÖÜäöüÄÖÜäöüÄÖÜäöüß", "ÄÖÜäöüÄÖÜäöüÄÖÜäö…"},
        // Characters are what the user sees as one: these letters carry combining accents.
        {"a\u0301b\u0301c\u0301d\u0301e\u0301f\u0301ghijklmnopqr",
         "a\u0301b\u0301c\u0301d\u0301e\u0301f\u0301ghijklmnopqr"},
        {"1234567890123456 890", "1234567890123456 …"},
    };
    for (const auto& [text, shown] : cases) {
        EXPECT_EQ(preview({text}), shown);
    }
}

TEST(HeaderRowChoices, FiveCellsWithALongOneShowAllOfTheirLimits) {
    EXPECT_EQ(preview({"ID", "A text of twenty-five ch.", "Price", "Qty", "Place"}),
              "ID, A text of twenty-…, Price, Qty, …");
}

TEST(HeaderRowChoices, ABlankRowOffersNoChoice) {
    EXPECT_EQ(choices({{"a", "b"}, {"", " ", "\t\n"}, {}, {"1", "2"}}),
              (std::vector<HeaderRowChoice>{{1, "a, b"}, {4, "1, 2"}}));
}

TEST(HeaderRowChoices, RowsAreNumberedAsInTheFileAndGoUpToTheTwelfth) {
    Grids::Rows rows = {{"Title"}, {}};
    for (int i = 3; i <= 20; ++i) {
        rows.push_back({std::to_string(i), "x"});
    }
    const auto all = choices(rows);
    ASSERT_EQ(all.size(), 11U);
    EXPECT_EQ(all.front(), (HeaderRowChoice{1, "Title"}));
    EXPECT_EQ(all[1], (HeaderRowChoice{3, "3, x"}));
    EXPECT_EQ(all.back(), (HeaderRowChoice{12, "12, x"}));
}

TEST(HeaderRowChoices, ATableWithoutASourceOffersNone) {
    EXPECT_TRUE(headerRowChoices(DataTable({"ID"}, {{"1"}}, "memory")).empty());
}

}  // namespace
}  // namespace corvale
