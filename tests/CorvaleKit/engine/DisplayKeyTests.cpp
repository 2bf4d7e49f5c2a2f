#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

#include "CorvaleKit/engine/DisplayKey.h"
#include "tests/support/Tables.h"

namespace corvale {
namespace {

std::string keyOf(const std::vector<std::string>& cells, const std::vector<std::size_t>& columns) {
    const DataTable table = Tables::table({cells}, cells.size());
    std::string key;
    DisplayKey::append(key, table.rows()[0], columns);
    return key;
}

// Of a row all whose cells are key cells.
bool isBlank(const std::vector<std::string>& cells) {
    std::vector<std::size_t> columns(cells.size());
    std::iota(columns.begin(), columns.end(), std::size_t{0});
    return DisplayKey::isBlank(keyOf(cells, columns), columns.size());
}

TEST(DisplayKey, JoinsTrimmedCells) {
    EXPECT_EQ(keyOf({" x\n", "\ty y "}, {0, 1}), "x · y y");
    EXPECT_EQ(keyOf({" x\n", "\ty y "}, {1, 0}), "y y · x");
    EXPECT_EQ(keyOf({" x\n", "\ty y "}, {1}), "y y");
}

TEST(DisplayKey, EmptyCellsKeepTheirPlace) {
    EXPECT_EQ(keyOf({"", " ", "z"}, {0, 1, 2}), " ·  · z");
    EXPECT_EQ(keyOf({""}, {0}), "");
    EXPECT_EQ(keyOf({"a"}, {}), "");
}

TEST(DisplayKey, OfOneColumnIsPartOfTheCell) {
    const std::string cell = " a\u2028";
    EXPECT_EQ(DisplayKey::ofCell(cell), "a");
    EXPECT_EQ(static_cast<const void*>(DisplayKey::ofCell(cell).data()), static_cast<const void*>(cell.data() + 1));
}

TEST(DisplayKey, IsBlankWhenAllItsCellsAre) {
    for (const std::vector<std::string>& cells :
         {std::vector<std::string>{""}, {" "}, {"", ""}, {" ", "\t\n"}, {"", "", ""}}) {
        EXPECT_TRUE(isBlank(cells)) << testing::PrintToString(cells);
    }
    EXPECT_TRUE(DisplayKey::isBlank("", 0));
}

TEST(DisplayKey, IsNotBlankWhenOneOfItsCellsHasText) {
    for (const std::vector<std::string>& cells :
         {std::vector<std::string>{"a"}, {"·"}, {" · "}, {"", "·"}, {"·", ""}, {"1", ""}, {"", "1"}, {"", "", "z"}}) {
        EXPECT_FALSE(isBlank(cells)) << testing::PrintToString(cells);
    }
    EXPECT_FALSE(DisplayKey::isBlank("7", 0)) << "a row number";
}

}  // namespace
}  // namespace corvale
