#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "CorvaleKit/engine/BestAlignment.h"
#include "tests/support/Grids.h"
#include "tests/support/Pairs.h"
#include "tests/support/Tables.h"

namespace corvale {
namespace {

using Pairs::shown;
using Tables::Rows;

std::vector<RowPair> align(const Rows& before, const Rows& after, std::size_t columns,
                           const CancelCheck& isCancelled = {}) {
    const auto beforeTexts = Tables::texts(before, columns);
    const auto afterTexts = Tables::texts(after, columns);
    PollMeter meter(isCancelled);
    std::vector<RowPair> pairs;
    BestAlignment(beforeTexts, afterTexts, meter)
        .align({0, static_cast<std::uint32_t>(before.size()), 0, static_cast<std::uint32_t>(after.size())}, pairs);
    return pairs;
}

TEST(BestAlignment, PairsSimilarRowsAndLeavesOthersAlone) {
    EXPECT_EQ(shown(align({{"1", "a"}, {"2", "b"}}, {{"x", "y"}, {"2", "c"}}, 2)), "0:- -:0 1:1");
}

TEST(BestAlignment, PrefersMoreEqualCells) {
    EXPECT_EQ(shown(align({{"1", "2", "3"}}, {{"1", "2", "x"}, {"1", "2", "3"}}, 3)), "-:0 0:1");
}

TEST(BestAlignment, PrefersTwoPairsToOneBetterOne) {
    EXPECT_EQ(shown(align({{"1", "2", "3"}, {"4", "5", "6"}}, {{"4", "5", "x"}, {"1", "2", "y"}}, 3)), "0:- 1:0 -:1");
    EXPECT_EQ(shown(align({{"1", "2"}, {"1", "2"}}, {{"1", "x"}, {"1", "2"}}, 2)), "0:0 1:1");
}

TEST(BestAlignment, KeepsTheOrderOfRowsThatCrossed) {
    EXPECT_EQ(shown(align({{"1", "a"}, {"2", "b"}}, {{"2", "b"}, {"1", "a"}}, 2)), "0:- 1:0 -:1");
}

TEST(BestAlignment, PairsBeforeItSkipsAndSkipsBeforeFirst) {
    EXPECT_EQ(shown(align({{"k"}}, {{"x"}, {"y"}}, 1)), "0:0 -:1");
    EXPECT_EQ(shown(align({{"x"}, {"y"}}, {{"k"}}, 1)), "0:0 1:-");
    EXPECT_EQ(shown(align({{"1", "2"}, {"3", "4"}}, {{"5", "6"}, {"7", "8"}}, 2)), "0:- 1:- -:0 -:1");
}

TEST(BestAlignment, OfRowsInOneColumnPairsAsManyAsThereAre) {
    EXPECT_EQ(shown(align(Tables::letters("abc"), Tables::letters("xaby"), 1)), "-:0 0:1 1:2 2:3")
        << "of those the most equal ones";
}

// The best total of all order-preserving pairings from two rows on, by trying each.
std::int64_t bestTotal(const Rows& before, const Rows& after, std::size_t columns, std::size_t i = 0,
                       std::size_t j = 0) {
    if (i == before.size() || j == after.size()) {
        return 0;
    }
    std::int64_t best =
        std::max(bestTotal(before, after, columns, i + 1, j), bestTotal(before, after, columns, i, j + 1));
    std::size_t equal = 0;
    for (std::size_t column = 0; column < columns; ++column) {
        equal += before[i][column] == after[j][column] ? 1 : 0;
    }
    if (columns < 2 || 2 * equal >= columns) {
        const auto weight = static_cast<std::int64_t>(equal) + 1;
        best = std::max(best, weight + bestTotal(before, after, columns, i + 1, j + 1));
    }
    return best;
}

std::int64_t total(const std::vector<RowPair>& pairs, const Rows& before, const Rows& after, std::size_t columns) {
    std::int64_t sum = 0;
    for (const RowPair& pair : pairs) {
        if (pair.hasLeft() && pair.hasRight()) {
            sum += bestTotal({before[pair.left]}, {after[pair.right]}, columns);
        }
    }
    return sum;
}

Rows randomRows(std::mt19937& random, std::size_t count, std::size_t columns, unsigned values) {
    Rows rows(count, std::vector<std::string>(columns));
    for (auto& row : rows) {
        std::generate(row.begin(), row.end(), [&] { return std::to_string(random() % values); });
    }
    return rows;
}

TEST(BestAlignment, HasTheBestTotalOfAllPairings) {
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        const std::size_t columns = 1 + random() % 5;
        const Rows before = randomRows(random, 1 + random() % 6, columns, 2);
        const Rows after = randomRows(random, 1 + random() % 6, columns, 2);
        const auto pairs = align(before, after, columns);
        ASSERT_TRUE(Pairs::areComplete(pairs, before.size(), after.size()));
        ASSERT_EQ(total(pairs, before, after, columns), bestTotal(before, after, columns)) << "round " << round;
    }
}

// A row of a wide table that has cells in some columns only.
using Thin = std::vector<Grids::PlacedTexts>;

DataTable thinTable(const Thin& rows, std::size_t columns) {
    DataTable::Parts parts;
    for (std::size_t column = 0; column < columns; ++column) {
        parts.headers.push_back(std::to_string(column));
    }
    std::vector<std::uint32_t> all;
    for (const auto& row : rows) {
        all.push_back(static_cast<std::uint32_t>(all.size()));
        parts.rowNumbers.push_back(static_cast<std::int64_t>(all.size()));
        static_cast<void>(row);
    }
    parts.rows = CellRows(Grids::scattered(rows)).selected(all, columns);
    return DataTable(std::move(parts));
}

TEST(BestAlignment, OfThinRowsIsThatOfFullOnes) {
    constexpr std::size_t columns = 60;
    std::mt19937 random(4);
    const auto below = [&random](unsigned end) { return std::uniform_int_distribution<unsigned>(0, end - 1)(random); };
    for (const std::size_t count : {3U, 40U}) {
        std::vector<Thin> thin(2);
        std::vector<Rows> full(2, Rows(count, std::vector<std::string>(columns)));
        for (std::size_t side = 0; side < 2; ++side) {
            for (std::size_t row = 0; row < count; ++row) {
                thin[side].emplace_back();
                for (std::uint32_t column = below(9); column < columns; column += 5 + below(9)) {
                    const std::string text = below(2) == 0 ? "x" : "y";
                    thin[side].back().emplace_back(column, text);
                    full[side][row][column] = text;
                }
            }
        }
        const auto before = Tables::texts(thinTable(thin[0], columns));
        const auto after = Tables::texts(thinTable(thin[1], columns));
        ASSERT_TRUE(before.row(0).isThin());
        const CancelCheck never;
        PollMeter meter(never);
        std::vector<RowPair> pairs;
        const auto rows = static_cast<std::uint32_t>(count);
        BestAlignment(before, after, meter).align({0, rows, 0, rows}, pairs);
        EXPECT_EQ(shown(pairs), shown(align(full[0], full[1], columns))) << count << " rows";
    }
}

TEST(BestAlignment, AlignsOnlyTheStretch) {
    const auto before = Tables::texts({{"a"}, {"b"}, {"c"}}, 1);
    const auto after = Tables::texts({{"b"}, {"c"}, {"d"}}, 1);
    const CancelCheck never;
    PollMeter meter(never);
    std::vector<RowPair> pairs{{9, 9}};
    BestAlignment alignment(before, after, meter);
    alignment.align({1, 3, 1, 2}, pairs);
    EXPECT_EQ(shown(pairs), "9:9 1:- 2:1");
    alignment.align({0, 1, 0, 1}, pairs);
    EXPECT_EQ(shown(pairs), "9:9 1:- 2:1 0:0");
}

TEST(BestAlignment, StopsAmongManyColumns) {
    std::mt19937 random(5);
    const Rows before = randomRows(random, 100, 300, 3);
    const Rows after = randomRows(random, 100, 300, 3);
    int asked = 0;
    EXPECT_THROW(align(before, after, 300, [&asked] { return ++asked == 3; }), Cancelled);
}

}  // namespace
}  // namespace corvale
