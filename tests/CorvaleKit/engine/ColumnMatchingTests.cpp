#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "CorvaleKit/engine/ColumnMatching.h"
#include "CorvaleKit/engine/DiffEngine.h"
#include "CorvaleKit/text/Text.h"
#include "tests/support/AllTexts.h"

namespace corvale {

// Shown by a failing test.
std::ostream& operator<<(std::ostream& stream, const ColumnPair& pair) {
    const auto side = [](std::optional<std::int64_t> index) { return index ? std::to_string(*index) : "-"; };
    stream << '"' << pair.name << "\" " << side(pair.left) << ' ' << side(pair.right)
           << (pair.ignored ? " ignored" : "");
    return pair.renamedTo ? stream << " renamed to \"" << *pair.renamedTo << '"' : stream;
}

}  // namespace corvale

namespace corvale::ColumnMatching {
namespace {

using Names = std::vector<std::string>;
using Pairs = std::vector<ColumnPair>;

DataTable table(const Names& headers) { return DataTable(headers, {}, "t.csv"); }

Pairs byName(const Names& before, const Names& after, const std::set<std::string>& ignored = {},
             const Names& keys = {}) {
    DiffOptions options;
    options.ignoredColumns = ignored;
    return pairColumns(table(before), table(after), options, keys);
}

Pairs byPosition(const Names& before, const Names& after, const std::set<std::string>& ignored = {},
                 const Names& keys = {}) {
    DiffOptions options;
    options.ignoreColumnOrder = false;
    options.ignoredColumns = ignored;
    return pairColumns(table(before), table(after), options, keys);
}

ColumnPair both(const std::string& name, std::int64_t left, std::int64_t right) {
    return {name, left, right, false, {}};
}
ColumnPair onlyBefore(const std::string& name, std::int64_t left) { return {name, left, {}, false, {}}; }
ColumnPair onlyAfter(const std::string& name, std::int64_t right) { return {name, {}, right, false, {}}; }

ColumnPair ignored(ColumnPair pair) {
    pair.ignored = true;
    return pair;
}

ColumnPair renamed(ColumnPair pair, const std::string& name) {
    pair.renamedTo = name;
    return pair;
}

TEST(SameName, IsEqualAsItStandsOrTrimmedIgnoringCase) {
    EXPECT_TRUE(isSameName("Price", "Price"));
    EXPECT_TRUE(isSameName(" price", "PRICE\t"));
    EXPECT_TRUE(isSameName("\u00A0ÉTÉ", "été\u2003"));
    EXPECT_TRUE(isSameName("", "  "));
    EXPECT_TRUE(isSameName("a\n", "A\n"));
    EXPECT_FALSE(isSameName("a\n", "a"));  // line breaks are not trimmed
    EXPECT_FALSE(isSameName("Price", "Prices"));
    EXPECT_FALSE(isSameName("a b", "a  b"));
}

TEST(PairByName, ListsBeforeColumnsThenNewAfterColumns) {
    const Pairs pairs = byName({"ID", "Name", "Price"}, {"Price", "ID", "Name", "Stock"});
    EXPECT_EQ(pairs, (Pairs{both("ID", 0, 1), both("Name", 1, 2), both("Price", 2, 0), onlyAfter("Stock", 3)}));
    EXPECT_TRUE(columnOrderChanged(pairs));
}

TEST(PairByName, KeepsARemovedColumnInItsPlace) {
    EXPECT_EQ(byName({"A", "B", "C"}, {"C", "A"}), (Pairs{both("A", 0, 1), onlyBefore("B", 1), both("C", 2, 0)}));
}

TEST(PairByName, IgnoresCaseAndOuterSpaces) { EXPECT_EQ(byName({" price"}, {"Price"}), (Pairs{both(" price", 0, 0)})); }

TEST(PairByName, PrefersAnEqualHeaderToAnEarlierOneOfTheSameName) {
    EXPECT_EQ(byName({"Price"}, {" price", "Price"}), (Pairs{both("Price", 0, 1), onlyAfter(" price", 0)}));
}

TEST(PairByName, GoesThroughBeforeHeadersInOrder) {
    // The first takes the only candidate, though the second would be equal to it.
    EXPECT_EQ(byName({"price", "Price"}, {"Price"}), (Pairs{both("price", 0, 0), onlyBefore("Price", 1)}));
}

TEST(PairByName, GivesTheFirstOfTwoEqualAfterHeadersToTheBeforeColumn) {
    EXPECT_EQ(byName({"Qty"}, {"Qty", "Qty"}), (Pairs{both("Qty", 0, 0), onlyAfter("Qty", 1)}));
}

TEST(PairByName, PairsRepeatedBeforeHeadersInOrderOfAppearance) {
    EXPECT_EQ(byName({"Qty", "qty", "Qty"}, {"qty", "Qty", " QTY"}),
              (Pairs{both("Qty", 0, 1), both("qty", 1, 0), both("Qty", 2, 2)}));
}

TEST(PairByName, NeverRenames) {
    for (const auto& pair : byName({" a", "B"}, {"A", "b "})) {
        EXPECT_EQ(pair.renamedTo, std::nullopt);
    }
}

TEST(PairByPosition, NamesTheNewHeaderWhereItIsAnotherName) {
    EXPECT_EQ(byPosition({"Qty", "Price"}, {"Quantity", "Price"}),
              (Pairs{renamed(both("Qty", 0, 0), "Quantity"), both("Price", 1, 1)}));
}

TEST(PairByPosition, TakesSpacesAndCaseForNoChangeOfName) {
    EXPECT_EQ(byPosition({"qty "}, {"Qty"}), (Pairs{both("qty ", 0, 0)}));
}

TEST(PairByPosition, ListsTheColumnsThatOneSideHasMore) {
    EXPECT_EQ(byPosition({"A", "B"}, {"A"}), (Pairs{both("A", 0, 0), onlyBefore("B", 1)}));
    EXPECT_EQ(byPosition({"A"}, {"A", "B"}), (Pairs{both("A", 0, 0), onlyAfter("B", 1)}));
    EXPECT_EQ(byPosition({}, {"B"}), (Pairs{onlyAfter("B", 0)}));
}

TEST(PairByPosition, GivesNothingForTwoTablesWithoutColumns) {
    EXPECT_EQ(byPosition({}, {}), Pairs{});
    EXPECT_EQ(byName({}, {}), Pairs{});
}

TEST(Ignored, IsSetForNamesInTheOptionsIgnoringCase) {
    EXPECT_EQ(byName({"Note", "City"}, {"city", "Extra"}, {"note", "CITY", "extra"}),
              (Pairs{ignored(onlyBefore("Note", 0)), ignored(both("City", 1, 0)), ignored(onlyAfter("Extra", 1))}));
    EXPECT_EQ(byPosition({"Note"}, {"Other"}, {"NOTE"}), (Pairs{ignored(renamed(both("Note", 0, 0), "Other"))}));
}

TEST(Ignored, LooksAtTheNameThatIsShownOnly) {
    EXPECT_EQ(byPosition({"Note"}, {"Other"}, {"Other"}), (Pairs{renamed(both("Note", 0, 0), "Other")}));
}

TEST(Ignored, DoesNotTrimForTheOptionsButDoesForKeys) {
    EXPECT_EQ(byName({" Note"}, {}, {"note"}), (Pairs{onlyBefore(" Note", 0)}));
    EXPECT_EQ(byName({" Note"}, {}, {" NOTE"}), (Pairs{ignored(onlyBefore(" Note", 0))}));
    EXPECT_EQ(byName({" ID\t"}, {}, {}, {"id"}), (Pairs{ignored(onlyBefore(" ID\t", 0))}));
    // A key name is taken as it is given: with spaces around it no trimmed header equals it.
    EXPECT_EQ(byName({" ID"}, {}, {}, {" ID"}), (Pairs{onlyBefore(" ID", 0)}));
}

TEST(Ignored, IsSetForEveryKeyColumn) {
    EXPECT_EQ(byName({"ID", "Line", "Price"}, {"Price", "line", "id"}, {}, {"id", "LINE"}),
              (Pairs{ignored(both("ID", 0, 2)), ignored(both("Line", 1, 1)), both("Price", 2, 0)}));
}

TEST(ColumnOrderChanged, LooksAtColumnsOnBothSidesAlone) {
    EXPECT_FALSE(columnOrderChanged({}));
    EXPECT_FALSE(columnOrderChanged(byName({"A", "X", "B"}, {"Y", "A", "Z", "B"})));
    EXPECT_TRUE(columnOrderChanged(byName({"A", "B"}, {"B", "A"})));
    EXPECT_TRUE(columnOrderChanged(byName({"A", "B"}, {"B", "A"}, {"A"})));  // ignored columns count
    EXPECT_FALSE(columnOrderChanged(byPosition({"A", "B"}, {"B", "A"})));
}

TEST(ColumnMatching, CountsAddedColumnsInTheSummary) {
    const DataTable before({"ID", "Name", "Price"}, {{"1", "Pen", "2"}}, "b.csv");
    const DataTable after({"Price", "ID", "Name", "Stock"}, {{"2", "1", "Pen", "9"}}, "a.csv");
    const auto result = DiffEngine::compare(before, after, RowMatch::rowOrder(), {}, NumberStyle::dotDecimal);
    EXPECT_EQ(result.summary.addedColumns, 1);
    EXPECT_EQ(result.summary.removedColumns, 0);
    EXPECT_TRUE(result.columnOrderChanged);
    EXPECT_EQ(result.summary.same, 1);
}

TEST(ColumnMatching, AKeyColumnIsListedButNeverChanges) {
    const DataTable before({"ID", "Price"}, {{"1 ", "2"}, {"2", "3"}}, "b.csv");
    const DataTable after({"id", "Price"}, {{"1", "2"}, {" 2", "4"}}, "a.csv");
    const auto result = DiffEngine::compare(before, after, RowMatch::key({"ID"}), {}, NumberStyle::dotDecimal);
    ASSERT_EQ(result.columns.size(), 2U);
    EXPECT_TRUE(result.columns[0].ignored);
    EXPECT_EQ(result.summary.changesByColumn, (std::map<std::int64_t, std::int64_t>{{1, 1}}));
}

// The pairing by name as one would write it down, quadratic in the columns.
Pairs slowByName(const Names& before, const Names& after) {
    Pairs pairs;
    std::vector<bool> taken(after.size(), false);
    for (std::size_t i = 0; i < before.size(); ++i) {
        std::optional<std::size_t> found;
        for (std::size_t j = 0; j < after.size() && !found; ++j) {
            if (!taken[j] && after[j] == before[i]) {
                found = j;
            }
        }
        for (std::size_t j = 0; j < after.size() && !found; ++j) {
            if (!taken[j] &&
                Text::lowercased(Text::trimSpaces(after[j])) == Text::lowercased(Text::trimSpaces(before[i]))) {
                found = j;
            }
        }
        pairs.push_back(onlyBefore(before[i], static_cast<std::int64_t>(i)));
        if (found) {
            taken[*found] = true;
            pairs.back().right = static_cast<std::int64_t>(*found);
        }
    }
    for (std::size_t j = 0; j < after.size(); ++j) {
        if (!taken[j]) {
            pairs.push_back(onlyAfter(after[j], static_cast<std::int64_t>(j)));
        }
    }
    return pairs;
}

TEST(ColumnMatching, PairsByNameAsTheRulesSayOnRandomHeaders) {
    const AllTexts::Alphabet alphabet = {"a", "A", "b", " ", "\t", "É", "é"};
    std::mt19937 source(1);
    const auto headers = [&] {
        Names names;
        for (auto left = source() % 7; left > 0; --left) {
            names.push_back(AllTexts::random(alphabet, 2, source));
        }
        return names;
    };
    for (int i = 0; i < 10'000; ++i) {
        const Names before = headers();
        const Names after = headers();
        ASSERT_EQ(byName(before, after), slowByName(before, after));
    }
}

TEST(ColumnMatching, TakesThousandsOfColumnsAtOnce) {
    Names before;
    for (int i = 0; i < 16'384; ++i) {
        before.push_back("Column " + std::to_string(i));
    }
    const Names after(before.rbegin(), before.rend());
    const Pairs pairs = byName(before, after);
    ASSERT_EQ(pairs.size(), before.size());
    EXPECT_EQ(pairs.front(), both("Column 0", 0, 16'383));
    EXPECT_EQ(byName(before, Names(16'384, "same")).size(), 2U * 16'384);
    EXPECT_EQ(byName(Names(16'384, "Same"), Names(16'384, "same ")).back(), both("Same", 16'383, 16'383));
}

}  // namespace
}  // namespace corvale::ColumnMatching
