#include <absl/hash/hash.h>
#include <gtest/gtest.h>

#include <future>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/engine/DiffEngine.h"
#include "tests/support/Tables.h"

namespace corvale {
namespace {

using Tables::table;
using Status = DiffRow::Status;

const RowMatch byId = RowMatch::key({"ID"});

DiffResult compare(const DataTable& before, const DataTable& after, const DiffOptions& options = {},
                   const RowMatch& match = byId, NumberStyle localeStyle = NumberStyle::dotDecimal) {
    return DiffEngine::compare(before, after, match, options, localeStyle);
}

DiffResult compare(std::string_view before, std::string_view after, const DiffOptions& options = {},
                   const RowMatch& match = byId) {
    return compare(table(before), table(after), options, match);
}

// One line a row: its status, its key, then what changed.
std::vector<std::string> lines(const DiffResult& result) {
    std::vector<std::string> all;
    for (const DiffRow row : result.rows) {
        std::string line = std::string(rawValue(row.status)) + " " + std::string(row.key);
        for (const CellChange& change : row.changes) {
            const ColumnPair& column = result.columns[static_cast<std::size_t>(change.column)];
            line += " " + column.name + ":" + std::string(rawValue(change.kind)) + ":" +
                    std::string(result.cellBefore(row, column)) + ">" + std::string(result.cellAfter(row, column));
        }
        all.push_back(line);
    }
    return all;
}

using Lines = std::vector<std::string>;

DiffOptions with(bool DiffOptions::*option, bool value) {
    DiffOptions options;
    options.*option = value;
    return options;
}

TEST(DiffEngine, ListsAddedRemovedChangedAndSameRows) {
    const auto result =
        compare("ID,Name,Price\n1,Ann,10\n2,Ben,20\n3,Cid,30\n", "ID,Name,Price\n1,Ann,10\n3,Cid,31\n4,Dee,40\n");
    EXPECT_EQ(lines(result), (Lines{"same 1", "removed 2", "changed 3 Price:value:30>31", "added 4"}));
    EXPECT_EQ(result.summary.added, 1);
    EXPECT_EQ(result.summary.removed, 1);
    EXPECT_EQ(result.summary.changed, 1);
    EXPECT_EQ(result.summary.same, 1);
    EXPECT_EQ(result.summary.changedCells, 1);
    EXPECT_EQ(result.summary.typeOnlyCells, 0);
    EXPECT_EQ(result.summary.changesByColumn, (std::map<std::int64_t, std::int64_t>{{2, 1}}));
}

TEST(DiffEngine, ASameResultCountsNoCells) {
    const auto result = compare("ID,A\n1,x\n", "ID,A\n1,x\n");
    EXPECT_EQ(result.summary.changedCells, 0);
    EXPECT_EQ(result.summary.typeOnlyCells, 0);
    EXPECT_TRUE(result.summary.changesByColumn.empty());
}

TEST(DiffEngine, CountsTypeOnlyCellsAndChangesByColumn) {
    DiffOptions options;
    options.ignoreWhitespace = false;
    const auto result = compare("ID,A,B\n1,abc,1\n2,abc,2\n", "ID,A,B\n1,ABC,9\n2,abc ,2.0\n", options);
    EXPECT_EQ(
        lines(result),
        (Lines{"changed 1 A:letterCase:abc>ABC B:value:1>9", "changed 2 A:whitespace:abc>abc  B:numberFormat:2>2.0"}));
    EXPECT_EQ(result.summary.changedCells, 4);
    EXPECT_EQ(result.summary.typeOnlyCells, 3);
    EXPECT_EQ(result.summary.changesByColumn, (std::map<std::int64_t, std::int64_t>{{1, 2}, {2, 2}}));
}

TEST(DiffEngine, AnIgnoredDifferenceVanishesAndOtherwiseIsNamed) {
    const struct {
        std::string before;
        std::string after;
        DiffOptions options;
        std::string line;
    } cases[] = {
        {" Apple", "Apple", {}, "same 1"},
        {" Apple", "Apple", with(&DiffOptions::ignoreWhitespace, false), "changed 1 A:whitespace: Apple>Apple"},
        {"ABC", "abc", {}, "changed 1 A:letterCase:ABC>abc"},
        {"ABC", "abc", with(&DiffOptions::ignoreCase, true), "same 1"},
        {"1250.00", "$1250", with(&DiffOptions::ignoreNumberFormat, true), "same 1"},
        {"1250.00", "$1250", {}, "changed 1 A:numberFormat:1250.00>$1250"},
        {"50%", "0.5", with(&DiffOptions::ignoreNumberFormat, true), "same 1"},
        {"007", "7", with(&DiffOptions::ignoreNumberFormat, true), "same 1"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(lines(compare("ID,A\n1," + c.before + "\n", "ID,A\n1," + c.after + "\n", c.options)), Lines{c.line});
    }
}

TEST(DiffEngine, GroupedNumbersAreEqualUnderTheStyleThatReadsThem) {
    const DataTable grouped({"ID", "A"}, {{"1", "1,250.00"}, {"2", "1,250"}}, "b");
    const DataTable plain({"ID", "A"}, {{"1", "$1250"}, {"2", "1250"}}, "a");
    DiffOptions options;
    options.ignoreNumberFormat = true;
    options.numberStyle = NumberStyle::dotDecimal;
    EXPECT_EQ(lines(compare(grouped, plain, options)), (Lines{"same 1", "same 2"}));
    options.numberStyle = NumberStyle::commaDecimal;
    EXPECT_EQ(lines(compare(grouped, plain, options)), (Lines{"same 1", "changed 2 A:value:1,250>1250"}));
}

TEST(DiffEngine, TheStyleIsTheFilesElseTheLocales) {
    const DataTable commas({"ID", "A"}, {{"1", "1.234,56"}}, "c");
    const DataTable open({"ID", "A"}, {{"1", "1,250"}}, "o");
    EXPECT_EQ(compare(commas, commas).numberStyle, NumberStyle::commaDecimal);
    EXPECT_EQ(compare(open, open, {}, byId, NumberStyle::commaDecimal).numberStyle, NumberStyle::commaDecimal);
    EXPECT_EQ(compare(open, open, {}, byId, NumberStyle::dotDecimal).numberStyle, NumberStyle::dotDecimal);
    DiffOptions fixed;
    fixed.numberStyle = NumberStyle::dotDecimal;
    const auto result = compare(commas, commas, fixed);
    EXPECT_EQ(result.numberStyle, NumberStyle::dotDecimal);
    EXPECT_EQ(compare(commas, commas).options.numberStyle, NumberStyle::automatic);
}

TEST(DiffEngine, OnlyComparedColumnsVoteOnTheStyle) {
    const DataTable table({"ID", "A"}, {{"1,5", "x"}, {"2,5", "y"}}, "t");
    EXPECT_EQ(compare(table, table).numberStyle, NumberStyle::dotDecimal);
    EXPECT_EQ(compare(table, table, {}, RowMatch::rowOrder()).numberStyle, NumberStyle::commaDecimal);
}

TEST(DiffEngine, TheFirstThreeThousandRowsVoteOnTheStyle) {
    for (const std::size_t deciding : {3000U, 3001U}) {
        std::vector<std::vector<std::string>> rows(3001, {"x"});
        rows[deciding - 1] = {"1,5"};
        const DataTable commas({"A"}, rows, "c");
        const DataTable texts({"A"}, {{"x"}}, "t");
        const NumberStyle expected = deciding == 3000 ? NumberStyle::commaDecimal : NumberStyle::dotDecimal;
        EXPECT_EQ(compare(commas, texts, {}, RowMatch::rowOrder()).numberStyle, expected) << deciding;
        EXPECT_EQ(compare(texts, commas, {}, RowMatch::rowOrder()).numberStyle, expected) << deciding;
    }
}

TEST(DiffEngine, ADifferenceInAnIgnoredColumnDoesNotCount) {
    DiffOptions options;
    options.ignoredColumns = {"Note"};
    EXPECT_EQ(lines(compare("ID,Note\n1,a\n", "ID,Note\n1,b\n", options)), Lines{"same 1"});
}

TEST(DiffEngine, ColumnsOfOneSideAreCounted) {
    const auto result = compare("ID,Old,A\n1,x,y\n", "ID,A,New,More\n1,y,z,w\n");
    EXPECT_EQ(result.summary.removedColumns, 1);
    EXPECT_EQ(result.summary.addedColumns, 2);
    EXPECT_EQ(lines(result), Lines{"same 1"});
    EXPECT_FALSE(result.columnOrderChanged);
    EXPECT_TRUE(compare("ID,A,B\n1,x,y\n", "ID,B,A\n1,y,x\n").columnOrderChanged);
}

TEST(DiffEngine, TheDisplayKeyIsAfters) {
    const auto result = compare("ID,B,A\n 1 ,x,y\n", "ID,B,A\n\"1\n\",x,y\n");
    EXPECT_EQ(lines(result), Lines{"same 1"});
    const auto composite = compare("ID,B\n1,x\n", "ID,B\n 1,x \n", {}, RowMatch::key({"ID", "B"}));
    EXPECT_EQ(lines(composite), Lines{"same 1 · x"});
}

TEST(DiffEngine, ARowOrderKeyIsTheRowNumberOfAfterElseOfBefore) {
    const DataTable before({"A", "B"}, {{"k", "1"}, {"gone", "2"}, {"m", "3"}}, "b", {5, 9, 12});
    const DataTable after({"A", "B"}, {{"k", "1"}, {"m", "3"}, {"new", "4"}}, "a", {15, 16, 17});
    EXPECT_EQ(lines(compare(before, after, {}, RowMatch::rowOrder())),
              (Lines{"same 15", "removed 9", "same 16", "added 17"}));
}

TEST(DiffEngine, ARowOrderKeyOfARowWithoutANumberCountsFromTheSecondRow) {
    DataTable::Parts parts;
    parts.headers = {"A"};
    parts.rows = CellRows(CellGrid::fromTexts({{"x"}, {"y"}, {"z"}})).selected({0, 1, 2}, 1);
    parts.rowNumbers = {40};
    const DataTable partlyNumbered(std::move(parts));
    EXPECT_EQ(lines(compare(partlyNumbered, partlyNumbered, {}, RowMatch::rowOrder())),
              (Lines{"same 40", "same 3", "same 4"}));
}

TEST(DiffEngine, RowOrderPairsRowsByTheTextsThatTheOptionsLeave) {
    EXPECT_EQ(lines(compare("A,B\nx,1\ny,2\n",
                            "A,B\nnew,9\nX,1.0\nY,2.0\n",
                            {.ignoreCase = true, .ignoreNumberFormat = true},
                            RowMatch::rowOrder())),
              (Lines{"added 2", "same 3", "same 4"}));
}

TEST(DiffEngine, RowOrderComparesKeyLikeColumnsToo) {
    EXPECT_EQ(lines(compare("ID,A,B\n1,x,y\n", "ID,A,B\n2,x,y\n", {}, RowMatch::rowOrder())),
              Lines{"changed 2 ID:value:1>2"});
}

TEST(DiffEngine, AKeyColumnIsNeverCompared) {
    DiffOptions ignoring;
    ignoring.ignoreCase = true;
    EXPECT_EQ(lines(compare("ID,A\nx1,x\n", " id ,A\nX1,x\n", ignoring)), Lines{"same X1"});
}

TEST(DiffEngine, ColumnsPairedByPositionAreComparedUnderBothNames) {
    EXPECT_EQ(lines(compare("ID,Qty,Old\n1,2,3\n", "ID,Quantity\n1,5\n", with(&DiffOptions::ignoreColumnOrder, false))),
              Lines{"changed 1 Qty:value:2>5"});
    EXPECT_EQ(lines(compare("ID,A,B\n1,x,y\n", "ID,B,A\n1,y,x\n", with(&DiffOptions::ignoreColumnOrder, false))),
              (Lines{"changed 1 A:value:x>y B:value:y>x"}));
    EXPECT_EQ(lines(compare("ID,A,B\n1,x,y\n", "ID,B,A\n1,y,x\n")), Lines{"same 1"});
}

TEST(DiffEngine, ChangesStandInResultColumnOrder) {
    EXPECT_EQ(lines(compare("ID,A,B,C\n1,a,b,c\n", "C,B,A,ID\nx,y,z,1\n")),
              Lines{"changed 1 A:value:a>z B:value:b>y C:value:c>x"});
}

TEST(DiffEngine, TheResultHoldsWhatItWasAskedWith) {
    const DataTable before = table("ID,A\n1,x\n");
    const DataTable after = table("ID,A\n1,y\n");
    DiffOptions options;
    options.ignoredColumns = {"B"};
    const auto result = compare(before, after, options);
    EXPECT_EQ(result.before, before);
    EXPECT_EQ(result.after, after);
    EXPECT_EQ(result.options, options);
    EXPECT_EQ(result.match, byId);
    EXPECT_GE(result.duration, 0);
    EXPECT_LT(result.duration, 60);
}

TEST(DiffEngine, RowOrderHasNeitherDuplicatesNorBlankKeys) {
    const auto result = compare("ID,A\n1,x\n1,x\n,\n", "ID,A\n1,x\n", {}, RowMatch::rowOrder());
    EXPECT_TRUE(result.duplicates.empty());
    EXPECT_EQ(result.blankKeys, BlankKeys());
}

TEST(DiffEngine, DuplicatesAndBlankKeysComeWithTheResult) {
    const auto result = compare("ID,A\n1,x\n1,y\n,z\n", "ID,A\n1,x\n");
    EXPECT_EQ(result.duplicates, (std::vector<DuplicateKey>{{"1", DuplicateKey::Side::before, {2, 3}}}));
    EXPECT_EQ(result.blankKeys, (BlankKeys{{4}, {}}));
}

TEST(DiffEngine, AKeyThatATableLacksMatchesNothing) {
    for (const Lines& names : {Lines{"Old"}, Lines{"ID", "Old"}, Lines{"New"}, Lines{"None"}}) {
        const auto result = compare("ID,Old\n1,x\n", "ID,New\n1,x\n", {}, RowMatch::key(names));
        EXPECT_EQ(result.summary.removed, 1);
        EXPECT_EQ(result.summary.added, 1);
        EXPECT_EQ(result.blankKeys, BlankKeys{}) << "no row can have a blank key";
        EXPECT_TRUE(result.duplicates.empty());
    }
}

TEST(DiffEngine, CopiesOfAResultShareItsRowsAndEqualIt) {
    const auto result = compare("ID,A\n1,x\n", "ID,A\n1,y\n");
    DiffResult copy = result;
    EXPECT_EQ(copy, result);
    EXPECT_EQ(absl::HashOf(copy), absl::HashOf(result));
    EXPECT_EQ(static_cast<const void*>(copy.rows.changes(0).data()),
              static_cast<const void*>(result.rows.changes(0).data()));
    EXPECT_NE(compare("ID,A\n1,x\n", "ID,A\n1,z\n"), result);
}

TEST(DiffEngine, ARowNumberIsAftersElseBefores) {
    const auto result = compare("ID,A\n1,x\n2,x\n", "ID,A\n0,n\n1,x\n");
    std::vector<std::int64_t> numbers;
    for (const DiffRow row : result.rows) {
        numbers.push_back(result.rowNumber(row));
    }
    EXPECT_EQ(lines(result), (Lines{"added 0", "same 1", "removed 2"}));
    EXPECT_EQ(numbers, (std::vector<std::int64_t>{2, 3, 3}));
    EXPECT_EQ(result.rowNumber(DuplicateKey::Side::before, result.rows[0]), std::nullopt);
    EXPECT_EQ(result.rowNumber(DuplicateKey::Side::before, result.rows[1]), 2);
}

// Every progress value of a comparison.
std::vector<double> progressOf(const DataTable& before, const DataTable& after, const RowMatch& match) {
    std::vector<double> values;
    DiffEngine::compare(
        before, after, match, {}, NumberStyle::dotDecimal, {[&](double done) { values.push_back(done); }, {}});
    return values;
}

DataTable numbered(std::size_t rows) {
    std::vector<std::vector<std::string>> cells;
    for (std::size_t i = 0; i < rows; ++i) {
        cells.push_back({std::to_string(i), "x"});
    }
    return DataTable({"ID", "A"}, cells, "numbered.csv");
}

TEST(DiffEngine, TwoEmptyTablesReportOnlyTheLastStages) {
    EXPECT_EQ(progressOf(DataTable(), DataTable(), RowMatch::rowOrder()), (std::vector<double>{0.85, 1.0}));
    EXPECT_TRUE(DiffEngine::compare({}, {}, RowMatch::rowOrder(), {}, NumberStyle::dotDecimal).rows.empty());
}

TEST(DiffEngine, ProgressGrowsWithTheRowsOfBothSides) {
    const DataTable before = numbered(5000);
    const DataTable after = numbered(3000);
    const std::vector<double> expected{0, 4096 * 0.7 / 8000, 5000 * 0.7 / 8000, 0.85, 1.0};
    EXPECT_EQ(progressOf(before, after, byId), expected);
    EXPECT_EQ(progressOf(before, after, RowMatch::rowOrder()), expected);
}

TEST(DiffEngine, EveryPollCanStopIt) {
    const DataTable before = numbered(5000);
    const DataTable after = numbered(9000);
    for (const RowMatch& match : {byId, RowMatch::rowOrder()}) {
        int polls = 0;
        DiffEngine::compare(before, after, match, {}, NumberStyle::dotDecimal, {{}, [&] { return ++polls < 0; }});
        EXPECT_GE(polls, 8);  // 2 in Before's texts, 3 in After's, 3 in the rows
        for (int stop = 1; stop <= polls; ++stop) {
            int seen = 0;
            EXPECT_THROW(DiffEngine::compare(
                             before, after, match, {}, NumberStyle::dotDecimal, {{}, [&] { return ++seen == stop; }}),
                         Cancelled);
            EXPECT_EQ(seen, stop);
        }
    }
}

TEST(DiffEngine, AStopDuringAftersTextsComesAtItsNextPoll) {
    const DataTable before = numbered(1);
    const DataTable after = numbered(9000);
    double last = 0;
    int polls = 0;
    EXPECT_THROW(DiffEngine::compare(before,
                                     after,
                                     byId,
                                     {},
                                     NumberStyle::dotDecimal,
                                     {[&](double done) { last = done; }, [&] { return ++polls == 3; }}),
                 Cancelled);
    EXPECT_DOUBLE_EQ(last, 1 * 0.7 / 9001);  // After's row 0 was reported, its row 4096 polled and stopped
}

TEST(DiffEngine, CallsAtTheSameTimeDoNotMeet) {
    const DataTable before = numbered(20000);
    const DataTable after = numbered(19000);
    const auto expected = lines(compare(before, after));
    std::vector<std::future<Lines>> runs;
    for (int i = 0; i < 4; ++i) {
        runs.push_back(std::async(std::launch::async, [&] { return lines(compare(before, after)); }));
    }
    for (auto& run : runs) {
        EXPECT_EQ(run.get(), expected);
    }
}

// A wide table whose rows have few cells takes another way through the cells.
TEST(DiffEngine, ThinRowsOfWideTablesCompareLikeFullOnes) {
    const auto made = [](const std::string& third, const std::string& last) {
        std::vector<std::string> headers{"ID"};
        for (int i = 1; i < 40; ++i) {
            headers.push_back("C" + std::to_string(i));
        }
        std::vector<std::string> full(40);
        full[0] = "2";
        full[39] = last;
        return DataTable(headers, {{"1", "", "", third}, full, {"3"}}, "wide.csv");
    };
    EXPECT_EQ(lines(compare(made("x", "l"), made("y", "l"))), (Lines{"changed 1 C3:value:x>y", "same 2", "same 3"}));
    EXPECT_EQ(lines(compare(made("", "l"), made("y", "k"))),
              (Lines{"changed 1 C3:value:>y", "changed 2 C39:value:l>k", "same 3"}));
}

// Row order takes both for one row, but their cells differ.
TEST(DiffEngine, ByRowOrderFindsWhatASeparatorInACellHides) {
    const DataTable before({"A", "B"}, {{"a\x1F", "b"}, {"c", "d"}}, "b.csv");
    const DataTable after({"A", "B"},
                          {{"a",
                            "\x1F"
                            "b"},
                           {"c", "d"}},
                          "a.csv");
    const auto result = compare(before, after, {}, RowMatch::rowOrder());
    EXPECT_EQ(result.summary.changed, 1);
    EXPECT_EQ(result.summary.changedCells, 2);
    EXPECT_EQ(result.summary.same, 1);
}

}  // namespace
}  // namespace corvale
