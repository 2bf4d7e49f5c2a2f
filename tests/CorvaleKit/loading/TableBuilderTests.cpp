#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/CellGridBuilder.h"
#include "CorvaleKit/loading/TableBuilder.h"
#include "CorvaleKit/text/Text.h"
#include "tests/support/Grids.h"

namespace corvale {
namespace {

using Grids::Rows;
using Grids::texts;
using Names = std::vector<std::string>;
using Numbers = std::vector<std::int64_t>;

DataTable built(const Rows& rows, std::optional<std::int64_t> headerRow = std::nullopt) {
    return TableBuilder::build(Grids::rows(rows), "source.csv", headerRow);
}

Names named(const Names& headers, std::size_t count) {
    const CellGrid grid = CellGrid::fromTexts({headers});
    return TableBuilder::columnNames(grid.row(0), count);
}

Names named(const Names& headers) { return named(headers, headers.size()); }

bool isBlank(const Names& cells) { return TableBuilder::isBlank(CellGrid::fromTexts({cells}).row(0)); }

bool isFilled(const Names& cells) { return TableBuilder::isFilled(CellGrid::fromTexts({cells}).row(0)); }

// Rows of one letter: t thin (one cell), f filled.
CellRows shaped(std::string_view shape) {
    Rows rows;
    for (const char kind : shape) {
        rows.push_back(kind == 'f' ? Names{"x", "", "y"} : Names{"", "x"});
    }
    return Grids::rows(rows);
}

TEST(TableBuilder, ARowIsBlankWhenEveryCellIsSpacesAndTabs) {
    EXPECT_TRUE(isBlank({}));
    EXPECT_TRUE(isBlank({""}));
    EXPECT_TRUE(isBlank({"", " \t", "\u00A0\u3000"}));
    EXPECT_FALSE(isBlank({"", "", "x"}));
    EXPECT_FALSE(isBlank({" é"}));
    EXPECT_FALSE(isBlank({"\n"})) << "a line break is no space";
    EXPECT_FALSE(isBlank({"\u200B"})) << "nor is a zero width space";
    EXPECT_FALSE(isBlank({std::string("\0", 1)}));
    EXPECT_TRUE(TableBuilder::isBlank(Grids::scattered({{{7, " "}, {900, ""}}}).row(0)));
    EXPECT_FALSE(TableBuilder::isBlank(Grids::scattered({{{7, " "}, {900, "x"}}}).row(0)));
}

TEST(TableBuilder, ARowIsFilledWhenTwoCellsHoldSomething) {
    EXPECT_FALSE(isFilled({}));
    EXPECT_FALSE(isFilled({"x"}));
    EXPECT_FALSE(isFilled({"x", "", " ", "\t"}));
    EXPECT_TRUE(isFilled({"x", "", "y"}));
    EXPECT_TRUE(isFilled({" ", "x", "y", "z"}));
    EXPECT_TRUE(TableBuilder::isFilled(Grids::scattered({{{7, "a"}, {900, "b"}}}).row(0)));
    EXPECT_FALSE(TableBuilder::isFilled(Grids::scattered({{{900, "b"}}}).row(0)));
}

TEST(TableBuilder, TheAutomaticHeaderIsAmongTheFirstSixRows) {
    struct Case {
        std::string_view shape;
        std::size_t header;
    };
    const std::vector<Case> cases = {
        {"", 0},
        {"t", 0},
        {"f", 0},
        {"tt", 0},
        {"tf", 1},
        {"ft", 0},
        {"ttf", 2},
        {"tft", 1},
        {"tttttf", 5},
        {"tttttff", 5},
        {"ttttttf", 0},  // from the first row, the filled one is too far away to be noticed
        {"tttttt", 0},   // a table of thin rows starts at its first
        {"ttttttttttttttttff", 0},
    };
    for (const auto& [shape, header] : cases) {
        EXPECT_EQ(TableBuilder::headerPosition(shaped(shape)), header) << shape;
    }
}

// The rule as it reads.
std::size_t slowHeaderPosition(std::string_view shape) {
    for (std::size_t r = 0; r <= 4; ++r) {
        const bool noRowFollows = shape.size() <= r + 1;
        const bool isFilledItself = !noRowFollows && shape[r] == 'f';
        const bool noneFollowsFilled = noRowFollows || shape.substr(r + 1, 5).find('f') == std::string_view::npos;
        if (noRowFollows || isFilledItself || noneFollowsFilled) {
            return r;
        }
    }
    return 5;
}

TEST(TableBuilder, TheAutomaticHeaderAgreesWithTheRuleOnAllShapes) {
    for (unsigned length = 0; length <= 12; ++length) {
        for (unsigned bits = 0; bits < 1U << length; ++bits) {
            std::string shape(length, 't');
            for (unsigned i = 0; i < length; ++i) {
                shape[i] = (bits >> i & 1U) != 0 ? 'f' : 't';
            }
            ASSERT_EQ(TableBuilder::headerPosition(shaped(shape)), slowHeaderPosition(shape)) << shape;
        }
    }
}

TEST(TableBuilder, ATitleAboveTheHeaderIsSkipped) {
    const DataTable table = built({{"Sales 2024"}, {"id", "name"}, {"1", "Ann"}});
    EXPECT_EQ(table.headers(), (Names{"id", "name"}));
    EXPECT_EQ(table.headerRowNumber(), 2);
    EXPECT_EQ(table.rowNumbers(), Numbers{3});
    EXPECT_EQ(table.sourceName(), "source.csv");
}

TEST(TableBuilder, BlankRowsAreDroppedAndTheOthersKeepTheirNumbers) {
    const DataTable table = built({{}, {"id", "name"}, {"1", "Ann"}, {"2", "Bob"}, {" \t", ""}, {"3", "Cy"}, {""}});
    EXPECT_EQ(table.headerRowNumber(), 2);
    EXPECT_EQ(table.rowNumbers(), (Numbers{3, 4, 6}));
    EXPECT_EQ(texts(table.rows()), (Rows{{"1", "Ann"}, {"2", "Bob"}, {"3", "Cy"}}));
}

TEST(TableBuilder, OnlyBlankRowsMakeATableWithoutColumns) {
    for (const Rows& rows : {Rows{}, Rows{{}}, Rows{{""}}, Rows{{" ", "\t"}, {}, {"\u00A0"}}}) {
        for (const std::optional<std::int64_t> headerRow :
             {std::optional<std::int64_t>(), std::optional<std::int64_t>(2)}) {
            const DataTable table = built(rows, headerRow);
            EXPECT_TRUE(table.headers().empty());
            EXPECT_TRUE(table.rows().empty());
            EXPECT_TRUE(table.rowNumbers().empty());
            EXPECT_EQ(texts(table.topRows()), rows);
        }
    }
}

TEST(TableBuilder, AHeaderAloneMakesATableWithoutRows) {
    const DataTable table = built({{"id", "name"}});
    EXPECT_EQ(table.headers(), (Names{"id", "name"}));
    EXPECT_TRUE(table.rows().empty());
    EXPECT_TRUE(table.rowNumbers().empty());
}

TEST(TableBuilder, AChosenHeaderRowCountsInTheSource) {
    const Rows rows = {{"title"}, {}, {"id", "name"}, {" "}, {"1", "Ann"}, {"2", "Bob"}, {}};
    struct Case {
        std::int64_t chosen;
        std::int64_t header;
        Numbers rowNumbers;
    };
    const std::vector<Case> cases = {
        {1, 1, {3, 5, 6}},
        {2, 3, {5, 6}},  // a blank row stands for the next one that is not
        {3, 3, {5, 6}},
        {4, 5, {6}},
        {5, 5, {6}},
        {6, 6, {}},
        {7, 6, {}},  // past the last: the last
        {8, 6, {}},
        {1'000'000'000'000, 6, {}},
        {std::numeric_limits<std::int64_t>::max(), 6, {}},
        {0, 1, {3, 5, 6}},
        {-5, 1, {3, 5, 6}},
        {std::numeric_limits<std::int64_t>::min(), 1, {3, 5, 6}},
    };
    for (const auto& [chosen, header, rowNumbers] : cases) {
        const DataTable table = built(rows, chosen);
        EXPECT_EQ(table.headerRowNumber(), header) << chosen;
        EXPECT_EQ(table.automaticHeaderRowNumber(), 3) << chosen;
        EXPECT_EQ(table.rowNumbers(), rowNumbers) << chosen;
        EXPECT_EQ(table.headers().front(), rows[static_cast<std::size_t>(header) - 1].front()) << chosen;
    }
}

TEST(TableBuilder, TheAutomaticHeaderIsKnownWhereverTheTableBegins) {
    // Below and to the right of the rows and cells that are kept for choosing.
    Rows rows(13);
    for (const char* const name : {"id", "name"}) {
        rows.push_back(std::vector<std::string>(20));
        rows.back().resize(22, name);
    }
    rows.insert(rows.begin() + 13, {"title"});
    EXPECT_EQ(built(rows).headerRowNumber(), 15);
    EXPECT_EQ(built(rows).automaticHeaderRowNumber(), 15);
    EXPECT_EQ(built(rows, 16).headerRowNumber(), 16);
    EXPECT_EQ(built(rows, 16).automaticHeaderRowNumber(), 15);
}

TEST(TableBuilder, TheWidestRowFromTheHeaderOnDecidesTheColumns) {
    const DataTable table = built({{"a", "b", "c", "d"}, {"1", "2"}, {"1", "2", "3", "4", "5", "6"}});
    EXPECT_EQ(table.headers(), (Names{"a", "b", "c", "d", "Column 5", "Column 6"}));
    EXPECT_EQ(texts(table.rows()), (Rows{{"1", "2", "", "", "", ""}, {"1", "2", "3", "4", "5", "6"}}));
}

TEST(TableBuilder, RowsAboveTheHeaderAndBlankOnesDoNotWidenTheTable) {
    const DataTable table = built({{"note", "", "", ""}, {"a", "b"}, {"1"}, {"", "", "", "", ""}});
    EXPECT_EQ(table.headers(), (Names{"a", "b"}));
}

TEST(TableBuilder, TrailingEmptyCellsCountAsWidth) {
    const DataTable table = built({{"a", "b", ""}, {"1", "2", "", ""}});
    EXPECT_EQ(table.headers(), (Names{"a", "b", "Column 3", "Column 4"}));
}

TEST(TableBuilder, CellsAreKeptAsTheyAre) {
    const DataTable table = built({{" a ", "b"}, {" 1 ", "\t\n"}});
    EXPECT_EQ(table.headers(), (Names{"a", "b"}));
    EXPECT_EQ(texts(table.rows()), (Rows{{" 1 ", "\t\n"}}));
}

TEST(TableBuilder, NoTextIsCopied) {
    const CellRows rows = Grids::rows({{"a"}, {"cell"}});
    const DataTable table = TableBuilder::build(rows, "");
    EXPECT_EQ(table.rows()[0][0].data(), rows[1][0].data());
}

TEST(TableBuilder, TheTopRowsAreTheFirstTwelveByTwelve) {
    Rows rows(100, Names(30, "x"));
    rows[1] = {};
    rows[2] = {"short"};
    const DataTable table = built(rows);
    ASSERT_EQ(table.topRows().size(), 12U);
    EXPECT_EQ(texts(table.topRows()[0]), Names(12, "x"));
    EXPECT_EQ(texts(table.topRows()[1]), Names{});
    EXPECT_EQ(texts(table.topRows()[2]), Names{"short"});
    EXPECT_EQ(texts(table.topRows()[11]), Names(12, "x"));
    EXPECT_EQ(table.rows().size(), 98U);
    EXPECT_EQ(table.headers().size(), 30U);
}

TEST(TableBuilder, TheTopRowsStayWhenAnotherHeaderIsChosen) {
    const Rows rows = {{"title"}, {"a", "b"}, {"1", "2"}};
    const DataTable table = built(rows, 3);
    EXPECT_EQ(texts(table.topRows()), rows);
}

TEST(ColumnNames, AreTrimmedOfWhiteSpaceAndLineBreaks) {
    EXPECT_EQ(named({" a ", "\r\nb\n", "\u00A0c\u2028", "d\ne"}), (Names{"a", "b", "c", "d\ne"}));
}

TEST(ColumnNames, ABlankOneIsNamedAfterItsPosition) {
    EXPECT_EQ(named({"a", "b", " \n ", "d", ""}), (Names{"a", "b", "Column 3", "d", "Column 5"}));
    EXPECT_EQ(named({"a"}, 3), (Names{"a", "Column 2", "Column 3"}));
    EXPECT_EQ(named({}, 0), Names{});
}

TEST(ColumnNames, AreUniqueWithoutRegardToCase) {
    struct Case {
        Names headers;
        Names names;
    };
    const std::vector<Case> cases = {
        {{"Name", "name", "NAME"}, {"Name", "name 2", "NAME 3"}},
        {{"a", "a 2", "a"}, {"a", "a 2", "a 3"}},
        {{"a", "a", "a 2"}, {"a", "a 2", "a 2 2"}},
        {{"a", "A 2", "a", "a"}, {"a", "A 2", "a 3", "a 4"}},
        {{"a", "a", "a 2", "a 2", "a"}, {"a", "a 2", "a 2 2", "a 2 3", "a 3"}},
        {{"a", "a 3", "a", "a"}, {"a", "a 3", "a 2", "a 4"}},
        {{"Column 2", ""}, {"Column 2", "Column 2 2"}},
        {{"", "column 1"}, {"Column 1", "column 1 2"}},
        {{"column 3", "x", "", "COLUMN 3 2"}, {"column 3", "x", "Column 3 2", "COLUMN 3 2 2"}},
        {{"É", "é"}, {"É", "é 2"}},
        {{"ΟΔΟΣ", "οδοσ", "οδος"}, {"ΟΔΟΣ", "οδοσ 2", "οδος"}},
        {{"İ", "i\u0307"}, {"İ", "i\u0307 2"}},
        {{" a", "a "}, {"a", "a 2"}},
    };
    for (const auto& [headers, names] : cases) {
        EXPECT_EQ(named(headers), names) << headers.front();
    }
}

// The rule as it reads, trying every number anew.
Names slowNames(const Names& headers, std::size_t count) {
    std::set<std::string> given;
    Names names;
    for (std::size_t c = 0; c < count; ++c) {
        std::string name(c < headers.size() ? Text::trimSpacesAndLineBreaks(headers[c]) : std::string_view());
        if (name.empty()) {
            name = "Column " + std::to_string(c + 1);
        }
        std::string candidate = name;
        for (int number = 2; given.contains(Text::lowercased(candidate)); ++number) {
            candidate = name + " " + std::to_string(number);
        }
        given.insert(Text::lowercased(candidate));
        names.push_back(candidate);
    }
    return names;
}

TEST(ColumnNames, AgreeWithTheRuleOnRandomHeaders) {
    const Names parts = {"a", "A", "a 2", "A 3", "a 2 2", "", "Column 2", "column 4", "Column 4 2", " a", "b"};
    std::mt19937 random(3);
    for (int i = 0; i < 4'000; ++i) {
        Names headers(random() % 9);
        std::generate(headers.begin(), headers.end(), [&] { return parts[random() % parts.size()]; });
        const std::size_t count = headers.size() + random() % 3;
        ASSERT_EQ(named(headers, count), slowNames(headers, count)) << testing::PrintToString(headers);
    }
}

TEST(ColumnNames, ManyEqualOnesAreNumberedThrough) {
    const std::size_t count = 50'000;
    const Names names = named(Names(count, "value"));
    EXPECT_EQ(names.front(), "value");
    EXPECT_EQ(names.back(), "value 50000");
}

// The whole of it as it reads, over plain vectors.
DataTable slowlyBuilt(const Rows& rows, std::optional<std::int64_t> headerRow) {
    std::vector<std::size_t> nonBlank;
    std::string shape;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto filled = std::count_if(
            rows[i].begin(), rows[i].end(), [](const std::string& cell) { return !Text::trimSpaces(cell).empty(); });
        if (filled > 0) {
            nonBlank.push_back(i);
            shape += filled > 1 ? 'f' : 't';
        }
    }
    if (nonBlank.empty()) {
        return DataTable({}, {}, "source.csv");
    }
    std::size_t header = slowHeaderPosition(shape);
    if (headerRow) {
        header = 0;
        while (header + 1 < nonBlank.size() && static_cast<std::int64_t>(nonBlank[header]) < *headerRow - 1) {
            ++header;
        }
    }
    Rows data;
    Numbers numbers;
    const Names& headerCells = rows[nonBlank[header]];
    std::size_t width = headerCells.size();
    for (std::size_t k = header + 1; k < nonBlank.size(); ++k) {
        data.push_back(rows[nonBlank[k]]);
        numbers.push_back(static_cast<std::int64_t>(nonBlank[k]) + 1);
        width = std::max(width, data.back().size());
    }
    for (auto& row : data) {
        row.resize(width);
    }
    return DataTable(
        slowNames(headerCells, width), data, "source.csv", numbers, static_cast<std::int64_t>(nonBlank[header]) + 1);
}

TEST(TableBuilder, AgreesWithTheRulesOnRandomRows) {
    const Names parts = {"", "", " ", "a", "A", "b", "a 2", "\t", "\u00A0", "Column 2"};
    std::mt19937 random(4);
    for (int i = 0; i < 3'000; ++i) {
        Rows rows(random() % 12);
        for (auto& row : rows) {
            row.resize(random() % 5);
            std::generate(row.begin(), row.end(), [&] { return parts[random() % parts.size()]; });
        }
        const auto headerRow = random() % 2 == 0 ? std::optional<std::int64_t>(1 + random() % 14) : std::nullopt;
        const DataTable table = built(rows, headerRow);
        ASSERT_EQ(DataTable::decoded(table.encoded()), slowlyBuilt(rows, headerRow)) << testing::PrintToString(rows);
    }
}

// With a step a column, this would take minutes.
TEST(TableBuilder, AMillionRowsWithOneFarCellMakeATable) {
    std::vector<CellGridBuilder::PlacedCell> cells(1);
    CellGridBuilder builder;
    for (int i = 0; i < 1'000'000; ++i) {
        cells[0] = {999, builder.packed(0, 1)};
        builder.addRow(cells);
    }
    const DataTable table = TableBuilder::build(CellRows(builder.finish(Bytes(std::string_view("x")))), "wide.xlsx");
    EXPECT_EQ(table.headers().size(), 1000U);
    EXPECT_EQ(table.headers()[999], "x");
    EXPECT_EQ(table.rows().size(), 999'999U);
    EXPECT_EQ(table.rows()[999'998][999], "x");
}

}  // namespace
}  // namespace corvale
