#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "CorvaleKit/engine/JoinedText.h"
#include "tests/support/Grids.h"
#include "tests/support/Tables.h"

namespace corvale {
namespace {

std::string joined(const std::vector<std::string>& cells) {
    std::string text;
    for (const auto& cell : cells) {
        text += (&cell == &cells.front() ? "" : "\x1F") + cell;
    }
    return text;
}

TEST(JoinedText, IsHashedAndComparedAsTheWholeTextWouldBe) {
    const std::vector<std::vector<std::string>> rows = {
        {},
        {""},
        {"a"},
        {"", ""},
        {"a", "b", "c"},
        {"a\x1F", "b"},
        {"a",
         "\x1F"
         "b"},
        {"", "", "", "", "", "", "", "x"},
        {std::string(1023, 'x'), "y"},
        {std::string(1024, 'x'), "y"},
        {std::string(1025, 'x'), "", ""},
        {std::string(5000, 'x'), std::string(1024, 'y'), std::string(100'000, 'z')},
    };
    for (const char delimiter : {JoinedText::separator, ',', 'x', 'b'}) {
        JoinedText text(delimiter);
        for (const auto& a : rows) {
            const auto texts = Tables::texts({a}, a.size());
            const auto hashOfA = text.hash(joined(a), a.size());
            EXPECT_EQ(text.hash(texts.row(0)), hashOfA);
            for (const auto& b : rows) {
                const bool isSame = joined(a) == joined(b);
                EXPECT_EQ(JoinedText::isEqual(texts.row(0), joined(b)), isSame);
                if (a.size() == b.size()) {
                    EXPECT_EQ(JoinedText::isEqual(texts.row(0), Tables::texts({b}, b.size()).row(0)), isSame);
                    EXPECT_EQ(hashOfA == text.hash(joined(b), b.size()), isSame);
                }
            }
        }
    }
}

// Whether its bytes lie as they are hashed, as without quotes, or not.
TEST(JoinedText, IsHashedAlikeHoweverTheFileHasTheRow) {
    const std::string longest(1024 - 4, 'x');
    for (const char delimiter : {JoinedText::separator, ',', ';'}) {
        JoinedText text(delimiter);
        for (const std::string& cell :
             {std::string("b"), std::string(), longest, longest + "x", longest + "xx", std::string("\x1F")}) {
            const auto expected = text.hash(joined({"a", cell, "c"}), 3);
            for (const std::string& row : {"a," + cell + ",c", "a,\"" + cell + "\",c", "\"a\"," + cell + ",\"c\""}) {
                EXPECT_EQ(text.hash(Tables::texts(Tables::table("A,B,C\n" + row + "\n")).row(0)), expected) << row;
            }
            const auto swapped = Tables::table("A,C,B\na,c,\"" + cell + "\"\n");
            EXPECT_EQ(text.hash(ComparisonTexts(swapped, {0, 2, 1}, {}).row(0)), expected);
            const auto amidst = Tables::table("O,A,B,C,Z\no,a," + cell + ",c,z\n");
            EXPECT_EQ(text.hash(ComparisonTexts(amidst, {1, 2, 3}, {}).row(0)), expected);
        }
    }
}

TEST(JoinedText, IsHashedWhereItLiesWhereverTheDelimiterAllows) {
    const auto texts = Tables::texts(Tables::table("A,B,C\na,b,c\na,\"b\",c\n"));
    EXPECT_EQ(texts.delimiter(), ',');
    EXPECT_EQ(texts.row(0).joinedBy(','), "a,b,c");
    EXPECT_EQ(texts.row(0).joinedBy(JoinedText::separator), std::nullopt);
    EXPECT_EQ(texts.row(1).joinedBy(','), std::nullopt);
}

// Else a file could be made whose rows all meet at one place of a hash table.
TEST(JoinedText, IsHashedApartFromRowsWithTheDelimiterElsewhere) {
    JoinedText text(',');
    const std::vector<std::vector<std::string>> rows = {{"a", "b", "c,d,e,f"},
                                                        {"a", "b,c", "d,e,f"},
                                                        {"a,b", "c", "d,e,f"},
                                                        {"a,b", "c,d,e", "f"},
                                                        {"a,b,c", "d,e", "f"},
                                                        {"a,b,c,d", "e", "f"}};
    std::set<std::size_t> hashes;
    for (const auto& row : rows) {
        hashes.insert(text.hash(Tables::texts({row}, row.size()).row(0)));
    }
    EXPECT_EQ(hashes.size(), rows.size());
}

TEST(JoinedText, IsNoBeginningOfAnother) {
    const auto texts = Tables::texts({{"a", "b"}}, 2);
    EXPECT_FALSE(JoinedText::isEqual(texts.row(0), "a"));
    EXPECT_FALSE(JoinedText::isEqual(texts.row(0), "a\x1F"));
    EXPECT_FALSE(JoinedText::isEqual(texts.row(0),
                                     "a\x1F"
                                     "bc"));
    EXPECT_TRUE(JoinedText::isEqual(texts.row(0),
                                    "a\x1F"
                                    "b"));
}

TEST(JoinedText, OfAThinRowHasEverySeparator) {
    for (const Grids::PlacedTexts& cells : std::vector<Grids::PlacedTexts>{
             {}, {{0, "first"}}, {{2999, "last"}}, {{3, "a"}, {64, "b"}, {130, ""}, {2000, std::string(2000, 'x')}}}) {
        std::vector<std::string> full(3000);
        for (const auto& [column, text] : cells) {
            full[column] = text;
        }
        DataTable::Parts parts;
        parts.headers.resize(full.size());
        parts.rows = CellRows(Grids::scattered({cells})).selected({0}, full.size());
        parts.rowNumbers = {2};
        const auto texts = Tables::texts(DataTable(std::move(parts)));
        ASSERT_TRUE(texts.row(0).isThin());
        for (const char delimiter : {JoinedText::separator, ',', 'a'}) {
            JoinedText text(delimiter);
            EXPECT_EQ(text.hash(texts.row(0)), text.hash(joined(full), full.size()));
        }
    }
}

}  // namespace
}  // namespace corvale
