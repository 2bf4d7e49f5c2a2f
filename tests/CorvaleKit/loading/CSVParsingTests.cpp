#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/loading/CSV.h"
#include "CorvaleKit/text/Text.h"
#include "tests/support/AllTexts.h"
#include "tests/support/Grids.h"
#include "tests/support/SlowCSV.h"
#include "tests/support/SlowNormalizer.h"

namespace corvale {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using Grids::Rows;

Rows parsed(std::string_view text, char delimiter = ',') { return Grids::texts(CSV::parse(Bytes(text), delimiter)); }

const AllTexts::Alphabet letters = {"a", ",", "\"", "\r", "\n"};

TEST(CSVParsing, ReadsCellsRowsAndQuotes) {
    struct Case {
        std::string_view text;
        Rows rows;
    };
    const std::vector<Case> cases = {
        {"", {}},
        {"a", {{"a"}}},
        {"a,b", {{"a", "b"}}},
        {"a,b\n", {{"a", "b"}}},
        {"a,b\r\n", {{"a", "b"}}},
        {"a,b\r", {{"a", "b"}}},
        {"a,b\r\nc,d", {{"a", "b"}, {"c", "d"}}},
        {"a,b\nc", {{"a", "b"}, {"c"}}},
        {"a,b\rc", {{"a", "b"}, {"c"}}},
        {"a\r\r\nb", {{"a"}, {""}, {"b"}}},
        {"a\n\nb", {{"a"}, {""}, {"b"}}},
        {"\n", {{""}}},
        {"\r\n\r\n", {{""}, {""}}},
        {"\n\r", {{""}, {""}}},
        {",", {{"", ""}}},
        {",\n", {{"", ""}}},
        {"a,", {{"a", ""}}},
        {"a\n,", {{"a"}, {"", ""}}},
        {" a , b ", {{" a ", " b "}}},
        {"\"a\"", {{"a"}}},
        {"\"a,b\",c", {{"a,b", "c"}}},
        {"\"x\"\"y\"", {{"x\"y"}}},
        {"\"\"\"\"", {{"\""}}},
        {"\"\"", {{""}}},  // a quoted empty cell is a row even at the end
        {"a\n\"\"", {{"a"}, {""}}},
        {"\"\"\n", {{""}}},
        {"\"\",", {{"", ""}}},
        {"\"a\nb\"", {{"a\nb"}}},
        {"\"a\r\nb\rc\",d", {{"a\r\nb\rc", "d"}}},
        {"x\"y", {{"x\"y"}}},  // a quote in the middle is a character
        {"x\"y,z\"", {{"x\"y", "z\""}}},
        {"x\"\"y", {{"x\"\"y"}}},
        {" \"a\"", {{" \"a\""}}},
        {"\"a\"b,c", {{"ab", "c"}}},  // what follows a closing quote joins the cell
        {"\"a\" ,c", {{"a ", "c"}}},
        {"\"a\"b\"c,d", {{"ab\"c", "d"}}},
        {"\"a\"b\"\"c\"\nd", {{"ab\"\"c\""}, {"d"}}},
        {"\"a\"\"b\"c\"\"d", {{"a\"bc\"\"d"}}},
        {"\"open,\nto the end", {{"open,\nto the end"}}},
        {"a,\"", {{"a", ""}}},
        {"\"", {{""}}},
        {"\"a\"\"", {{"a\""}}},
        {"a;b\tc", {{"a;b\tc"}}},
        {"é,“ü”\n😀", {{"é", "“ü”"}, {"😀"}}},
        {"\0,\0"sv, {{"\0"s, "\0"s}}},
        {"a\u2028b\u0085c\vd", {{"a\u2028b\u0085c\vd"}}},  // CR and LF alone end a record
    };
    for (const auto& [text, rows] : cases) {
        EXPECT_EQ(parsed(text), rows) << testing::PrintToString(text);
        EXPECT_EQ(SlowCSV::parse(text, ','), rows) << testing::PrintToString(text);
    }
}

TEST(CSVParsing, SplitsAtTheDelimiterGiven) {
    EXPECT_EQ(parsed("a;b,c", ';'), (Rows{{"a", "b,c"}}));
    EXPECT_EQ(parsed("a\tb,c\t\"d\te\"", '\t'), (Rows{{"a", "b,c", "d\te"}}));
    EXPECT_EQ(parsed("a|b", '|'), (Rows{{"a", "b"}}));
}

TEST(CSVParsing, AgreesWithTheSlowTwinOnAllShortTexts) {
    AllTexts::forEach(letters, 7, [](const std::string& text) {
        ASSERT_EQ(parsed(text, ','), SlowCSV::parse(text, ',')) << testing::PrintToString(text);
    });
    for (const char delimiter : {';', '\t'}) {
        AllTexts::Alphabet alphabet = letters;
        alphabet.emplace_back(&delimiter, 1);
        AllTexts::forEach(alphabet, 5, [delimiter](const std::string& text) {
            ASSERT_EQ(parsed(text, delimiter), SlowCSV::parse(text, delimiter)) << testing::PrintToString(text);
        });
    }
}

TEST(CSVParsing, AgreesWithTheSlowTwinAcrossTheEdgesOfBlocks) {
    for (std::size_t before = 58; before <= 65; ++before) {
        for (std::string start : {std::string(before, 'x'), '"' + std::string(before - 1, 'x')}) {
            AllTexts::forEachFrom(start, letters, 4, [](const std::string& text) {
                ASSERT_EQ(parsed(text), SlowCSV::parse(text, ',')) << testing::PrintToString(text);
            });
        }
    }
}

TEST(CSVParsing, AgreesWithTheSlowTwinOnLongRandomTexts) {
    std::mt19937 random(9);
    const std::vector<std::string_view> parts = {",", "\n", "\r\n", "\r", "\"", "\"\"", ";", "\t", "é", "a"};
    for (int i = 0; i < 4'000; ++i) {
        const auto plainness = random() % 30;
        std::string text;
        const std::size_t size = i % 20 == 0 ? 5'000 : random() % 700;
        while (text.size() < size) {
            text.append(plainness == 0 ? 0 : random() % plainness, 'x');
            text += parts[random() % parts.size()];
        }
        for (const char delimiter : {',', ';', '\t'}) {
            ASSERT_EQ(parsed(text, delimiter), SlowCSV::parse(text, delimiter)) << testing::PrintToString(text);
        }
    }
}

// What is said of rows besides their cells, so that nobody has to look at those.
void expectTrueSayings(const std::string& text) {
    for (const char delimiter : {',', '\t'}) {
        const CellGrid grid = CSV::parse(Bytes(text), delimiter);
        for (std::size_t i = 0; i < grid.rowCount(); ++i) {
            const CellRow row = grid.row(i);
            const bool isTidy = std::none_of(row.begin(), row.end(), [](std::string_view cell) {
                return SlowNormalizer::needsWhitespaceNormalization(std::string(cell));
            });
            ASSERT_EQ(row.isTidy(), isTidy) << testing::PrintToString(text) << " row " << i;
            const bool isBlank =
                std::all_of(row.begin(), row.end(), [](std::string_view cell) { return Text::isBlank(cell); });
            ASSERT_FALSE(row.isNotBlank() && isBlank) << testing::PrintToString(text) << " row " << i;
        }
    }
}

TEST(CSVParsing, KnowsTheTidyRowsOfAllShortTexts) {
    AllTexts::forEach({"a", " ", ",", "\"", "\n", "\t"}, 6, expectTrueSayings);
}

TEST(CSVParsing, KnowsTheTidyRowsOfRandomTexts) {
    const AllTexts::Alphabet alphabet = {
        "a", "b", "cdefgh", " ", ",", ",", "\",", ",\"", "\"\"", "\r\n", "\u00A0", "\u3000"};
    std::mt19937 source(7);
    for (int i = 0; i < 20'000; ++i) {
        expectTrueSayings(AllTexts::random(alphabet, 60, source));
    }
}

TEST(CSVParsing, KnowsARowThatStartsWithContent) {
    const CellGrid grid = CSV::parse(Bytes("a,b\n,b\n ,\n\"a\",b\n\u3000\n"sv), ',');
    ASSERT_EQ(grid.rowCount(), 5U);
    EXPECT_TRUE(grid.row(0).isNotBlank());
    EXPECT_FALSE(grid.row(1).isNotBlank());  // it says nothing
    EXPECT_FALSE(grid.row(2).isNotBlank());
    EXPECT_FALSE(grid.row(3).isNotBlank());  // likewise
    EXPECT_FALSE(grid.row(4).isNotBlank());
}

TEST(CSVParsing, PlainAndSimplyQuotedCellsAreNotCopied) {
    Bytes text("one,\"two\",\"thr\"\"ee\"\nfour"sv);
    const char* start = text.data();
    const CellGrid grid = CSV::parse(std::move(text), ',');
    EXPECT_EQ(grid.row(0)[0].data(), start);
    EXPECT_EQ(grid.row(0)[1].data(), start + 5);
    EXPECT_EQ(grid.row(0)[2].data(), start + 11);
    EXPECT_EQ(grid.row(1)[0].data(), start + 20);
    EXPECT_EQ(grid.row(0)[2], "thr\"ee");
}

TEST(CSVParsing, ReadsATextThatStartsBehindAByteOrderMark) {
    Bytes bytes("\xEF\xBB\xBF" + std::string(61, 'x') + ",b\n1,2");
    EXPECT_EQ(Grids::texts(CSV::parse(CSV::decodeText(std::move(bytes)))),
              (Rows{{std::string(61, 'x'), "b"}, {"1", "2"}}));
}

TEST(CSVParsing, AQuotedCellOfManyMegabytesIsOneCell) {
    std::string text = "a,\"";
    std::string cell;
    while (cell.size() < (17U << 20U)) {
        text += "0123456789\"\"\r\n,";
        cell += "0123456789\"\r\n,";
    }
    text += "\",b";
    const CellGrid grid = CSV::parse(Bytes(text), ',');
    ASSERT_EQ(grid.rowCount(), 1U);
    ASSERT_EQ(grid.row(0).size(), 3U);
    EXPECT_TRUE(grid.row(0)[1] == cell);
    EXPECT_EQ(grid.row(0)[2], "b");
}

}  // namespace
}  // namespace corvale
