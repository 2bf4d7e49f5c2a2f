#include <gtest/gtest.h>

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

}  // namespace
}  // namespace corvale
