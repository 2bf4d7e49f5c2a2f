#include <gtest/gtest.h>

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

BothIds ids(const Rows& before, const Rows& after, std::size_t columns) {
    const auto beforeTexts = Tables::texts(before, columns);
    const auto afterTexts = Tables::texts(after, columns);
    RowInterner interner(beforeTexts, afterTexts);
    BothIds ids;
    ids.before = interner.internBefore();
    ids.after = interner.internAfter();
    ids.count = interner.idCount();
    return ids;
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

TEST(RowInterner, AnswersAsADictionaryOfTexts) {
    std::mt19937 random(9);
    for (int round = 0; round < 60; ++round) {
        const std::size_t columns = 1 + random() % 3;
        const unsigned values = round % 2 == 0 ? 3 : 300;
        const auto row = [&] {
            std::vector<std::string> cells(columns);
            for (auto& cell : cells) {
                cell = std::string(random() % 7 == 0 ? 1 : 0, '\x1F') + std::to_string(random() % values);
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
        std::map<std::string, std::uint32_t> dictionary;
        BothIds expected;
        const auto intern = [&](const Rows& rows, Ids& into) {
            for (const auto& cells : rows) {
                std::string text;
                for (const auto& cell : cells) {
                    text += cell + '\x1F';
                }
                into.push_back(
                    dictionary.try_emplace(text, static_cast<std::uint32_t>(dictionary.size())).first->second);
            }
        };
        intern(before, expected.before);
        intern(after, expected.after);
        expected.count = dictionary.size();
        ASSERT_EQ(ids(before, after, columns), expected) << "round " << round;
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
