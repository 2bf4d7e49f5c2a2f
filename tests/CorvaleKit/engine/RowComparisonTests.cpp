#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CorvaleKit/engine/RowComparison.h"
#include "tests/support/Grids.h"
#include "tests/support/Tables.h"

namespace corvale {
namespace {

using Positions = std::vector<std::size_t>;

// Tables of one row over the columns 0 to `columns` - 1, compared in the order given.
ComparisonTexts texts(const Grids::PlacedTexts& row, const std::vector<std::size_t>& order,
                      const CellReduction& reduction = {}) {
    DataTable::Parts parts;
    for (std::size_t column = 0; column < order.size(); ++column) {
        parts.headers.push_back(std::to_string(column));
    }
    parts.rows = CellRows(Grids::scattered({row})).selected({0}, order.size());
    parts.rowNumbers = {2};
    return {DataTable(std::move(parts)), order, reduction};
}

Positions differences(const ComparisonTexts& a, const ComparisonTexts& b) {
    Positions positions;
    RowComparison comparison;
    comparison.forEachDifference(a.row(0), b.row(0), [&](std::size_t position) { positions.push_back(position); });
    EXPECT_EQ(comparison.isSame(a.row(0), b.row(0)), positions.empty());
    return positions;
}

std::vector<std::size_t> countedUp(std::size_t count) {
    std::vector<std::size_t> all;
    while (all.size() < count) {
        all.push_back(all.size());
    }
    return all;
}

TEST(RowComparison, FindsThePositionsThatDiffer) {
    const auto a = Tables::texts({{"1", "2", "3", "4"}}, 4);
    const auto b = Tables::texts({{"1", "x", "3", "y"}}, 4);
    EXPECT_EQ(differences(a, b), (Positions{1, 3}));
    EXPECT_EQ(differences(a, a), Positions{});
}

TEST(RowComparison, EndsWhenItsCallerHasEnough) {
    const auto a = Tables::texts({{"1", "2", "3"}}, 3);
    const auto b = Tables::texts({{"x", "y", "z"}}, 3);
    Positions seen;
    EXPECT_TRUE(RowComparison().anyDifference(a.row(0), b.row(0), [&seen](std::size_t position) {
        seen.push_back(position);
        return seen.size() == 2;
    }));
    EXPECT_EQ(seen, (Positions{0, 1}));
}

// All pairs of short rows, as they lie in two files: delimiters and quotes between the cells, and some of them moved.
TEST(RowComparison, FindsTheDifferencesOfRowsAsAFileHasThem) {
    std::vector<std::string> lines;
    const std::vector<std::string> cells = {"", "a", "b", "ab", "\"a\"", "\"a\"\"\""};
    for (const auto& first : cells) {
        for (const auto& second : cells) {
            for (const auto& third : cells) {
                lines.push_back(first + "," + second + "," + third + "\n");
            }
        }
    }
    for (const auto& before : lines) {
        const auto a = Tables::texts(Tables::table("A,B,C\nx,y,z\n" + before));
        for (const auto& after : lines) {
            const auto b = Tables::texts(Tables::table("A,B,C\n" + after));
            Positions expected;
            for (std::size_t position = 0; a.rowCount() == 2 && b.rowCount() == 1 && position < 3; ++position) {
                if (a.row(1)[position] != b.row(0)[position]) {
                    expected.push_back(position);
                }
            }
            Positions found;
            if (a.rowCount() == 2 && b.rowCount() == 1) {
                RowComparison().forEachDifference(
                    a.row(1), b.row(0), [&](std::size_t position) { found.push_back(position); });
            }
            ASSERT_EQ(found, expected) << before << after;
        }
    }
}

// Rows of the same bytes, of which other columns are compared with each other.
TEST(RowComparison, OfEqualRowsComparesTheColumnsThatArePaired) {
    const auto row = Tables::table("A,B,C,D\n1,2,3,4\n");
    const ComparisonTexts inOrder(row, {0, 1, 2}, {});
    EXPECT_EQ(differences(inOrder, ComparisonTexts(row, {0, 1, 2}, {})), Positions{});
    EXPECT_EQ(differences(inOrder, ComparisonTexts(row, {0, 2, 1}, {})), (Positions{1, 2}));
    EXPECT_EQ(differences(ComparisonTexts(row, {0, 2, 1}, {}), inOrder), (Positions{1, 2}));
    EXPECT_EQ(differences(inOrder, ComparisonTexts(row, {0, 1, 3}, {})), Positions{2});
    EXPECT_EQ(differences(inOrder, ComparisonTexts(row, {1, 2, 3}, {})), (Positions{0, 1, 2}));
}

TEST(RowComparison, OfRowsShorterThanTheHeaderFindsTheSame) {
    const auto a = Tables::texts(Tables::table("A,B,C,D\n1,2\n"));
    const auto b = Tables::texts(Tables::table("A,B,C,D\n1,2,,\n"));
    const auto c = Tables::texts(Tables::table("A,B,C,D\n1,2,,4\n"));
    EXPECT_EQ(differences(a, a), Positions{});
    EXPECT_EQ(differences(a, b), Positions{});
    EXPECT_EQ(differences(b, a), Positions{});
    EXPECT_EQ(differences(a, c), Positions{3});
}

// Cells of 16 MiB and more are kept apart.
TEST(RowComparison, OfEnormousCellsFindsADifferenceAtTheEnd) {
    const std::string enormous((1U << 24U) - 1, 'x');
    const auto row = [&](char last) { return Tables::texts({{"1", enormous + last, "3"}}, 3); };
    EXPECT_EQ(differences(row('a'), row('a')), Positions{});
    EXPECT_EQ(differences(row('a'), row('b')), Positions{1});
}

TEST(RowComparison, OfThinRowsFindsTheSame) {
    const auto order = countedUp(1000);
    const auto a = texts({{3, "x"}, {500, "same"}, {700, "gone"}, {999, "1"}}, order);
    const auto b = texts(
        {
            {3, "y"},
            {500, "same"},
            {800, "new"},
            {999, "1"},
        },
        order);
    ASSERT_TRUE(a.row(0).isThin());
    EXPECT_EQ(differences(a, b), (Positions{3, 700, 800}));
    EXPECT_EQ(differences(a, a), Positions{});
}

TEST(RowComparison, OfThinRowsTakesEmptyCellsForLackingOnes) {
    const auto order = countedUp(1000);
    EXPECT_EQ(differences(texts({{7, ""}, {900, "1"}}, order), texts({{900, "1"}}, order)), Positions{});
}

TEST(RowComparison, OfThinRowsCountsPositionsNotColumns) {
    auto backwards = countedUp(1000);
    std::reverse(backwards.begin(), backwards.end());
    const auto a = texts({{0, "first"}, {999, "last"}}, backwards);
    const auto b = texts({{0, "other"}, {999, "else"}}, backwards);
    EXPECT_EQ(differences(a, b), (Positions{0, 999}));
    EXPECT_EQ(differences(a, texts({{0, "last"}, {999, "first"}}, countedUp(1000))), Positions{});
}

TEST(RowComparison, OfThinRowsReadsTheReducedTexts) {
    const CellReduction ignoringCase{false, false, true, NumberStyle::dotDecimal};
    const auto order = countedUp(1000);
    EXPECT_EQ(
        differences(texts({{5, "A"}, {6, "B"}}, order, ignoringCase), texts({{5, "a"}, {6, "c"}}, order, ignoringCase)),
        Positions{6});
}

TEST(RowComparison, OfAThinAndAFullRowFindsAll) {
    const auto order = countedUp(8);
    const auto thin = texts({{7, "h"}}, order);
    const auto full = Tables::texts({{"a", "", "", "", "", "", "", "h"}}, 8);
    ASSERT_TRUE(thin.row(0).isThin());
    EXPECT_EQ(differences(thin, full), Positions{0});
}

}  // namespace
}  // namespace corvale
