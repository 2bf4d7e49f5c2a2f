#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/engine/KeyMatching.h"
#include "tests/support/Tables.h"

namespace corvale {
namespace {

using Tables::keyed;
using Tables::table;
using Keys = std::vector<std::string>;
using Numbers = std::vector<std::int64_t>;

constexpr std::uint32_t none = RowPair::none;

KeyMatching::Matches match(const DataTable& before, const DataTable& after, const DiffOptions& options = {},
                           const KeyMatching::KeyColumns& columns = {{0}, {0}}) {
    return KeyMatching::matchByKey(before, after, columns, options, NumberStyle::dotDecimal, {});
}

KeyMatching::Matches match(const Keys& before, const Keys& after, const DiffOptions& options = {}) {
    return match(keyed(before), keyed(after), options);
}

std::vector<RowPair> pairs(const Keys& before, const Keys& after, const DiffOptions& options = {}) {
    return match(before, after, options).pairs;
}

bool arePaired(const std::string& before, const std::string& after, const DiffOptions& options = {}) {
    return pairs({before}, {after}, options) == std::vector<RowPair>{{0, 0}};
}

TEST(KeyMatching, RepeatsArePairedInOrder) {
    const auto matches = match(Keys{"A", "A", "B"}, Keys{"A", "B", "A"});
    EXPECT_EQ(matches.pairs, (std::vector<RowPair>{{0, 0}, {2, 1}, {1, 2}}));
    EXPECT_EQ(matches.duplicates,
              (std::vector<DuplicateKey>{{"A", DuplicateKey::Side::before, {2, 3}},
                                         {"A", DuplicateKey::Side::after, {2, 4}}}));
}

TEST(KeyMatching, ExtraRepeatsComeOutAloneOnEitherSide) {
    EXPECT_EQ(pairs({"A", "A", "A"}, {"A"}), (std::vector<RowPair>{{0, 0}, {1, none}, {2, none}}));
    EXPECT_EQ(pairs({"A"}, {"A", "A"}), (std::vector<RowPair>{{0, 0}, {none, 1}}));
}

TEST(KeyMatching, ARemovedRowStandsBehindThePartnerOfItsPredecessor) {
    EXPECT_EQ(pairs({"A", "B", "C"}, {"A", "C"}), (std::vector<RowPair>{{0, 0}, {1, none}, {2, 1}}));
}

TEST(KeyMatching, ARemovedFirstRowStandsAboveEverything) {
    EXPECT_EQ(pairs({"X", "A"}, {"N", "A"}), (std::vector<RowPair>{{0, none}, {none, 0}, {1, 1}}));
}

TEST(KeyMatching, RemovedRowsFollowTheirPredecessorWhereverItMoved) {
    EXPECT_EQ(pairs({"A", "x", "y", "B", "z"}, {"B", "A"}),
              (std::vector<RowPair>{{3, 0}, {4, none}, {0, 1}, {1, none}, {2, none}}));
}

TEST(KeyMatching, LetterCaseCountsUnlessIgnored) {
    DiffOptions ignoring;
    ignoring.ignoreCase = true;
    EXPECT_FALSE(arePaired("x1", "X1"));
    EXPECT_TRUE(arePaired("x1", "X1", ignoring));
    EXPECT_TRUE(arePaired("ÄÖ", "äö", ignoring));
}

TEST(KeyMatching, WhiteSpaceNeverCountsInAKey) {
    DiffOptions keeping;
    keeping.ignoreWhitespace = false;
    EXPECT_TRUE(arePaired(" A1", "A1"));
    EXPECT_TRUE(arePaired(" A  1 ", "A 1", keeping));
    EXPECT_TRUE(arePaired("A\u00A01", "A 1", keeping));
}

TEST(KeyMatching, NumberFormatCountsUnlessIgnored) {
    DiffOptions ignoring;
    ignoring.ignoreNumberFormat = true;
    EXPECT_FALSE(arePaired("007", "7"));
    EXPECT_TRUE(arePaired("007", "7", ignoring));
    EXPECT_FALSE(arePaired("A007", "A7", ignoring));
}

TEST(KeyMatching, NumbersInKeysAreReadInTheResolvedStyle) {
    DiffOptions ignoring;
    ignoring.ignoreNumberFormat = true;
    const auto under = [&](NumberStyle style) {
        return KeyMatching::matchByKey(keyed({"1,250"}), keyed({"1250"}), {{0}, {0}}, ignoring, style, {}).pairs.size();
    };
    EXPECT_EQ(under(NumberStyle::dotDecimal), 1U);
    EXPECT_EQ(under(NumberStyle::commaDecimal), 2U);
}

TEST(KeyMatching, BlankKeysAreListedAndNeverPaired) {
    const auto matches = match(Keys{"", "A", "  "}, Keys{"\t", "A"});
    EXPECT_EQ(matches.pairs, (std::vector<RowPair>{{0, none}, {none, 0}, {1, 1}, {2, none}}));
    EXPECT_EQ(matches.blankKeys.before, (Numbers{2, 4}));
    EXPECT_EQ(matches.blankKeys.after, (Numbers{2}));
    EXPECT_TRUE(matches.duplicates.empty());
}

TEST(KeyMatching, ACompositeKeyIsBlankOnlyWhenAllItsCellsAre) {
    const DataTable after = DataTable({"A", "B"}, {{" ", "\t"}, {"1", ""}, {"", "1"}}, "after.csv");
    const auto matches =
        match(DataTable({"A", "B"}, {{"", ""}, {"1", ""}, {"", "1"}}, "before.csv"), after, {}, {{0, 1}, {0, 1}});
    EXPECT_EQ(matches.pairs, (std::vector<RowPair>{{0, none}, {none, 0}, {1, 1}, {2, 2}}));
    EXPECT_EQ(matches.blankKeys, (BlankKeys{{2}, {2}}));
}

TEST(KeyMatching, CellsOfACompositeKeyDoNotRunIntoEachOther) {
    const auto matches = match(table("A,B\nab,c\n"), table("A,B\na,bc\n"), {}, {{0, 1}, {0, 1}});
    EXPECT_EQ(matches.pairs.size(), 2U);
}

TEST(KeyMatching, TheColumnsOfACompositeKeyMayStandElsewhereInAfter) {
    const auto matches = match(table("A,B,C\n1,2,x\n3,4,y\n"), table("C,B,A\ny,4,3\nx,2,1\n"), {}, {{0, 1}, {2, 1}});
    EXPECT_EQ(matches.pairs, (std::vector<RowPair>{{1, 0}, {0, 1}}));
}

TEST(KeyMatching, ADuplicateIsShownByTheKeyOfItsFirstRow) {
    DiffOptions ignoring;
    ignoring.ignoreCase = true;
    const auto matches = match(table("A,B\n x ,1\nX,1\n"), table("A,B\ny,2\n"), ignoring, {{0, 1}, {0, 1}});
    EXPECT_EQ(matches.duplicates, (std::vector<DuplicateKey>{{"x · 1", DuplicateKey::Side::before, {2, 3}}}));
}

TEST(KeyMatching, DuplicatesComeInTheOrderOfTheirFirstRows) {
    const auto matches = match(Keys{"B", "A", "A", "B"}, Keys{"C", "D", "D", "C"});
    Keys keys;
    for (const auto& duplicate : matches.duplicates) {
        keys.push_back(duplicate.key);
    }
    EXPECT_EQ(keys, (Keys{"B", "A", "C", "D"}));
}

TEST(KeyMatching, KeyColumnsPreferTheExactHeader) {
    const DataTable named = table("id,Id, ID ,Name\n1,2,3,4\n");
    EXPECT_EQ(KeyMatching::keyColumns({"Id 2"}, named), (std::vector<std::size_t>{1}));
    EXPECT_EQ(KeyMatching::keyColumns({"ID"}, named), (std::vector<std::size_t>{0}));
    EXPECT_EQ(KeyMatching::keyColumns({" name ", "id"}, named), (std::vector<std::size_t>{3, 0}));
    EXPECT_TRUE(KeyMatching::keyColumns({"Email"}, named).empty());
}

std::vector<bool> areKeyColumns(const char* before, const char* after, const RowMatch& match,
                                bool ignoreColumnOrder = true) {
    DiffOptions options;
    options.ignoreColumnOrder = ignoreColumnOrder;
    return KeyMatching::areKeyColumns(
        DiffEngine::compare(table(before), table(after), match, options, NumberStyle::dotDecimal));
}

TEST(KeyMatching, AResultsKeyColumnsAreThoseOfEitherSide) {
    using Flags = std::vector<bool>;
    EXPECT_EQ(areKeyColumns("Name,ID\na,1\n", "ID,Name\n1,a\n", RowMatch::key({"id"})), (Flags{false, true}));
    EXPECT_EQ(areKeyColumns("A,B,C\n1,2,3\n", "A,B,C\n1,2,3\n", RowMatch::key({"C", "A"})), (Flags{true, false, true}));
    EXPECT_EQ(areKeyColumns("A,B\n1,2\n", "B,A\n1,2\n", RowMatch::key({"A"}), false), (Flags{true, true}))
        << "by position the column is another one on each side";
    EXPECT_EQ(areKeyColumns("A,Old\n1,2\n", "A,New\n1,2\n", RowMatch::key({"Old"})), (Flags{false, true, false}))
        << "a column that one side lacks";
    EXPECT_EQ(areKeyColumns("A,Old\n1,2\n", "A,New\n1,2\n", RowMatch::key({"New"})), (Flags{false, false, true}));
    EXPECT_EQ(areKeyColumns("A,B\n1,2\n", "A,B\n1,2\n", RowMatch::rowOrder()), (Flags{false, false}));
    EXPECT_EQ(areKeyColumns("A\n1\n", "A\n1\n", RowMatch::key({"None"})), (Flags{false}));
}

// A ragged row and a full one take different ways through the cells.
TEST(KeyMatching, AKeyColumnMayBeNamedTwice) {
    DiffOptions ignoring;
    ignoring.ignoreCase = true;
    const DataTable ragged = table("ID,B,C\nAb\n");
    const DataTable full = table("ID,B,C\nab,,\n");
    for (const std::vector<std::size_t>& columns :
         {std::vector<std::size_t>{0, 0, 1}, {0, 0, 0, 0, 0, 0, 0}, {1, 0, 0}}) {
        EXPECT_EQ(match(ragged, full, ignoring, {columns, columns}).pairs, (std::vector<RowPair>{{0, 0}}));
    }
    const std::vector<std::size_t> thrice{0, 0, 0};
    const auto matches = match(keyed({"P", "p", "p", "P"}), keyed({"q"}), ignoring, {thrice, thrice});
    EXPECT_EQ(matches.duplicates, (std::vector<DuplicateKey>{{"P · P · P", DuplicateKey::Side::before, {2, 3, 4, 5}}}));
}

TEST(KeyMatching, StopsAtEveryPoll) {
    const Keys many(5000, "x");
    const DataTable before = keyed(many);
    int polls = 0;
    KeyMatching::matchByKey(before, before, {{0}, {0}}, {}, NumberStyle::dotDecimal, [&] { return ++polls < 0; });
    EXPECT_EQ(polls, 10);  // rows 0 and 4096 of each side's texts, of each side's index and of the pairing
    for (int stop = 1; stop <= polls; ++stop) {
        int seen = 0;
        EXPECT_THROW(KeyMatching::matchByKey(
                         before, before, {{0}, {0}}, {}, NumberStyle::dotDecimal, [&] { return ++seen == stop; }),
                     Cancelled);
        EXPECT_EQ(seen, stop);
    }
}

// The plain form of the rule: every pair gets a place (anchor, group, sequence), and all are sorted by it.
std::vector<RowPair> sortedPairs(const Keys& before, const Keys& after) {
    struct Placed {
        std::tuple<std::int64_t, int, std::int64_t> place;
        RowPair pair;
    };
    std::map<std::string, std::vector<std::uint32_t>> rows;
    for (std::uint32_t i = 0; i < before.size(); ++i) {
        rows[before[i]].push_back(i);
    }
    std::map<std::string, std::size_t> used;
    std::map<std::uint32_t, std::int64_t> partners;
    std::vector<Placed> all;
    for (std::uint32_t j = 0; j < after.size(); ++j) {
        RowPair pair{none, j};
        auto& count = used[after[j]];
        if (!after[j].empty() && rows.contains(after[j]) && count < rows[after[j]].size()) {
            pair.left = rows[after[j]][count++];
            partners[pair.left] = j;
        }
        all.push_back({{j, 0, 0}, pair});
    }
    std::int64_t anchor = -1;
    for (std::uint32_t i = 0; i < before.size(); ++i) {
        if (partners.contains(i)) {
            anchor = partners[i];
        } else {
            all.push_back({{anchor, 1, i}, {i, none}});
        }
    }
    std::sort(all.begin(), all.end(), [](const Placed& a, const Placed& b) { return a.place < b.place; });
    std::vector<RowPair> result;
    for (const auto& placed : all) {
        result.push_back(placed.pair);
    }
    return result;
}

TEST(KeyMatching, OrdersManyPairsAsSortingByPlaceDoes) {
    std::mt19937 random(8);
    const auto keys = [&](unsigned distinct) {
        Keys made(3000 + random() % 3000);
        for (auto& key : made) {
            const auto number = random() % distinct;
            key = number == 0 ? "" : "k" + std::to_string(number);
        }
        return made;
    };
    for (const unsigned distinct : {1U, 40U, 5000U, 1'000'000U}) {
        const Keys before = keys(distinct);
        const Keys after = keys(distinct);
        EXPECT_TRUE(pairs(before, after) == sortedPairs(before, after)) << distinct << " keys";
    }
}

TEST(KeyMatching, OrdersPairsAsSortingByPlaceDoes) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        const auto keys = [&] {
            Keys made(random() % 9);
            for (auto& key : made) {
                key = std::string("ABCDE").substr(random() % 6, 1);  // one past the end: a blank key
            }
            return made;
        };
        const Keys before = keys();
        const Keys after = keys();
        ASSERT_EQ(pairs(before, after), sortedPairs(before, after)) << "round " << round;
    }
}

}  // namespace
}  // namespace corvale
