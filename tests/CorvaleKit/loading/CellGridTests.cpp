#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CorvaleKit/loading/CSV.h"
#include "CorvaleKit/loading/CellGridBuilder.h"
#include "CorvaleKit/loading/CellRow.h"
#include "tests/support/Grids.h"

namespace corvale {
namespace {

using Grids::PlacedTexts;
using Grids::Rows;
using Grids::texts;

using Visits = std::vector<std::pair<std::size_t, std::string>>;

Visits storedCells(const CellRow& row) {
    Visits visits;
    row.forEachStored([&](std::size_t column, std::string_view text) { visits.emplace_back(column, text); });
    return visits;
}

TEST(CellGrid, IsEmptyByDefault) {
    EXPECT_EQ(CellGrid().rowCount(), 0U);
    EXPECT_EQ(CellGridBuilder().finish(Bytes()).rowCount(), 0U);
}

TEST(CellGrid, KeepsRaggedRowsAsTheyAre) {
    const Rows rows = {{"a", "b"}, {}, {""}, {"c", "", "é"}, {"", ""}};
    const CellGrid grid = CellGrid::fromTexts(rows);
    EXPECT_EQ(texts(grid), rows);
    EXPECT_TRUE(grid.row(1).empty());
    EXPECT_EQ(grid.row(3)[2], "é");
}

CellGrid gridOf(const std::vector<std::pair<std::uint64_t, std::uint64_t>>& cells, std::string_view buffer) {
    CellGridBuilder builder;
    for (const auto& [offset, length] : cells) {
        builder.addCell(offset, length);
    }
    builder.endRow();
    return builder.finish(Bytes(buffer));
}

TEST(CellGrid, RowsAreAlikeThatLieAlikeWithTheSameTexts) {
    const CellGrid one = gridOf({{0, 2}, {3, 0}, {4, 1}}, "ab,,c");
    const CellGrid behind = gridOf({{2, 2}, {5, 0}, {6, 1}}, "x\nab,,c");
    EXPECT_TRUE(CellRow::areAlike(one.row(0), 0, behind.row(0), 0, 3));
    EXPECT_TRUE(CellRow::areAlike(one.row(0), 1, behind.row(0), 1, 2));
    EXPECT_FALSE(CellRow::areAlike(one.row(0), 0, behind.row(0), 1, 2));
    EXPECT_FALSE(CellRow::areAlike(one.row(0), 0, behind.row(0), 0, 4));

    const CellGrid otherText = gridOf({{0, 2}, {3, 0}, {4, 1}}, "ab,,d");
    const CellGrid otherCut = gridOf({{0, 1}, {2, 1}, {4, 1}}, "ab,,c");
    const CellGrid backwards = gridOf({{3, 2}, {2, 0}, {0, 1}}, "c,,ab");
    const CellGrid farApart = gridOf({{0, 2}, {3, 0}, {8, 1}}, "ab,     c");
    for (const CellGrid* other : {&otherText, &otherCut, &backwards, &farApart}) {
        EXPECT_FALSE(CellRow::areAlike(one.row(0), 0, other->row(0), 0, 3));
    }
    EXPECT_FALSE(CellRow::areAlike(backwards.row(0), 0, backwards.row(0), 0, 3));
    EXPECT_FALSE(CellRow::areAlike(farApart.row(0), 0, farApart.row(0), 0, 3));
}

TEST(CellGrid, GivesTheCellsOfAPlainRowWithTheirDelimiter) {
    CellGridBuilder builder;
    builder.setDelimiter(',');
    for (const auto& [offset, length] : std::vector<std::pair<std::uint64_t, std::uint64_t>>{{2, 2}, {5, 0}, {6, 1}}) {
        builder.addCell(offset, length);
    }
    builder.markPlain();
    builder.endRow();
    builder.addCell(6, 1);
    builder.endRow();
    const CellGrid grid = builder.finish(Bytes(std::string_view("x,ab,,c")));
    EXPECT_EQ(grid.delimiter(), ',');
    const CellRow plain = grid.row(0);
    EXPECT_EQ(plain.joinedBy(',', 0, 3), "ab,,c");
    EXPECT_EQ(plain.joinedBy(',', 1, 2), ",c");
    EXPECT_EQ(plain.joinedBy(',', 0, 1), "ab");
    EXPECT_EQ(plain.joinedBy(';', 0, 3), std::nullopt);
    EXPECT_EQ(plain.joinedBy(',', 0, 4), std::nullopt);
    EXPECT_EQ(plain.joinedBy(',', 0, 0), std::nullopt);
    EXPECT_EQ(grid.row(1).joinedBy(',', 0, 1), std::nullopt);
    EXPECT_EQ(CellGrid::fromTexts({{"a"}}).delimiter(), std::nullopt);
}

std::vector<std::string> stretches(const CellRow& row, char delimiter, std::size_t first, std::size_t count) {
    std::vector<std::string> texts;
    const bool isKnown = row.forEachStretch(delimiter, first, count, [&texts](const CellRow::Stretch& stretch) {
        texts.push_back(std::to_string(stretch.first) + "+" + std::to_string(stretch.count) + " " +
                        std::string(stretch.text.substr(0, 9)));
    });
    return isKnown ? texts : std::vector<std::string>{"nothing known"};
}

TEST(CellGrid, GivesStretchesOfCellsWithTheirDelimiter) {
    const CellGrid grid = CSV::parse(Bytes(std::string_view("a,b,\"c,d\",e,,f\n\"x\"\"y\",z\n1,\"2\n")), ',');
    using Texts = std::vector<std::string>;
    EXPECT_EQ(stretches(grid.row(0), ',', 0, 6), (Texts{"0+2 a,b", "2+1 c,d", "3+3 e,,f"}));
    EXPECT_EQ(stretches(grid.row(0), ',', 1, 3), (Texts{"1+1 b", "2+1 c,d", "3+1 e"}));
    EXPECT_EQ(stretches(grid.row(1), ',', 0, 2), (Texts{"0+1 x\"y", "1+1 z"}));
    EXPECT_EQ(stretches(grid.row(2), ',', 0, 2), (Texts{"0+1 1", "1+1 2\n"}));
    EXPECT_EQ(stretches(grid.row(0), ';', 0, 6), Texts{"nothing known"});
    EXPECT_EQ(stretches(grid.row(1), ',', 0, 3), Texts{"nothing known"});
    EXPECT_EQ(stretches(CellGrid::fromTexts({{"a", "b"}}).row(0), ',', 0, 2), Texts{"nothing known"});
}

TEST(CellGrid, GivesLongCellsAsStretchesOfTheirOwn) {
    const std::string longest((std::size_t{1} << 24U) - 2, 'x');
    const CellGrid grid = CSV::parse(Bytes("a,b," + longest + "," + longest + "xx,c,d\n"), ',');
    EXPECT_EQ(stretches(grid.row(0), ',', 0, 6),
              (std::vector<std::string>{"0+3 a,b,xxxxx", "3+1 xxxxxxxxx", "4+2 c,d"}));
}

TEST(CellGridDeathTest, TakesNoPlacedCellsAmongThoseWithDelimiters) {
    CellGridBuilder builder;
    builder.setDelimiter(',');
    EXPECT_DEATH(builder.addRow({{1, builder.packed(1, 1)}}), "delimiters");
}

TEST(CellGrid, NothingIsSaidOfRowsThatNobodySpokeOf) {
    const CellGrid grid = CellGrid::fromTexts({{"a", " b"}, {}});
    for (std::size_t row = 0; row < grid.rowCount(); ++row) {
        EXPECT_FALSE(grid.row(row).isTidy());
        EXPECT_FALSE(grid.row(row).isNotBlank());
    }
}

TEST(CellGrid, WhatIsSaidOfARowLeavesItsCellsAlone) {
    CellGridBuilder builder;
    builder.markTidy();
    builder.addCell(0, 1);
    builder.addCell(1, 1);
    EXPECT_EQ(builder.pendingCells(), 2U);
    builder.endRow();
    builder.addCell(2, 1);
    builder.markNotBlank();
    builder.endRow();
    const CellGrid grid = builder.finish(Bytes(std::string_view("abc")));
    EXPECT_EQ(texts(grid), (Rows{{"a", "b"}, {"c"}}));
    EXPECT_TRUE(grid.row(0).isTidy());
    EXPECT_FALSE(grid.row(0).isNotBlank());
    EXPECT_FALSE(grid.row(1).isTidy());
    EXPECT_TRUE(grid.row(1).isNotBlank());
}

TEST(CellGrid, ScatteredCellsReadAsTheRowTheyMake) {
    struct Case {
        PlacedTexts cells;
        std::size_t width;
    };
    const std::vector<Case> cases = {
        {{}, 0},
        {{{0, "a"}}, 1},
        {{{1, "a"}}, 2},
        {{{2, "a"}}, 3},
        {{{0, "a"}, {3, "b"}}, 4},
        {{{0, "a"}, {4, "b"}}, 5},
        {{{999, "far"}}, 1000},
        {{{0, "a"}, {7, ""}, {500, "b"}, {999, "c"}}, 1000},
    };
    for (const auto& [cells, width] : cases) {
        const CellGrid grid = Grids::scattered({{}, cells, {{0, "after"}}});
        const CellRow row = grid.row(1);
        Grids::Texts expected(width);
        for (const auto& [column, text] : cells) {
            expected[column] = text;
        }
        EXPECT_EQ(texts(row), expected);
        EXPECT_EQ(row.size(), width);
        EXPECT_GE(row.storedCells(), cells.size());
        EXPECT_LE(row.storedCells(), 2 * cells.size());
        EXPECT_EQ(texts(grid.row(0)), Grids::Texts{});
        EXPECT_EQ(texts(grid.row(2)), Grids::Texts{"after"});
    }
}

TEST(CellGrid, RandomScatteredRowsReadLikeDenseOnes) {
    std::mt19937 random(11);
    for (int i = 0; i < 300; ++i) {
        std::vector<PlacedTexts> scattered(random() % 6);
        Rows dense;
        for (auto& cells : scattered) {
            Grids::Texts row;
            const std::size_t gap = 1 + random() % 8;
            for (std::size_t column = random() % gap; column < 30; column += 1 + random() % gap) {
                cells.emplace_back(static_cast<std::uint32_t>(column), std::string(random() % 3, 'x'));
                row.resize(column);
                row.push_back(cells.back().second);
            }
            dense.push_back(row);
        }
        const CellGrid grid = Grids::scattered(scattered);
        const CellGrid twin = CellGrid::fromTexts(dense);
        ASSERT_EQ(texts(grid), dense);
        for (std::size_t row = 0; row < dense.size(); ++row) {
            EXPECT_EQ(grid.row(row), twin.row(row));
        }
    }
}

TEST(CellGrid, AFarCellTakesTheRoomOfANearOne) {
    const CellGrid grid = Grids::scattered({{{999, "far"}}, {{0, "near"}}});
    EXPECT_EQ(storedCells(grid.row(0)), (Visits{{999, "far"}}));
    EXPECT_EQ(storedCells(grid.row(1)), (Visits{{0, "near"}}));
}

TEST(CellGrid, StoredCellsComeInColumnOrderUpToTheWidth) {
    const CellRows rows(Grids::scattered({{{1, "b"}, {9, "j"}, {12, "m"}}, {{0, "a"}, {1, ""}, {2, "c"}}}));
    EXPECT_EQ(storedCells(rows[0]), (Visits{{1, "b"}, {9, "j"}, {12, "m"}}));
    EXPECT_EQ(storedCells(rows[1]), (Visits{{0, "a"}, {1, ""}, {2, "c"}}));

    const CellRows cut = rows.corner(2, 10);
    EXPECT_EQ(storedCells(cut[0]), (Visits{{1, "b"}, {9, "j"}}));
    EXPECT_EQ(storedCells(rows.corner(2, 2)[1]), (Visits{{0, "a"}, {1, ""}}));
    EXPECT_EQ(storedCells(rows.corner(2, 0)[0]), Visits{});
}

TEST(CellGrid, AnyStoredStopsAtTheFirstHit) {
    const CellGrid grid = Grids::scattered({{{2, "x"}, {50, "hit"}, {90, "hit"}}, {{0, "x"}, {1, "hit"}, {2, "hit"}}});
    for (const std::size_t row : {0U, 1U}) {
        std::size_t seen = 0;
        const auto isHit = [&seen](std::size_t, std::string_view text) {
            ++seen;
            return text == "hit";
        };
        EXPECT_TRUE(grid.row(row).anyStored(isHit));
        EXPECT_EQ(seen, 2U);
        EXPECT_FALSE(grid.row(row).anyStored([](std::size_t, std::string_view text) { return text.empty(); }));
    }
}

TEST(CellGrid, RowsAreEqualWhenTheirTextsAre) {
    const CellGrid grid = CellGrid::fromTexts({{"a", "b"}, {"a", "b"}, {"a", "b", ""}, {"a", "c"}, {}, {"ab"}});
    EXPECT_EQ(grid.row(0), grid.row(1));
    EXPECT_FALSE(grid.row(0) == grid.row(2)) << "another width";
    EXPECT_FALSE(grid.row(0) == grid.row(3));
    EXPECT_FALSE(grid.row(0) == grid.row(4));
    EXPECT_FALSE(grid.row(0) == grid.row(5));
    EXPECT_EQ(grid.row(4), CellGrid::fromTexts({{}}).row(0));
}

// Lengths from 2^24 - 1 on no longer fit a cell's own bits.
TEST(CellGrid, LongCellsKeepTheirWholeText) {
    constexpr std::size_t limit = std::size_t{1} << 24U;
    const std::vector<std::size_t> lengths = {limit - 2, limit - 1, limit, limit + 1};
    std::string buffer;
    CellGridBuilder builder;
    for (const std::size_t length : lengths) {
        const std::size_t start = buffer.size();
        buffer.append(length, 'x');
        buffer[start] = '[';
        buffer.back() = ']';
        builder.addCell(start, length);
        builder.addCell(start, 1);
    }
    builder.endRow();
    const std::uint64_t far = builder.packed(7, limit + 5);
    builder.addRow({{40, far}});
    const CellGrid grid = builder.finish(Bytes(buffer));

    for (std::size_t i = 0; i < lengths.size(); ++i) {
        const std::string_view cell = grid.row(0)[2 * i];
        ASSERT_EQ(cell.size(), lengths[i]);
        EXPECT_EQ(cell.front(), '[');
        EXPECT_EQ(cell.back(), ']');
        EXPECT_EQ(grid.row(0)[2 * i + 1], "[");
    }
    EXPECT_EQ(grid.row(1)[40], std::string_view(buffer).substr(7, limit + 5));
}

TEST(CellGrid, TextsStayInPlaceWhenTheGridMoves) {
    CellGrid grid = CellGrid::fromTexts({{"a", "b"}});
    const std::string_view cell = grid.row(0)[1];
    const CellGrid moved = std::move(grid);
    EXPECT_EQ(moved.row(0)[1].data(), cell.data());
    EXPECT_EQ(cell, "b");
}

TEST(CellGridBuilder, CountsTheCellsOfTheRowAtHand) {
    CellGridBuilder builder;
    builder.reserve(10, 2);
    EXPECT_EQ(builder.pendingCells(), 0U);
    builder.addCell(0, 1);
    builder.addCell(1, 1);
    EXPECT_EQ(builder.pendingCells(), 2U);
    builder.endRow();
    EXPECT_EQ(builder.pendingCells(), 0U);
    builder.addRow({{9, builder.packed(0, 2)}});
    EXPECT_EQ(builder.pendingCells(), 0U);
    builder.addCell(1, 1);
    EXPECT_EQ(builder.pendingCells(), 1U);
    builder.endRow();
    EXPECT_EQ(texts(builder.finish(Bytes(std::string_view("ab")))),
              (Rows{{"a", "b"}, {"", "", "", "", "", "", "", "", "", "ab"}, {"b"}}));
}

TEST(CellGridBuilderDeathTest, AnOffsetBeyondTheReferenceStopsTheProcess) {
    CellGridBuilder builder;
    EXPECT_DEATH(builder.addCell(std::uint64_t{1} << 40U, 1), "a cell starts beyond the first tebibyte");
}

}  // namespace
}  // namespace corvale
