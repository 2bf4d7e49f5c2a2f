#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "CorvaleKit/engine/RowInterner.h"
#include "tests/support/Tables.h"

namespace corvale {
namespace {

using Ids = std::vector<std::uint32_t>;
using Tables::Rows;

struct BothIds {
    Ids before;
    Ids after;
    std::size_t count = 0;

    friend bool operator==(const BothIds&, const BothIds&) = default;
};

BothIds ids(const ComparisonTexts& before, const ComparisonTexts& after) {
    RowInterner interner(before, after);
    BothIds ids;
    ids.before = interner.internBefore();
    ids.after = interner.internAfter();
    ids.count = interner.idCount();
    return ids;
}

BothIds ids(const Rows& before, const Rows& after, std::size_t columns) {
    return ids(Tables::texts(before, columns), Tables::texts(after, columns));
}

// The ids by the rows' texts, each followed by a separator.
BothIds expectedIds(const Rows& before, const Rows& after) {
    std::map<std::string, std::uint32_t> dictionary;
    const auto intern = [&](const Rows& rows, Ids& into) {
        for (const auto& cells : rows) {
            std::string text;
            for (const auto& cell : cells) {
                text += cell + '\x1F';
            }
            into.push_back(dictionary.try_emplace(text, static_cast<std::uint32_t>(dictionary.size())).first->second);
        }
    };
    BothIds expected;
    intern(before, expected.before);
    intern(after, expected.after);
    expected.count = dictionary.size();
    return expected;
}

// As in a file with a header row, with quotes where they are needed and here and there where they are not.
ComparisonTexts fromFile(const Rows& rows, std::size_t columns, char delimiter, std::mt19937& random) {
    std::string text = "A";
    for (std::size_t column = 1; column < columns; ++column) {
        text += delimiter + std::string("A");
    }
    for (const auto& cells : rows) {
        text += '\n';
        for (std::size_t column = 0; column < columns; ++column) {
            const bool quoted = random() % 8 == 0 || cells[column].find(delimiter) != std::string::npos;
            const std::string quotes(quoted ? 1 : 0, '"');
            text += (column > 0 ? std::string(1, delimiter) : "") + quotes + cells[column] + quotes;
        }
    }
    return Tables::texts(TableBuilder::build(CellRows(CSV::parse(Bytes(text), delimiter)), "table.csv", 1));
}

TEST(RowInterner, CountsUpInOrderOfFirstAppearance) {
    EXPECT_EQ(ids({{"b"}, {"a"}, {"b"}}, {{"c"}, {"a"}, {"d"}, {"c"}}, 1), (BothIds{{0, 1, 0}, {2, 1, 3, 2}, 4}));
    EXPECT_EQ(ids({}, {{"x"}, {"x"}}, 1), (BothIds{{}, {0, 0}, 1}));
    EXPECT_EQ(ids({}, {}, 1), (BothIds{{}, {}, 0}));
}

TEST(RowInterner, TakesAllColumnsTogether) {
    EXPECT_EQ(ids({{"a", "b"}, {"b", "a"}, {"ab", ""}}, {{"", "ab"}, {"b", "a"}}, 2), (BothIds{{0, 1, 2}, {3, 1}, 4}));
}

TEST(RowInterner, TakesRowsForOneThatJoinToOneText) {
    EXPECT_EQ(ids({{"a\x1F", "b"},
                   {"a",
                    "\x1F"
                    "b"}},
                  {{"a",
                    "\x1F"
                    "b"},
                   {"a", "b"}},
                  2),
              (BothIds{{0, 0}, {0, 1}, 2}));
}

TEST(RowInterner, TakesAllRowsWithoutColumnsForOne) { EXPECT_EQ(ids({{}, {}}, {{}}, 0), (BothIds{{0, 0}, {0}, 1})); }

TEST(RowInterner, FindsTextsOfBothSides) {
    const auto before = Tables::texts({{"a", "b"}}, 2);
    const auto after = Tables::texts({{"a", "b"}, {"c", ""}}, 2);
    RowInterner interner(before, after);
    EXPECT_EQ(interner.find("a\x1F"
                            "b"),
              std::nullopt)
        << "before any row was read";
    interner.internBefore();
    interner.internAfter();
    EXPECT_EQ(interner.find("a\x1F"
                            "b"),
              0U);
    EXPECT_EQ(interner.find("c\x1F"), 1U);
    EXPECT_EQ(interner.find("c"), std::nullopt);
}

TEST(RowInterner, AnswersAsADictionaryOfTextsHoweverTheFilesHaveThem) {
    std::mt19937 random(9);
    for (int round = 0; round < 60; ++round) {
        const std::size_t columns = 1 + random() % 3;
        const unsigned values = round % 2 == 0 ? 3 : 300;
        const auto row = [&] {
            std::vector<std::string> cells(columns);
            for (auto& cell : cells) {
                const char* const beginnings[] = {"\x1F", ",", ";", "", "", "", ""};
                cell = beginnings[random() % std::size(beginnings)] + std::to_string(random() % values);
            }
            return cells;
        };
        Rows before(random() % 300);
        Rows after(random() % 300);
        for (auto& cells : before) {
            cells = row();
        }
        for (std::size_t i = 0; i < after.size(); ++i) {
            after[i] = i < before.size() && random() % 5 > 0 ? before[i] : row();
        }
        const BothIds expected = expectedIds(before, after);
        ASSERT_EQ(ids(before, after, columns), expected) << "round " << round;
        const auto beforeTexts = fromFile(before, columns, ',', random);
        const auto afterTexts = fromFile(after, columns, random() % 2 == 0 ? ',' : ';', random);
        ASSERT_EQ(ids(beforeTexts, afterTexts), expected) << "round " << round;
    }
}

TEST(RowInterner, CallsBackAtRow0AndEvery4096thRow) {
    const Rows rows(2 * 4096 + 1, {"x"});
    const auto texts = Tables::texts(rows, 1);
    RowInterner interner(texts, texts);
    std::vector<std::size_t> called;
    interner.internBefore([&called](std::size_t row) { called.push_back(row); });
    EXPECT_EQ(called, (std::vector<std::size_t>{0, 4096, 8192}));
    called.clear();
    interner.internAfter([&called](std::size_t row) { called.push_back(row); });
    EXPECT_EQ(called, (std::vector<std::size_t>{0, 4096, 8192}));
}

TEST(RowInterner, DoesNotCallBackForNoRows) {
    const auto texts = Tables::texts(Rows{}, 1);
    RowInterner interner(texts, texts);
    interner.internBefore([](std::size_t) { FAIL(); });
    interner.internAfter([](std::size_t) { FAIL(); });
}

TEST(RowInternerDeathTest, RefusesTablesOfDifferentWidths) {
    const auto one = Tables::texts(Rows{}, 1);
    const auto two = Tables::texts(Rows{}, 2);
    EXPECT_DEATH(RowInterner(one, two), "other numbers of columns");
}

}  // namespace
}  // namespace corvale
