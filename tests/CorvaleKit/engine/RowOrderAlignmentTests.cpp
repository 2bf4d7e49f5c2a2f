#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "CorvaleKit/engine/RowOrderAlignment.h"
#include "tests/support/Pairs.h"
#include "tests/support/SlowRowOrder.h"
#include "tests/support/Tables.h"

namespace corvale {
namespace {

using Pairs::shown;
using Tables::Rows;

std::vector<RowPair> align(const Rows& before, const Rows& after, std::size_t columns) {
    return RowOrderAlignment::align(Tables::texts(before, columns), Tables::texts(after, columns), {}).pairs;
}

std::string aligned(const Rows& before, const Rows& after) {
    return shown(align(before, after, before.empty() ? after.front().size() : before.front().size()));
}

TEST(RowOrderAlignment, OfEmptyTablesIsEmpty) {
    EXPECT_EQ(shown(align({}, {}, 0)), "");
    EXPECT_EQ(shown(align({}, {}, 3)), "");
}

TEST(RowOrderAlignment, OfATableAndNothingIsAllAlone) {
    EXPECT_EQ(aligned({{"a"}, {"b"}}, {}), "0:- 1:-");
    EXPECT_EQ(aligned({}, {{"a"}, {"b"}}), "-:0 -:1");
}

TEST(RowOrderAlignment, PairsEveryRowOfIdenticalTables) {
    const Rows rows = {{"a", "1"}, {"b", "2"}, {"a", "1"}, {"", ""}};
    EXPECT_EQ(aligned(rows, rows), "0:0 1:1 2:2 3:3");
}

TEST(RowOrderAlignment, AnInsertedRowMovesNoOther) {
    EXPECT_EQ(aligned({{"a", "1"}, {"b", "2"}, {"c", "3"}}, {{"a", "1"}, {"new", "9"}, {"b", "2"}, {"c", "3"}}),
              "0:0 -:1 1:2 2:3");
}

TEST(RowOrderAlignment, ARemovedRowMovesNoOther) {
    EXPECT_EQ(aligned({{"a", "1"}, {"b", "2"}, {"c", "3"}}, {{"a", "1"}, {"c", "3"}}), "0:0 1:- 2:1");
}

TEST(RowOrderAlignment, ARowEditedInOneCellOfFourIsPaired) {
    EXPECT_EQ(aligned({{"a", "b", "c", "d"}, {"1", "2", "3", "4"}, {"e", "f", "g", "h"}},
                      {{"a", "b", "c", "d"}, {"1", "2", "x", "4"}, {"e", "f", "g", "h"}}),
              "0:0 1:1 2:2");
}

TEST(RowOrderAlignment, HalfOfTheCellsAreEnoughToBePaired) {
    EXPECT_EQ(aligned({{"1", "2", "3", "4"}}, {{"1", "x", "3", "y"}}), "0:0");
    EXPECT_EQ(aligned({{"1", "2", "3"}}, {{"1", "x", "y"}}), "0:- -:0");
    EXPECT_EQ(aligned({{"1", "2"}}, {{"x", "2"}}), "0:0");
}

TEST(RowOrderAlignment, ARowEditedInThreeCellsOfFourIsRemovedAndAdded) {
    EXPECT_EQ(aligned({{"a", "b", "c", "d"}, {"1", "2", "3", "4"}, {"e", "f", "g", "h"}},
                      {{"a", "b", "c", "d"}, {"1", "x", "y", "z"}, {"e", "f", "g", "h"}}),
              "0:0 1:- -:1 2:2");
}

TEST(RowOrderAlignment, RowsOfOneColumnArePairedByPosition) {
    EXPECT_EQ(aligned(Tables::letters("aXYb"), Tables::letters("a123b")), "0:0 1:1 2:2 -:3 3:4");
}

TEST(RowOrderAlignment, RowsWithoutColumnsAreIdentical) {
    EXPECT_EQ(shown(align({{}, {}}, {{}, {}, {}}, 0)), "0:0 1:1 -:2");
}

TEST(RowOrderAlignment, RowsThatRepeatAreLinedUpByTheMinimalDifference) {
    EXPECT_EQ(aligned(Tables::letters("XabababY"), Tables::letters("VbababaW")),
              shown(SlowRowOrder::align(Tables::letters("XabababY"), Tables::letters("VbababaW"), 1)));
    const auto pairs =
        align({{"a", "1"}, {"b", "1"}, {"a", "1"}, {"b", "1"}}, {{"b", "1"}, {"a", "1"}, {"b", "1"}, {"a", "1"}}, 2);
    EXPECT_EQ(shown(pairs), "0:- 1:0 2:1 3:2 -:3");
}

TEST(RowOrderAlignment, RowsAreIdenticalByTheirJoinedTexts) {
    EXPECT_EQ(aligned({{"a\x1F", "b"}, {"k", "k"}},
                      {{"x", "y"},
                       {"a",
                        "\x1F"
                        "b"},
                       {"k", "k"}}),
              "-:0 0:1 1:2");
    EXPECT_EQ(aligned({{"a\x1F", "b"}},
                      {{"a",
                        "\x1F"
                        "b"}}),
              "0:0")
        << "though no cell is equal";
}

TEST(RowOrderAlignment, ReadsTheTextsAsReduced) {
    const CellReduction ignoringCase{false, false, true, NumberStyle::dotDecimal};
    const auto before = Tables::texts(Tables::table({{"A", "B"}, {"C", "D"}}, 2), ignoringCase);
    const auto after = Tables::texts(Tables::table({{"x", "y"}, {"a", "b"}, {"c", "d"}}, 2), ignoringCase);
    EXPECT_EQ(shown(RowOrderAlignment::align(before, after, {}).pairs), "-:0 0:1 1:2");
}

TEST(RowOrderAlignment, TellsWhichPairsNeedNoComparison) {
    const auto before = Tables::texts({{"a", "1"}, {"b", "2"}, {"c", "3"}}, 2);
    const auto after = Tables::texts({{"a", "1"}, {"b", "5"}, {"n", "4"}, {"c", "3"}}, 2);
    const auto [pairs, areSame] = RowOrderAlignment::align(before, after, {});
    EXPECT_EQ(shown(pairs), "0:0 1:1 -:2 2:3");
    EXPECT_EQ(areSame, (std::vector<bool>{true, false, false, true}));
}

// The rows are identical as texts, and yet each has a cell that is not the other's.
TEST(RowOrderAlignment, ComparesPairsWhoseCellsHoldSeparators) {
    const auto before = Tables::texts({{"a\x1F", "b"}, {"c", "d"}}, 2);
    const auto after = Tables::texts({{"a",
                                       "\x1F"
                                       "b"},
                                      {"c", "d"}},
                                     2);
    const auto [pairs, areSame] = RowOrderAlignment::align(before, after, {});
    EXPECT_EQ(shown(pairs), "0:0 1:1");
    EXPECT_EQ(areSame, (std::vector<bool>{false, false}));
}

TEST(RowOrderAlignment, AMovedBlockIsRemovedAndAdded) {
    Rows before = Tables::letters("abcdefghij");
    Rows after = Tables::letters("efghijabcd");
    for (auto* rows : {&before, &after}) {
        for (auto& row : *rows) {
            row.push_back(row.front() + "!");
        }
    }
    EXPECT_EQ(aligned(before, after), "0:- 1:- 2:- 3:- 4:0 5:1 6:2 7:3 8:4 9:5 -:6 -:7 -:8 -:9");
}

// Every sequence of up to `longest` of the rows.
std::vector<Rows> sequences(const Rows& rows, std::size_t longest) {
    std::vector<Rows> all{{}};
    for (std::size_t next = 0; next < all.size(); ++next) {
        for (std::size_t row = 0; all[next].size() < longest && row < rows.size(); ++row) {
            Rows longer = all[next];
            longer.push_back(rows[row]);
            all.push_back(longer);
        }
    }
    return all;
}

void expectSlowAnswers(const std::vector<Rows>& tables, std::size_t columns) {
    std::vector<ComparisonTexts> texts;
    for (const Rows& rows : tables) {
        texts.push_back(Tables::texts(rows, columns));
    }
    for (std::size_t before = 0; before < tables.size(); ++before) {
        for (std::size_t after = 0; after < tables.size(); ++after) {
            const auto [pairs, areSame] = RowOrderAlignment::align(texts[before], texts[after], {});
            ASSERT_EQ(areSame.size(), pairs.size());
            for (std::size_t i = 0; i < pairs.size(); ++i) {
                ASSERT_TRUE(!areSame[i] || tables[before][pairs[i].left] == tables[after][pairs[i].right]);
            }
            const auto expected = SlowRowOrder::align(tables[before], tables[after], columns);
            ASSERT_EQ(shown(pairs), shown(expected)) << columns << " columns, tables " << before << " and " << after;
            ASSERT_TRUE(Pairs::areComplete(pairs, tables[before].size(), tables[after].size()));
        }
    }
}

TEST(RowOrderAlignment, AnswersAsTheSlowWayOnAllSmallTables) {
    expectSlowAnswers(sequences({{"a"}, {"b"}}, 5), 1);
    expectSlowAnswers(sequences({{"a"}, {"b"}, {"c"}}, 4), 1);
    expectSlowAnswers(sequences({{"a", "a"}, {"a", "b"}, {"b", "b"}}, 3), 2);
    expectSlowAnswers(sequences({{"a", "a", "a"}, {"a", "a", "b"}, {"a", "b", "b"}, {"b", "b", "b"}}, 3), 3);
    expectSlowAnswers(sequences({{"a", "\x1F"}, {"a\x1F", ""}, {"a", ""}, {"", "a"}}, 3), 2);
}

class RandomTables {
public:
    explicit RandomTables(unsigned seed) : m_random(seed) {}

    std::size_t below(std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(m_random); }

    Rows rows(std::size_t count, std::size_t columns, std::size_t values) {
        Rows rows(count);
        for (auto& row : rows) {
            row = this->row(columns, values);
        }
        return rows;
    }

    // Some rows taken out, put in, edited, moved.
    Rows edited(const Rows& rows, std::size_t columns, std::size_t values) {
        Rows edited;
        for (const auto& row : rows) {
            switch (below(12)) {
                case 0:
                    break;
                case 1:
                    edited.push_back(this->row(columns, values));
                    edited.push_back(row);
                    break;
                case 2:
                    edited.push_back(row);
                    edited.back()[below(columns)] = "edited";
                    break;
                case 3:
                    edited.insert(edited.begin() + static_cast<std::ptrdiff_t>(below(edited.size() + 1)), row);
                    break;
                default:
                    edited.push_back(row);
            }
        }
        return edited;
    }

private:
    std::vector<std::string> row(std::size_t columns, std::size_t values) {
        std::vector<std::string> row(columns);
        for (auto& cell : row) {
            cell = "text " + std::to_string(below(values));
        }
        return row;
    }

    std::mt19937 m_random;
};

TEST(RowOrderAlignment, AnswersAsTheSlowWayOnRandomTables) {
    RandomTables random(20);
    for (int round = 0; round < 600; ++round) {
        const std::size_t columns = 1 + random.below(6);
        const std::size_t values = 1 + random.below(round % 3 == 0 ? 200 : 4);
        const Rows before = random.rows(random.below(60), columns, values);
        const Rows after =
            round % 4 == 0 ? random.rows(random.below(60), columns, values) : random.edited(before, columns, values);
        const auto pairs = align(before, after, columns);
        ASSERT_EQ(shown(pairs), shown(SlowRowOrder::align(before, after, columns))) << "round " << round;
        ASSERT_TRUE(Pairs::areComplete(pairs, before.size(), after.size()));
    }
}

struct LargeCase {
    const char* description;
    std::size_t beforeRows;
    std::size_t afterRows;
    std::size_t columns;
    std::size_t values;
};

TEST(RowOrderAlignment, AnswersAsTheSlowWayOnBothSidesOfItsLimits) {
    const LargeCase cases[] = {
        {"a minimal difference of just 2000 rows", 1000, 1000, 1, 5},
        {"one row too many for it", 1001, 1000, 1, 5},
        {"one row too many on the other side", 900, 1101, 2, 3},
        {"the largest best alignment", 200, 200, 4, 3},
        {"one row too many for it", 201, 200, 4, 3},
        {"long and narrow", 10, 3000, 3, 4},
        {"a walk among rows that are seldom similar", 600, 700, 6, 4},
        {"a walk among rows that are never similar", 500, 300, 3, 100'000},
        {"a walk on one column", 300, 1800, 1, 100'000},
    };
    RandomTables random(21);
    for (const auto& [description, beforeRows, afterRows, columns, values] : cases) {
        Rows before = random.rows(beforeRows, columns, values);
        Rows after = random.rows(afterRows, columns, values);
        before.front().front() = before.back().front() = "only in before";
        after.front().front() = after.back().front() = "only in after";
        const auto pairs = align(before, after, columns);
        EXPECT_EQ(shown(pairs), shown(SlowRowOrder::align(before, after, columns))) << description;
        EXPECT_TRUE(Pairs::areComplete(pairs, beforeRows, afterRows)) << description;
    }
}

TEST(RowOrderAlignment, AnswersAsTheSlowWayOnLargerEditedTables) {
    RandomTables random(22);
    for (const std::size_t values : {3U, 30U, 3000U}) {
        const Rows before = random.rows(2500, 3, values);
        const Rows after = random.edited(before, 3, values);
        const auto pairs = align(before, after, 3);
        EXPECT_EQ(shown(pairs), shown(SlowRowOrder::align(before, after, 3))) << values << " values";
        EXPECT_TRUE(Pairs::areComplete(pairs, before.size(), after.size()));
    }
}

// The number of polls of a whole run.
std::size_t polls(const ComparisonTexts& before, const ComparisonTexts& after) {
    std::size_t count = 0;
    RowOrderAlignment::align(before, after, [&count] {
        ++count;
        return false;
    });
    return count;
}

TEST(RowOrderAlignment, StopsAtWhicheverPollSaysSo) {
    RandomTables random(23);
    const Rows rows = random.rows(3000, 3, 40);
    const auto before = Tables::texts(rows, 3);
    const auto after = Tables::texts(random.edited(rows, 3, 40), 3);
    const std::size_t count = polls(before, after);
    ASSERT_GT(count, 10U);
    for (std::size_t last = 1; last <= count; last += 1 + last / 3) {
        std::size_t asked = 0;
        EXPECT_THROW(RowOrderAlignment::align(before, after, [&] { return ++asked == last; }), Cancelled);
        EXPECT_EQ(asked, last);
    }
}

TEST(RowOrderAlignment, PollsInEveryGapWithRowsOnBothSides) {
    Rows before;
    Rows after;
    for (int anchor = 0; anchor < 10; ++anchor) {
        const std::string text = "anchor " + std::to_string(anchor);
        before.insert(before.end(), {{text, text}, {"b" + text, "b"}});
        after.insert(after.end(), {{text, text}, {"a" + text, "a"}});
    }
    const std::size_t withGaps = polls(Tables::texts(before, 2), Tables::texts(after, 2));
    const std::size_t without = polls(Tables::texts(before, 2), Tables::texts(before, 2));
    EXPECT_GE(withGaps, without + 10);
}

TEST(RowOrderAlignment, AsksNobodyWithoutACallback) {
    RandomTables random(24);
    const Rows rows = random.rows(6000, 1, 100'000);
    EXPECT_EQ(align(rows, rows, 1).size(), 6000U);
}

}  // namespace
}  // namespace corvale
