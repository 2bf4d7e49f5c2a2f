#include <absl/hash/hash.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "CorvaleKit/base/Failures.h"
#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/engine/DiffFilter.h"
#include "CorvaleKit/text/Text.h"
#include "tests/support/AllTexts.h"

namespace corvale {
namespace {

using Show = DiffFilter::Show;
using Indexes = std::vector<std::int64_t>;
using Rows = std::vector<std::vector<std::string>>;

DiffResult compared(const std::vector<std::string>& headers, const Rows& before, const Rows& after,
                    const RowMatch& match, const DiffOptions& options = {}) {
    return DiffEngine::compare(DataTable(headers, before, "b.csv"),
                               DataTable(headers, after, "a.csv"),
                               match,
                               options,
                               NumberStyle::dotDecimal);
}

Indexes apply(const DiffResult& result, Show show, std::optional<std::int64_t> column = {},
              const std::string& search = "") {
    return DiffFilter{show, column, search}.apply(result);
}

Indexes found(const DiffResult& result, const std::string& search) { return apply(result, Show::all, {}, search); }

// Rows 0 same, 1 changed in Price, 2 changed in City and Price, 3 removed, 4 added.
DiffResult mixed() {
    return compared({"ID", "City", "Price"},
                    {{"1", "Oslo", "10"}, {"2", "Rome", "20"}, {"3", "Nice", "30"}, {"4", "Bern", "40"}},
                    {{"1", "Oslo", "10"}, {"2", "Rome", "21"}, {"3", "Lyon", "31"}, {"5", "Kyiv", "50"}},
                    RowMatch::key({"ID"}));
}

TEST(DiffFilter, HasTheRowsThatItsTestsExpect) {
    const DiffResult result = mixed();
    ASSERT_EQ(result.rows.size(), 5U);
    const std::vector<DiffRow::Status> statuses = {DiffRow::Status::same,
                                                   DiffRow::Status::changed,
                                                   DiffRow::Status::changed,
                                                   DiffRow::Status::removed,
                                                   DiffRow::Status::added};
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(result.rows.status(i), statuses[i]) << i;
    }
}

TEST(DiffFilter, ShowsRowsByTheirStatus) {
    const DiffResult result = mixed();
    EXPECT_EQ(apply(result, Show::all), (Indexes{0, 1, 2, 3, 4}));
    EXPECT_EQ(apply(result, Show::changes), (Indexes{1, 2, 3, 4}));
    EXPECT_EQ(apply(result, Show::added), (Indexes{4}));
    EXPECT_EQ(apply(result, Show::removed), (Indexes{3}));
    EXPECT_EQ(apply(result, Show::changed), (Indexes{1, 2}));
}

TEST(DiffFilter, ShowsEverythingButSameRowsAtFirst) { EXPECT_EQ(DiffFilter{}.apply(mixed()), (Indexes{1, 2, 3, 4})); }

TEST(DiffFilter, AColumnPassesRowsThatChangedInIt) {
    const DiffResult result = mixed();
    EXPECT_EQ(apply(result, Show::all, 0), Indexes{});
    EXPECT_EQ(apply(result, Show::all, 1), (Indexes{2}));
    EXPECT_EQ(apply(result, Show::all, 2), (Indexes{1, 2}));
    EXPECT_EQ(apply(result, Show::changed, 2), (Indexes{1, 2}));
    EXPECT_EQ(apply(result, Show::all, 99), Indexes{});
    EXPECT_EQ(apply(result, Show::all, -1), Indexes{});
}

TEST(DiffFilter, AColumnHidesAddedAndRemovedRows) {
    EXPECT_EQ(apply(mixed(), Show::added, 2), Indexes{});
    EXPECT_EQ(apply(mixed(), Show::removed, 2), Indexes{});
}

TEST(DiffFilter, GivesNothingForAnEmptyResult) {
    const DiffResult result = compared({"ID"}, {}, {}, RowMatch::rowOrder());
    EXPECT_EQ(apply(result, Show::all), Indexes{});
    EXPECT_EQ(apply(DiffResult(), Show::all, {}, "x"), Indexes{});
}

TEST(DiffFilter, StopsAtEveryPoll) {
    const DataTable table({"ID"}, Rows(5'000, {"1"}), "t.csv");
    const DiffResult result = DiffEngine::compare(table, table, RowMatch::rowOrder(), {}, NumberStyle::dotDecimal);
    constexpr int polls = 2;
    for (int allowed = 0; allowed <= polls; ++allowed) {
        int seen = 0;
        const auto isCancelled = [&] { return ++seen > allowed; };
        if (allowed < polls) {
            EXPECT_THROW(DiffFilter{}.apply(result, isCancelled), Cancelled) << allowed;
        } else {
            EXPECT_NO_THROW(DiffFilter{}.apply(result, isCancelled));
        }
        EXPECT_EQ(seen, std::min(allowed + 1, polls));
    }
}

TEST(DiffFilter, ASearchOfSpacesIsNone) {
    EXPECT_EQ(found(mixed(), "   "), (Indexes{0, 1, 2, 3, 4}));
    EXPECT_EQ(found(mixed(), ""), (Indexes{0, 1, 2, 3, 4}));
}

TEST(DiffFilter, FindsAllWordsInAnyCellsAndOrder) {
    const DiffResult result =
        compared({"Region", "Count"},
                 {},
                 {{"North", "12"}, {"12", "far north"}, {"north", "1 2"}, {"south", "12"}, {"a12", "NORTHERN"}},
                 RowMatch::rowOrder());
    EXPECT_EQ(found(result, "north 12"), (Indexes{0, 1, 4}));
    EXPECT_EQ(found(result, "12 north"), (Indexes{0, 1, 4}));
    EXPECT_EQ(found(result, "  NORTH   12 "), (Indexes{0, 1, 4}));
    EXPECT_EQ(found(result, "north north"), (Indexes{0, 1, 2, 4}));  // one place may hold both
}

TEST(DiffFilter, AWordNeverSpansTwoCells) {
    const DiffResult result =
        compared({"A", "B"}, {}, {{"a", "b"}, {"ab", ""}, {"", "ab"}, {"b", "a"}}, RowMatch::rowOrder());
    EXPECT_EQ(found(result, "ab"), (Indexes{1, 2}));
    EXPECT_EQ(found(result, "a b"), (Indexes{0, 1, 2, 3}));
}

TEST(DiffFilter, FindsOldAndNewValues) {
    const DiffResult result = mixed();
    EXPECT_EQ(found(result, "nice"), (Indexes{2}));
    EXPECT_EQ(found(result, "lyon"), (Indexes{2}));
    EXPECT_EQ(found(result, "nice lyon"), (Indexes{2}));
    EXPECT_EQ(found(result, "bern"), (Indexes{3}));
    EXPECT_EQ(found(result, "kyiv"), (Indexes{4}));
}

TEST(DiffFilter, FindsValuesOfIgnoredColumnsAndOfColumnsOnOneSide) {
    DiffOptions options;
    options.ignoredColumns = {"Note"};
    const DataTable before({"ID", "Note", "Old"}, {{"1", "fragile", "gone"}}, "b.csv");
    const DataTable after({"ID", "Note", "New"}, {{"1", "sturdy", "fresh"}}, "a.csv");
    const auto result = DiffEngine::compare(before, after, RowMatch::key({"ID"}), options, NumberStyle::dotDecimal);
    for (const char* word : {"fragile", "sturdy", "gone", "fresh"}) {
        EXPECT_EQ(found(result, word), (Indexes{0})) << word;
    }
    EXPECT_EQ(apply(result, Show::changes, {}, "fragile"), Indexes{});
}

TEST(DiffFilter, FindsTheKey) {
    const DiffResult joined = compared({"A", "B"}, {}, {{"x1", "y2"}, {"x3", "y4"}}, RowMatch::key({"A", "B"}));
    EXPECT_EQ(found(joined, "·"), (Indexes{0, 1}));  // the key alone holds the sign between its parts
    const DiffResult numbered = compared({"A"}, {}, {{"x"}, {"y"}, {"z"}}, RowMatch::rowOrder());
    EXPECT_EQ(found(numbered, "3"), (Indexes{1}));  // the row number
}

TEST(DiffFilter, SplitsASearchAtSpacesAlone) {
    const DiffResult result = compared({"A"}, {}, {{"a\tb"}, {"b a"}, {"a\u00A0b"}}, RowMatch::rowOrder());
    EXPECT_EQ(found(result, "a\tb"), (Indexes{0}));
    EXPECT_EQ(found(result, "a\u00A0b"), (Indexes{2}));
    EXPECT_EQ(found(result, "a b"), (Indexes{0, 1, 2}));
}

TEST(DiffFilter, IgnoresLetterCaseAndNothingElse) {
    const DiffResult result =
        compared({"A"},
                 {},
                 {{"Straße"}, {"STRASSE"}, {"ÉTÉ"}, {"ete"}, {"İzmir"}, {"izmir"}, {"ΟΔΟΣ"}, {"e\u0301te\u0301"}},
                 RowMatch::rowOrder());
    EXPECT_EQ(found(result, "straße"), (Indexes{0}));
    EXPECT_EQ(found(result, "STRASSE"), (Indexes{1}));
    EXPECT_EQ(found(result, "été"), (Indexes{2}));
    EXPECT_EQ(found(result, "ÉTÉ"), (Indexes{2}));
    EXPECT_EQ(found(result, "ETE"), (Indexes{3}));
    EXPECT_EQ(found(result, "İZMİR"), Indexes{});  // each dotted capital keeps its dot
    EXPECT_EQ(found(result, "İzmir"), (Indexes{4}));
    EXPECT_EQ(found(result, "izmir"), (Indexes{5}));
    EXPECT_EQ(found(result, "οδοσ"), (Indexes{6}));
    EXPECT_EQ(found(result, "οδος"), Indexes{});  // no final sigma
    EXPECT_EQ(found(result, "e"), (Indexes{0, 1, 3, 7}));
}

TEST(DiffFilter, AWordWithTheSeparatorInItSpansCells) {
    const DiffResult result =
        compared({"A", "B", "C"}, {{"k", "", "c"}}, {{"k", "", "d"}, {"x", "y", "z"}}, RowMatch::key({"A"}));
    ASSERT_EQ(result.rows.size(), 2U);
    // The key, then for each column the old and the new cell: k, k, k, "", "", c, d.
    EXPECT_EQ(found(result,
                    "k\x1Fk\x1Fk\x1F\x1F\x1F"
                    "c\x1F"
                    "d"),
              (Indexes{0}));
    EXPECT_EQ(found(result, "x\x1Fx\x1Fy\x1Fz"), (Indexes{1}));
    EXPECT_EQ(found(result, "\x1Fk\x1Fk\x1Fk"), Indexes{});  // nothing stands before the key
    EXPECT_EQ(found(result, "\x1F"), (Indexes{0, 1}));
    EXPECT_EQ(found(result, "\x1F\x1F"), (Indexes{0}));
    EXPECT_EQ(found(result, "d\x1F"), Indexes{});
    EXPECT_EQ(found(result, "z y\x1F"), (Indexes{1}));
}

TEST(DiffFilter, AppliesAllItsTests) {
    EXPECT_EQ(apply(mixed(), Show::changed, 2, "rome"), (Indexes{1}));
    EXPECT_EQ(apply(mixed(), Show::changed, 1, "rome"), Indexes{});
    EXPECT_EQ(apply(mixed(), Show::removed, {}, "rome"), Indexes{});
}

TEST(DiffFilter, IsAValue) {
    const DiffFilter a{Show::added, 3, "x"};
    DiffFilter b = a;
    EXPECT_EQ(a, b);
    EXPECT_EQ(absl::HashOf(a), absl::HashOf(b));
    b.column.reset();
    EXPECT_NE(a, b);
}

// The search as one would write it down.
bool slowFinds(const DiffResult& result, const DiffRow& row, const std::string& search) {
    std::string text = Text::lowercased(row.key);
    for (const auto& column : result.columns) {
        if (column.left && row.left) {
            text +=
                '\x1F' +
                Text::lowercased(
                    result.before.rows()[static_cast<std::size_t>(*row.left)][static_cast<std::size_t>(*column.left)]);
        }
        if (column.right && row.right) {
            text +=
                '\x1F' +
                Text::lowercased(
                    result.after.rows()[static_cast<std::size_t>(*row.right)][static_cast<std::size_t>(*column.right)]);
        }
    }
    std::string word;
    for (const char c : Text::lowercased(search) + " ") {
        if (c != ' ') {
            word += c;
        } else if (text.find(word) == std::string::npos) {
            return false;
        } else {
            word.clear();
        }
    }
    return true;
}

Rows randomRows(std::mt19937& source) {
    const AllTexts::Alphabet letters = {
        "a", "B", " ", "\x1F", "é", "É", "İ", "K", "\xFF", "a text that is longer than a block"};
    Rows rows(source() % 8);
    for (auto& row : rows) {
        for (auto left = source() % 5; left > 0; --left) {
            row.push_back(AllTexts::random(letters, 3, source));
        }
    }
    return rows;
}

TEST(DiffFilter, SearchesAsTheRulesSayOnRandomTables) {
    const AllTexts::Alphabet letters = {"a", "b", "A", " ", "\x1F", "é", "İ", "i", "k", "\u0307", "longer"};
    std::mt19937 source(1);
    for (int i = 0; i < 3'000; ++i) {
        const DataTable before({"A", "B", "C"}, randomRows(source), "b.csv");
        const DataTable after({"C", "A", "D", "E"}, randomRows(source), "a.csv");
        const auto match = source() % 2 == 0 ? RowMatch::key({"A"}) : RowMatch::rowOrder();
        const auto result = DiffEngine::compare(before, after, match, {}, NumberStyle::dotDecimal);
        const std::string search = AllTexts::random(letters, 4, source);
        Indexes expected;
        for (std::size_t row = 0; row < result.rows.size(); ++row) {
            if (slowFinds(result, result.rows[row], search)) {
                expected.push_back(static_cast<std::int64_t>(row));
            }
        }
        ASSERT_EQ(found(result, search), expected) << testing::PrintToString(search);
    }
}

}  // namespace
}  // namespace corvale
