#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "CorvaleKit/loading/PackedCell.h"
#include "CorvaleKit/loading/SheetCells.h"
#include "tests/support/Grids.h"

namespace corvale::XLSX {
namespace {

using Grids::Rows;
using Grids::texts;

struct Placed {
    std::uint32_t row;
    std::uint32_t column;
    std::string text;
};

CellGrid gridOf(const std::vector<Placed>& placed) {
    SheetCells cells{ByteArena()};
    for (const auto& [row, column, text] : placed) {
        cells.place(row, column, cells.keep(text));
    }
    return cells.finish();
}

// Rows that grow to reach each cell as it comes.
Rows slowRows(const std::vector<Placed>& placed) {
    Rows rows;
    for (const auto& [row, column, text] : placed) {
        rows.resize(std::max<std::size_t>(rows.size(), row + 1));
        rows[row].resize(std::max<std::size_t>(rows[row].size(), column + 1));
        rows[row][column] = text;
    }
    return rows;
}

TEST(SheetCells, NoCellsMakeNoRows) { EXPECT_EQ(gridOf({}).rowCount(), 0U); }

TEST(SheetCells, RowsReachTheLowestAndRightmostCells) {
    EXPECT_EQ(texts(gridOf({{0, 0, "a"}, {0, 1, "b"}, {1, 0, "c"}})), (Rows{{"a", "b"}, {"c"}}));
    EXPECT_EQ(texts(gridOf({{2, 1, "x"}})), (Rows{{}, {}, {"", "x"}}));
    EXPECT_EQ(texts(gridOf({{0, 0, ""}, {2, 1, ""}})), (Rows{{""}, {}, {"", ""}}));
}

TEST(SheetCells, CellsMayComeInAnyOrder) {
    EXPECT_EQ(texts(gridOf({{0, 1, "b"}, {0, 0, "a"}})), (Rows{{"a", "b"}}));
    EXPECT_EQ(texts(gridOf({{2, 0, "c"}, {0, 3, "a"}, {1, 0, "b"}, {3, 0, "d"}})),
              (Rows{{"", "", "", "a"}, {"b"}, {"c"}, {"d"}}));
}

TEST(SheetCells, TheLastCellAtAPlaceStays) {
    EXPECT_EQ(texts(gridOf({{0, 0, "old"}, {0, 0, "new"}})), (Rows{{"new"}}));
    EXPECT_EQ(texts(gridOf({{0, 0, "1"}, {5, 0, "x"}, {0, 0, "2"}, {0, 0, "3"}})),
              (Rows{{"3"}, {}, {}, {}, {}, {"x"}}));
    EXPECT_EQ(texts(gridOf({{0, 0, "text"}, {0, 0, ""}})), (Rows{{""}}));
}

TEST(SheetCells, ScatteredRowsTakeLateCells) {
    EXPECT_EQ(texts(gridOf({{0, 5, "f"}, {1, 0, "x"}, {0, 2, "c"}, {0, 5, "F"}})),
              (Rows{{"", "", "c", "", "", "F"}, {"x"}}));
}

TEST(SheetCells, TextsOfTheArenaArePlacedByOffset) {
    ByteArena arena;
    arena.append("sharedtext");
    SheetCells cells(std::move(arena));
    cells.place(0, 0, cells.cell(6, 4));
    cells.place(0, 1, cells.cell(0, 6));
    cells.place(0, 2, cells.keep("own"));
    const std::uint64_t twice = cells.keep("twice");
    cells.place(1, 0, twice);
    cells.place(1, 1, twice);
    EXPECT_EQ(texts(cells.finish()), (Rows{{"text", "shared", "own"}, {"twice", "twice"}}));
}

TEST(SheetCells, LateCellsKeepVeryLongTexts) {
    const std::string longText(PackedCell::longLength + 1, 'x');
    EXPECT_TRUE(texts(gridOf({{1, 0, longText}, {0, 0, longText}, {0, 1, "a"}})) ==
                (Rows{{longText, "a"}, {longText}}));
}

TEST(SheetCells, AgreesWithItsTwinOnRandomPlaces) {
    std::mt19937 random(5);
    for (int round = 0; round < 2000; ++round) {
        std::vector<Placed> placed;
        for (std::size_t left = random() % 12; left > 0; --left) {
            const auto column = static_cast<std::uint32_t>(random() % 4 == 0 ? random() % 50 : random() % 4);
            placed.push_back({static_cast<std::uint32_t>(random() % 5), column, std::to_string(left)});
        }
        if (round % 2 == 0) {
            std::stable_sort(placed.begin(), placed.end(), [](const auto& a, const auto& b) { return a.row < b.row; });
        }
        ASSERT_EQ(texts(gridOf(placed)), slowRows(placed)) << "round " << round;
    }
}

}  // namespace
}  // namespace corvale::XLSX
