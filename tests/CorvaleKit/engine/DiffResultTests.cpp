#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "CorvaleKit/engine/DiffEngine.h"

namespace corvale {
namespace {

template <typename Result>
concept yieldsCells = requires(Result result, const DiffRow& row, const ColumnPair& column) {
    std::forward<Result>(result).cellBefore(row, column);
}
|| requires(Result result, const DiffRow& row, const ColumnPair& column) {
    std::forward<Result>(result).cellAfter(row, column);
};

static_assert(yieldsCells<DiffResult&> && yieldsCells<const DiffResult&>);
static_assert(!yieldsCells<DiffResult> && !yieldsCells<const DiffResult>,
              "a view into a result that nobody keeps would dangle");
static_assert(std::random_access_iterator<DiffRows::Iterator>);

DiffResult compared(const DataTable& before, const DataTable& after) {
    return DiffEngine::compare(before, after, RowMatch::key({"ID"}), {}, NumberStyle::dotDecimal);
}

TEST(DiffResult, CellsOfASideThatIsLackingAreEmpty) {
    const DiffResult result = compared(DataTable({"ID", "Old"}, {{"1", "a"}, {"2", "b"}}, "a.csv"),
                                       DataTable({"ID", "New"}, {{"1", "c"}, {"3", "d"}}, "b.csv"));
    std::vector<std::string> cells;
    for (const DiffRow row : result.rows) {
        for (const ColumnPair& column : result.columns) {
            cells.push_back(std::string(result.cellBefore(row, column)) + "|" +
                            std::string(result.cellAfter(row, column)));
        }
    }
    std::sort(cells.begin(), cells.end());
    EXPECT_EQ(cells, (std::vector<std::string>{"1|1", "2|", "a|", "b|", "|", "|", "|3", "|c", "|d"}));
}

TEST(DiffResult, RowsAreReachedFromEitherEnd) {
    const DiffResult result =
        compared(DataTable({"ID"}, {{"1"}, {"2"}, {"3"}}, "a.csv"), DataTable({"ID"}, {{"1"}, {"2"}, {"3"}}, "b.csv"));
    ASSERT_EQ(result.rows.end() - result.rows.begin(), 3);
    EXPECT_EQ(result.rows.begin()[1].key, "2");
    EXPECT_EQ((*(result.rows.end() - 1)).key, "3");
}

TEST(DiffSummary, EqualRowsInEqualColumnsAreNoDifference) {
    DiffSummary summary;
    EXPECT_FALSE(summary.hasDifferences());
    summary.same = 3;
    EXPECT_FALSE(summary.hasDifferences());
}

TEST(DiffSummary, AnyRowOrColumnOfOneSideAndAnyChangedRowIsADifference) {
    for (std::int64_t DiffSummary::*field : {&DiffSummary::added,
                                             &DiffSummary::removed,
                                             &DiffSummary::changed,
                                             &DiffSummary::addedColumns,
                                             &DiffSummary::removedColumns}) {
        DiffSummary summary;
        summary.same = 3;
        summary.*field = 1;
        EXPECT_TRUE(summary.hasDifferences());
    }
}

}  // namespace
}  // namespace corvale
