#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/engine/KeySuggester.h"
#include "CorvaleKit/reports/SampleData.h"

namespace corvale::SampleData {
namespace {

using Status = DiffRow::Status;

std::vector<std::string> rowOf(const DataTable& table, std::size_t row) {
    std::vector<std::string> cells;
    for (std::size_t column = 0; column < table.headers().size(); ++column) {
        cells.emplace_back(table.rows()[row][column]);
    }
    return cells;
}

DiffResult compare(const Pair& pair, const std::string& key, const DiffOptions& options = {}) {
    return DiffEngine::compare(pair.before, pair.after, RowMatch::key({key}), options, NumberStyle::dotDecimal);
}

std::set<std::string> keysOf(const DiffResult& result, Status status) {
    std::set<std::string> keys;
    for (const DiffRow row : result.rows) {
        if (row.status == status) {
            keys.emplace(row.key);
        }
    }
    return keys;
}

std::set<ChangeKind> kindsOf(const DiffResult& result) {
    std::set<ChangeKind> kinds;
    for (const DiffRow row : result.rows) {
        for (const CellChange& change : row.changes) {
            kinds.insert(change.kind);
        }
    }
    return kinds;
}

TEST(SampleData, TheOctoberStockHasOneRowAProduct) {
    const DataTable before = stock().before;
    EXPECT_EQ(before.sourceName(), "Stock - October.xlsx");
    EXPECT_EQ(before.headers(), (std::vector<std::string>{"SKU", "Item", "Category", "Price", "Qty", "Location"}));
    ASSERT_EQ(before.rows().size(), 24U);
    EXPECT_EQ(rowOf(before, 0),
              (std::vector<std::string>{"SKU-1001", "Stoneware mug, sky blue", "Kitchen", "14.00", "3", "A1"}));
    EXPECT_EQ(rowOf(before, 6),
              (std::vector<std::string>{"SKU-1007", "Wool throw, oatmeal", "Home", "89.00", "5", "B2"}));
    EXPECT_EQ(rowOf(before, 23),
              (std::vector<std::string>{"SKU-1024", "Bar soap, oat and honey", "Care", "7.00", "4", "G1"}));
}

TEST(SampleData, TablesAreNumberedLikeFilesWithAHeaderRow) {
    for (const DataTable& table : {stock().before, stock().after, orders().before, orders().after}) {
        EXPECT_EQ(table.headerRowNumber(), 1);
        ASSERT_EQ(table.rowNumbers().size(), table.rows().size());
        EXPECT_EQ(table.rowNumbers().front(), 2);
        EXPECT_EQ(table.rowNumbers().back(), static_cast<std::int64_t>(table.rows().size()) + 1);
        EXPECT_EQ(table.topRows().size(), 12U);
    }
}

TEST(SampleData, TheStockShowsEveryKindOfRow) {
    const DiffResult result = compare(stock(), "SKU");
    EXPECT_EQ(result.after.sourceName(), "Stock - November.xlsx");
    EXPECT_EQ(keysOf(result, Status::added), (std::set<std::string>{"SKU-1025", "SKU-1026", "SKU-1027"}));
    EXPECT_EQ(keysOf(result, Status::removed), (std::set<std::string>{"SKU-1022"}));
    EXPECT_EQ(keysOf(result, Status::changed),
              (std::set<std::string>{"SKU-1003", "SKU-1004", "SKU-1007", "SKU-1010", "SKU-1013", "SKU-1016"}));
    EXPECT_EQ(result.summary.same, 17);
    EXPECT_EQ(result.summary.changedCells, 7);
    EXPECT_EQ(result.summary.typeOnlyCells, 1);
    EXPECT_EQ(kindsOf(result), (std::set{ChangeKind::value, ChangeKind::numberFormat}));
}

TEST(SampleData, TheInkBottleCostsTheSameWhenNumberFormatsAreIgnored) {
    const DiffResult result = compare(stock(), "SKU", {.ignoreNumberFormat = true});
    EXPECT_FALSE(keysOf(result, Status::changed).contains("SKU-1016"));
    EXPECT_EQ(result.summary.typeOnlyCells, 0);
}

TEST(SampleData, TheKeysAreFoundUnaided) {
    EXPECT_EQ(KeySuggester::suggestedKey(stock().before, stock().after), "SKU");
    EXPECT_EQ(KeySuggester::suggestedKey(orders().before, orders().after), "Order ID");
}

TEST(SampleData, TheOrdersAddChangesOfSpacingAndLetterCaseAlone) {
    const DiffResult result = compare(orders(), "Order ID", {.ignoreWhitespace = false});
    EXPECT_EQ(result.before.sourceName(), "Orders - before.csv");
    EXPECT_EQ(result.after.sourceName(), "Orders - after.csv");
    EXPECT_EQ(result.summary.added, 2);
    EXPECT_EQ(keysOf(result, Status::removed), (std::set<std::string>{"SO-2048"}));
    EXPECT_EQ(kindsOf(result), (std::set{ChangeKind::value, ChangeKind::letterCase, ChangeKind::whitespace}));
    EXPECT_EQ(result.after.rows()[0][0], "SO-2042");
    EXPECT_EQ(result.after.rows()[1][0], "SO-2041");
}

}  // namespace
}  // namespace corvale::SampleData
