#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/CellRows.h"
#include "tests/support/Grids.h"

namespace corvale {
namespace {

using Grids::Rows;
using Grids::texts;

const Rows source = {{"a", "b"}, {}, {"c", "d", "e"}, {"f"}, {"g", "h"}};

static_assert(std::random_access_iterator<CellRows::Iterator> && std::random_access_iterator<CellRow::Iterator>);

TEST(CellRows, AreEmptyByDefault) {
    const CellRows none;
    EXPECT_TRUE(none.empty());
    EXPECT_EQ(none, Grids::rows({}));
    EXPECT_EQ(texts(none), Rows{});
    EXPECT_EQ(texts(none.corner(12, 12)), Rows{});
    EXPECT_EQ(texts(none.selected({}, 3)), Rows{});
}

TEST(CellRows, OfAGridAreAsWideAsTheSource) {
    EXPECT_EQ(texts(Grids::rows(source)), source);
    EXPECT_EQ(Grids::rows(source).size(), 5U);
}

TEST(CellRows, SelectedOnesAreExactlyAsWideAsAsked) {
    const CellRows rows = Grids::rows(source);
    EXPECT_EQ(texts(rows.selected({0, 2, 3}, 2)), (Rows{{"a", "b"}, {"c", "d"}, {"f", ""}}));
    EXPECT_EQ(texts(rows.selected({0, 2, 3}, 4)), (Rows{{"a", "b", "", ""}, {"c", "d", "e", ""}, {"f", "", "", ""}}));
    EXPECT_EQ(texts(rows.selected({1, 3}, 0)), (Rows{{}, {}}));
}

TEST(CellRows, SelectionKeepsTheOrderGiven) {
    const CellRows rows = Grids::rows(source);
    EXPECT_EQ(texts(rows.selected({4, 0, 0}, 1)), (Rows{{"g"}, {"a"}, {"a"}}));
    EXPECT_EQ(texts(rows.selected({3, 2}, 1)), (Rows{{"f"}, {"c"}}));
    EXPECT_EQ(texts(rows.selected({2, 3, 4}, 1)), (Rows{{"c"}, {"f"}, {"g"}}));
    EXPECT_EQ(texts(rows.selected({4}, 2)), (Rows{{"g", "h"}}));
}

TEST(CellRows, ASelectionOfASelectionCountsInTheFirst) {
    const CellRows rows = Grids::rows(source);
    EXPECT_EQ(texts(rows.selected({0, 2, 4}, 2).selected({1, 2}, 1)), (Rows{{"c"}, {"g"}}));
    EXPECT_EQ(texts(rows.selected({2, 3, 4}, 2).selected({0, 2}, 1)), (Rows{{"c"}, {"g"}}));
    EXPECT_EQ(texts(rows.selected({2, 3, 4}, 2).selected({1, 2}, 2)), (Rows{{"f", ""}, {"g", "h"}}));
}

TEST(CellRows, TheCornerCutsAndNeverPads) {
    const CellRows rows = Grids::rows(source);
    EXPECT_EQ(texts(rows.corner(3, 2)), (Rows{{"a", "b"}, {}, {"c", "d"}}));
    EXPECT_EQ(texts(rows.corner(99, 99)), source);
    EXPECT_EQ(texts(rows.corner(0, 5)), Rows{});
}

TEST(CellRowsDeathTest, ACornerOfCutRowsStopsTheProcess) {
    const CellRows rows = Grids::rows(source);
    EXPECT_DEATH(static_cast<void>(rows.corner(3, 2).corner(1, 1)), "the corner of a list whose rows are already cut");
    EXPECT_DEATH(static_cast<void>(rows.selected({0}, 2).corner(1, 1)),
                 "the corner of a list whose rows are already cut");
}

TEST(CellRows, EqualityLooksAtTextsAndWidths) {
    const CellRows rows = Grids::rows(source);
    EXPECT_EQ(rows, Grids::rows(source));
    EXPECT_FALSE(rows == rows.corner(5, 2));
    EXPECT_EQ(rows.corner(2, 2), rows.corner(2, 5));
    EXPECT_EQ(rows.selected({0, 4}, 2), Grids::rows({{"a", "b"}, {"g", "h"}}));
    EXPECT_FALSE(rows.selected({0, 4}, 3) == Grids::rows({{"a", "b"}, {"g", "h"}}));
    EXPECT_FALSE(rows == rows.selected({0, 1, 2, 3}, 2));
}

TEST(CellRows, CopiesShareTheTextsAndKeepThemAlive) {
    std::string_view cell;
    CellRows copy;
    {
        const CellRows rows = Grids::rows({{"text that is too long to live inside a string object"}});
        cell = rows[0][0];
        copy = rows.selected({0}, 1);
    }
    EXPECT_EQ(copy[0][0].data(), cell.data());
    EXPECT_EQ(cell, "text that is too long to live inside a string object");
}

}  // namespace
}  // namespace corvale
