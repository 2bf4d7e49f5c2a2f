#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/loading/DataTable.h"
#include "CorvaleKit/loading/TableBuilder.h"
#include "tests/support/Grids.h"

namespace corvale {
namespace {

using Grids::Rows;
using Grids::texts;

template <typename Table>
concept yieldsViews = requires(Table table) {
    std::forward<Table>(table).headers();
}
|| requires(Table table) { std::forward<Table>(table).rows(); }
|| requires(Table table) { std::forward<Table>(table).sourceName(); }
|| requires(Table table) { std::forward<Table>(table).rowNumbers(); }
|| requires(Table table) { std::forward<Table>(table).topRows(); };

static_assert(yieldsViews<DataTable&> && yieldsViews<const DataTable&>);
static_assert(!yieldsViews<DataTable> && !yieldsViews<const DataTable>,
              "a view of a table that nobody keeps would dangle");

DataTable sample() { return DataTable({"id", "name"}, {{"1", "Ann"}, {"2", "Zoë"}}, "people.csv", {3, 5}, 2); }

TEST(DataTable, AStoredHeaderRowBeyondAnyFileIsRefused) {
    const std::string form = R"({"headers":["a"],"rows":[["x"]],"sourceName":"","rowNumbers":[],"headerRowNumber":)";
    for (const char* beyond : {"9007199254740993", "9223372036854775807", "9223372036854775808", "1e300", "1.5"}) {
        EXPECT_THROW(DataTable::decoded(form + beyond + "}"), DecodingError) << beyond;
    }
    const DataTable table = DataTable::decoded(form + "7}");
    EXPECT_EQ(table.rowNumbers(), (std::vector<std::int64_t>{8}));
}

TEST(DataTable, IsEmptyByDefault) {
    const DataTable table;
    EXPECT_TRUE(table.headers().empty());
    EXPECT_TRUE(table.rows().empty());
    EXPECT_TRUE(table.rowNumbers().empty());
    EXPECT_TRUE(table.topRows().empty());
    EXPECT_EQ(table.sourceName(), "");
    EXPECT_EQ(table.headerRowNumber(), 1);
    EXPECT_EQ(table, DataTable());
}

TEST(DataTable, HoldsWhatItIsMadeOf) {
    const DataTable table = sample();
    EXPECT_EQ(table.headers(), (std::vector<std::string>{"id", "name"}));
    EXPECT_EQ(texts(table.rows()), (Rows{{"1", "Ann"}, {"2", "Zoë"}}));
    EXPECT_EQ(table.rows()[1][1], "Zoë");
    EXPECT_EQ(table.sourceName(), "people.csv");
    EXPECT_EQ(table.rowNumbers(), (std::vector<std::int64_t>{3, 5}));
    EXPECT_EQ(table.headerRowNumber(), 2);
    EXPECT_TRUE(table.topRows().empty());
}

TEST(DataTable, MakesRowsFromMemoryAsWideAsTheHeaders) {
    const DataTable table({"a", "b"}, {{"1"}, {}, {"2", "3", "4"}}, "memory");
    EXPECT_EQ(texts(table.rows()), (Rows{{"1", ""}, {"", ""}, {"2", "3"}}));
}

TEST(DataTable, NumbersRowsOnFromTheHeaderWhenTheCountDiffers) {
    struct Case {
        std::vector<std::int64_t> given;
        std::int64_t headerRowNumber;
        std::vector<std::int64_t> numbers;
    };
    const std::vector<Case> cases = {
        {{}, 1, {2, 3, 4}},
        {{}, 7, {8, 9, 10}},
        {{9, 9}, 1, {2, 3, 4}},
        {{9, 9, 9, 9}, 1, {2, 3, 4}},
        {{9, 8, 7}, 1, {9, 8, 7}},
    };
    for (const auto& [given, headerRowNumber, numbers] : cases) {
        const DataTable table({"a"}, {{"1"}, {"2"}, {"3"}}, "", given, headerRowNumber);
        EXPECT_EQ(table.rowNumbers(), numbers) << testing::PrintToString(given);
    }
}

TEST(DataTable, ARowWithoutANumberCountsFromRowTwo) {
    const DataTable table = sample();
    EXPECT_EQ(table.rowNumber(0), 3);
    EXPECT_EQ(table.rowNumber(1), 5);
    EXPECT_EQ(table.rowNumber(2), 4);
    EXPECT_EQ(table.rowNumber(10), 12);
}

TEST(DataTable, CopiesShareTheirTextsAndKeepThemAlive) {
    std::string_view cell;
    DataTable copy;
    {
        const DataTable table({"a"}, {{"a text too long to live inside a string object"}}, "long");
        cell = table.rows()[0][0];
        copy = table;
        EXPECT_EQ(&copy.headers(), &table.headers());
    }
    EXPECT_EQ(copy.rows()[0][0].data(), cell.data());
    EXPECT_EQ(cell, "a text too long to live inside a string object");
}

TEST(DataTable, RowsOutliveTheirTable) {
    CellRows rows;
    {
        const DataTable table({"a"}, {{"a text too long to live inside a string object"}}, "long");
        rows = table.rows();
    }
    EXPECT_EQ(rows[0][0], "a text too long to live inside a string object");
}

TEST(DataTable, EqualityIsByValueInEveryField) {
    const DataTable table = sample();
    EXPECT_EQ(table, sample());
    EXPECT_EQ(table, table);
    const Rows rows = {{"1", "Ann"}, {"2", "Zoë"}};
    const std::vector<std::pair<const char*, DataTable>> others = {
        {"a header", DataTable({"id", "Name"}, rows, "people.csv", {3, 5}, 2)},
        {"a cell", DataTable({"id", "name"}, {{"1", "Ann"}, {"2", "Zoe"}}, "people.csv", {3, 5}, 2)},
        {"a row less", DataTable({"id", "name"}, {{"1", "Ann"}}, "people.csv", {3}, 2)},
        {"the name", DataTable({"id", "name"}, rows, "people.tsv", {3, 5}, 2)},
        {"a row number", DataTable({"id", "name"}, rows, "people.csv", {3, 6}, 2)},
        {"the header row", DataTable({"id", "name"}, rows, "people.csv", {3, 5}, 1)},
        {"nothing", DataTable()},
    };
    for (const auto& [difference, other] : others) {
        EXPECT_FALSE(table == other) << difference;
    }
    const DataTable plain = TableBuilder::build(Grids::rows({{"a", "b"}, {"1", "2"}}), "x");
    const DataTable titled = TableBuilder::build(Grids::rows({{"a", "b"}, {"1", "2"}, {}}), "x");
    EXPECT_FALSE(plain == titled) << "the top rows count too";
}

TEST(DataTableDeathTest, RowsOfAnotherWidthThanTheHeadersStopTheProcess) {
    DataTable::Parts parts;
    parts.headers = {"a", "b"};
    parts.rows = Grids::rows({{"1"}});
    EXPECT_DEATH(DataTable{std::move(parts)}, "a table row is not as wide as its headers");
}

TEST(DataTable, ItsStoredFormHasFiveKeysAndNoTopRows) {
    const DataTable table =
        TableBuilder::build(Grids::rows({{"note"}, {"id", "a \"b\""}, {}, {"1", "x\ny"}}), "odd “name”.csv");
    ASSERT_FALSE(table.topRows().empty());
    EXPECT_EQ(table.encoded(),
              R"({"headers":["id","a \"b\""],"rows":[["1","x\ny"]],"sourceName":"odd “name”.csv","rowNumbers":[4],)"
              R"("headerRowNumber":2})");
}

TEST(DataTable, EncodingAndDecodingLosesTheTopRowsAndKeepsEverythingElse) {
    const DataTable table =
        TableBuilder::build(Grids::rows({{"title"}, {"id", "name"}, {}, {"1", "Ann", "x"}, {"2"}}), "p.csv");
    const DataTable back = DataTable::decoded(table.encoded());
    EXPECT_EQ(back.headers(), table.headers());
    EXPECT_EQ(back.rows(), table.rows());
    EXPECT_EQ(back.sourceName(), table.sourceName());
    EXPECT_EQ(back.rowNumbers(), table.rowNumbers());
    EXPECT_EQ(back.headerRowNumber(), table.headerRowNumber());
    EXPECT_EQ(back.automaticHeaderRowNumber(), table.automaticHeaderRowNumber());
    EXPECT_EQ(table.topRows().size(), 5U);
    EXPECT_TRUE(back.topRows().empty());
    EXPECT_EQ(DataTable::decoded(back.encoded()), back);
    EXPECT_EQ(DataTable::decoded(DataTable().encoded()), DataTable());
}

TEST(DataTable, DecodingPassesOverUnknownKeys) {
    const auto table = DataTable::decoded(
        R"({"rowNumbers":[-1],"headerRowNumber":1,"rows":[["x"]],"headers":["a"],"sourceName":"s","topRows":[["no"]]})");
    EXPECT_EQ(table, DataTable({"a"}, {{"x"}}, "s", {-1}, 1));
    EXPECT_TRUE(table.topRows().empty());
}

TEST(DataTable, DecodingAnythingElseIsADecodingError) {
    const nlohmann::json good = nlohmann::json::parse(sample().encoded());
    for (const auto& item : good.items()) {
        nlohmann::json without = good;
        without.erase(item.key());
        EXPECT_THROW(DataTable::decoded(without.dump()), DecodingError) << item.key();
        for (const char* wrong : {"null",
                                  "\"text\"",
                                  "true",
                                  "1.5",
                                  "1e300",
                                  "{}",
                                  "[null]",
                                  "[[1]]",
                                  "[1.5]",
                                  "[9223372036854775808]",
                                  "9223372036854775808"}) {
            nlohmann::json other = good;
            other[item.key()] = nlohmann::json::parse(wrong);
            const bool isText = item.key() == "sourceName" && wrong == std::string_view("\"text\"");
            if (!isText) {
                EXPECT_THROW(DataTable::decoded(other.dump()), DecodingError) << item.key() << ' ' << wrong;
            }
        }
    }
    for (const char* broken : {"", "{", "[]", "null", "{\"headers\":[\"\xFF\"]}"}) {
        EXPECT_THROW(DataTable::decoded(broken), DecodingError) << broken;
    }
}

}  // namespace
}  // namespace corvale
