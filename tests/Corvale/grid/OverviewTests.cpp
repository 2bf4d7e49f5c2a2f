#include <gtest/gtest.h>

#include <string>

#include "Corvale/grid/Overview.h"
#include "tests/Corvale/grid/GridResults.h"

namespace corvale {
namespace {

using Overview::Counts;
using Overview::Lane;
using Overview::Mark;

// A result of one column with a row a letter: s the same, c changed, a added, r removed.
DiffResult resultOf(const std::string& kinds) {
    std::string before = "ID,V\n";
    std::string after = "ID,V\n";
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const std::string key = std::to_string(i);
        before += kinds[i] == 'a' ? "" : key + ",x\n";
        after += kinds[i] == 'r' ? "" : key + (kinds[i] == 'c' ? ",y\n" : ",x\n");
    }
    return GridResults::compared(before, after);
}

// `rows` rows of which those in `kinds` repeat.
std::string repeated(const std::string& kinds, std::size_t rows) {
    std::string all;
    while (all.size() < rows) {
        all += kinds;
    }
    all.resize(rows);
    return all;
}

TEST(Overview, CountsEachRowOfASmallResult) {
    const Counts counts = Overview::count(resultOf("scra").rows);
    EXPECT_EQ(counts.rows, 4);
    ASSERT_EQ(counts.stretches.size(), 4U);
    EXPECT_EQ(counts.stretches[0], (std::array<std::int32_t, 3>{0, 0, 0}));
    EXPECT_EQ(counts.stretches[1], (std::array<std::int32_t, 3>{0, 1, 0}));
    EXPECT_EQ(counts.stretches[2], (std::array<std::int32_t, 3>{1, 0, 0}));
    EXPECT_EQ(counts.stretches[3], (std::array<std::int32_t, 3>{0, 0, 1}));
}

TEST(Overview, CountsEveryRowOfALargeResultOnce) {
    const auto result = resultOf(repeated("scsar", 10007));
    const Counts counts = Overview::count(result.rows);
    EXPECT_EQ(counts.rows, 10007);
    EXPECT_EQ(counts.stretches.size(), 4096U);
    std::array<std::int64_t, 3> sums{};
    for (const auto& stretch : counts.stretches) {
        EXPECT_LE(stretch[0] + stretch[1] + stretch[2], 3);
        for (std::size_t lane = 0; lane < sums.size(); ++lane) {
            sums[lane] += stretch[lane];
        }
    }
    EXPECT_EQ(sums,
              (std::array<std::int64_t, 3>{result.summary.removed, result.summary.changed, result.summary.added}));
}

TEST(Overview, FewRowsHaveAMarkEach) {
    const Counts counts = Overview::count(resultOf("scra").rows);
    // 10 pixels a row, marks of 8 in their middle.
    const std::vector<Mark> expected = {
        {Lane::removed, 21, 8, 1},
        {Lane::changed, 11, 8, 1},
        {Lane::added, 31, 8, 1},
    };
    EXPECT_EQ(Overview::marks(counts, 40), expected);
}

TEST(Overview, MarksAreTwoToEightPixelsHigh) {
    const Counts counts = Overview::count(resultOf(repeated("c", 100)).rows);
    EXPECT_EQ(Overview::marks(counts, 200).at(3), (Mark{Lane::changed, 6, 2, 1}));
    EXPECT_EQ(Overview::marks(counts, 500).at(1), (Mark{Lane::changed, 5, 5, 1}));
    EXPECT_EQ(Overview::marks(counts, 5000).at(1), (Mark{Lane::changed, 71, 8, 1}));
}

TEST(Overview, ManyRowsShareBinsWhoseOpacityIsTheirShare) {
    // 199 pixels are too few for a mark of each of 100 rows; of 99 bins, one takes two rows.
    const Counts counts = Overview::count(resultOf(repeated("c", 100)).rows);
    const auto marks = Overview::marks(counts, 199);
    EXPECT_EQ(marks.size(), 99U);
    EXPECT_EQ(marks[0], (Mark{Lane::changed, 0, 2, 1}));

    const auto halves = Overview::marks(Overview::count(resultOf(repeated("cs", 1000)).rows), 20);
    ASSERT_EQ(halves.size(), 10U);
    for (std::size_t i = 0; i < halves.size(); ++i) {
        EXPECT_EQ(halves[i], (Mark{Lane::changed, 2.0 * static_cast<double>(i), 2, 0.45 + 0.55 * 0.5}));
    }
}

TEST(Overview, ASingleRowAmongManyStillShows) {
    std::string kinds = repeated("s", 20000);
    kinds[10000] = 'r';
    const auto marks = Overview::marks(Overview::count(resultOf(kinds).rows), 100);
    ASSERT_EQ(marks.size(), 1U);
    EXPECT_EQ(marks[0].lane, Lane::removed);
    EXPECT_NEAR(marks[0].top, 50, 2);
    EXPECT_GE(marks[0].opacity, 0.45);
    EXPECT_LT(marks[0].opacity, 0.46);
}

TEST(Overview, NothingToMarkWithoutRowsOrHeight) {
    EXPECT_TRUE(Overview::marks({}, 100).empty());
    EXPECT_TRUE(Overview::marks(Overview::count(resultOf("ccc").rows), 0).empty());
    EXPECT_TRUE(Overview::marks(Overview::count(resultOf("sss").rows), 100).empty());
}

TEST(Overview, RowsAndPixelsMapBothWays) {
    EXPECT_EQ(Overview::topOfRow(0, 10, 200), 0);
    EXPECT_EQ(Overview::topOfRow(5, 10, 200), 100);
    EXPECT_EQ(Overview::topOfRow(10, 10, 200), 200);
    EXPECT_EQ(Overview::rowAt(-5, 10, 200), 0);
    EXPECT_EQ(Overview::rowAt(119.9, 10, 200), 5);
    EXPECT_EQ(Overview::rowAt(500, 10, 200), 9);
    EXPECT_EQ(Overview::rowAt(500, 0, 200), 0);
    for (std::int64_t row = 0; row < 1000000; row += 997) {
        EXPECT_NEAR(static_cast<double>(Overview::rowAt(Overview::topOfRow(row, 1000000, 500), 1000000, 500)),
                    static_cast<double>(row),
                    1);
    }
}

}  // namespace
}  // namespace corvale
