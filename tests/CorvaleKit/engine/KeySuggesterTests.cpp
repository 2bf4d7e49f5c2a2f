#include <absl/hash/hash.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <ostream>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "CorvaleKit/engine/KeySuggester.h"
#include "CorvaleKit/text/Text.h"
#include "tests/support/AllTexts.h"
#include "tests/support/Grids.h"

namespace corvale::KeySuggester {

// Shown by a failing test.
std::ostream& operator<<(std::ostream& stream, const Candidate& candidate) {
    return stream << candidate.column << " u=" << candidate.uniqueness << " o=" << candidate.overlap
                  << " s=" << candidate.score;
}

namespace {

using Texts = std::vector<std::string>;
using Rows = std::vector<Texts>;

// A table of one column.
DataTable column(const std::string& header, const Texts& cells) {
    Rows rows;
    for (const auto& cell : cells) {
        rows.push_back({cell});
    }
    return DataTable({header}, rows, "t.csv");
}

Candidate only(const DataTable& before, const DataTable& after) {
    const auto all = candidates(before, after);
    EXPECT_EQ(all.size(), 1U);
    return all.empty() ? Candidate{} : all.front();
}

Texts numbered(std::size_t count) {
    Texts texts;
    for (std::size_t i = 0; i < count; ++i) {
        texts.push_back(std::to_string(i));
    }
    return texts;
}

// What a header adds to the score of a full, unique, shared column.
double bonusOf(const std::string& header) {
    return only(column(header, {"a", "b"}), column(header, {"a", "b"})).score - 6;
}

TEST(KeySuggester, SuggestsTheFilledUniqueSharedColumn) {
    const DataTable before(
        {"Name", "SKU", "Price"}, {{"Pen", "a1", "2"}, {"Cup", "a2", "2"}, {"Pen", "a3", "5"}}, "b.csv");
    const DataTable after(
        {"SKU", "Price", "Name"}, {{"a3", "5", "Pen"}, {"a2", "2", "Cup"}, {"a1", "3", "Pen"}}, "a.csv");
    EXPECT_EQ(suggestedKey(before, after), "SKU");
}

TEST(KeySuggester, GivesNothingWithoutASharedHeader) {
    EXPECT_EQ(candidates(DataTable(), column("ID", {"1"})), std::vector<Candidate>{});
    EXPECT_EQ(candidates(column("ID", {"1"}), DataTable()), std::vector<Candidate>{});
    EXPECT_EQ(candidates(column("ID", {"1"}), column("Number", {"1"})), std::vector<Candidate>{});
    EXPECT_EQ(suggestedKey(column("ID", {"1"}), column("Number", {"1"})), std::nullopt);
    EXPECT_EQ(suggestedKey(DataTable(), DataTable()), std::nullopt);
}

TEST(KeySuggester, PassesOverAColumnThatIsEmptyOnEitherSide) {
    const DataTable filled = column("ID", {"1", "2"});
    const DataTable blank = column("ID", {"", " \t\n\u00A0"});
    EXPECT_TRUE(candidates(filled, blank).empty());
    EXPECT_TRUE(candidates(blank, filled).empty());
    EXPECT_TRUE(candidates(filled, column("ID", {})).empty());
}

TEST(KeySuggester, MatchesHeadersTrimmedAndIgnoringCase) {
    EXPECT_EQ(suggestedKey(column("Order ID ", {"1", "2"}), column("order id", {"2", "1"})), "Order ID ");
    EXPECT_EQ(suggestedKey(column("\tÉTAT", {"1"}), column("état", {"1"})), "\tÉTAT");
    EXPECT_TRUE(candidates(column("ID\n", {"1"}), column("ID", {"1"})).empty());  // line breaks are not trimmed
}

TEST(KeySuggester, TakesTheFirstAfterHeaderOfTheName) {
    const DataTable before = column("ID", {"1", "2"});
    const DataTable after({"Name", " id", "ID"}, {{"x", "1", "8"}, {"y", "9", "9"}}, "a.csv");
    EXPECT_EQ(only(before, after).overlap, 0.5);
}

TEST(KeySuggester, MayMatchSeveralBeforeHeadersWithOneAfterColumn) {
    const DataTable before({"ID", "id "}, {{"1", "3"}, {"2", "4"}}, "b.csv");
    const auto all = candidates(before, column("ID", {"1", "3"}));
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].overlap, 0.5);
    EXPECT_EQ(all[1].overlap, 0.5);
    EXPECT_EQ(all[1].column, "id ");
}

TEST(KeySuggester, ComparesValuesTrimmedButWithCase) {
    const Candidate trimmed = only(column("ID", {" A1\n", "\u00A0A1", "A2"}), column("ID", {"A1", "A2"}));
    EXPECT_EQ(trimmed.uniqueness, 2.0 / 3);
    EXPECT_EQ(trimmed.overlap, 1);
    const Candidate cased = only(column("ID", {"A1", "a1"}), column("ID", {"A1", "A2"}));
    EXPECT_EQ(cased.uniqueness, 1);
    EXPECT_EQ(cased.overlap, 0.5);
}

TEST(KeySuggester, MeasuresTheWorseSide) {
    // Before: 3 of 4 filled, 2 distinct. After: all filled and distinct.
    const Candidate worse = only(column("Size", {"a", "a", "b", ""}), column("Size", {"a", "b", "c", "d"}));
    EXPECT_EQ(worse.uniqueness, 2.0 / 3);
    EXPECT_EQ(worse.overlap, 1);
    EXPECT_EQ(worse.score, 3.0 * (2.0 / 3) + 2.0 * 1.0 + 0.75);
    // The other way round only the overlap differs.
    const Candidate swapped = only(column("Size", {"a", "b", "c", "d"}), column("Size", {"a", "a", "b", ""}));
    EXPECT_EQ(swapped.uniqueness, 2.0 / 3);
    EXPECT_EQ(swapped.overlap, 0.5);
    EXPECT_EQ(swapped.score, 3.0 * (2.0 / 3) + 2.0 * 0.5 + 0.75);
}

TEST(KeySuggester, ScoresInTheOrderOfItsTerms) {
    const DataTable before({"x", "y", "Id"}, {{"", "", "a"}, {"", "", "b"}, {"", "", "b"}}, "b.csv");
    const DataTable after = column("id", {"a", "c", "d"});
    double score = 3.0 * (2.0 / 3) + 2.0 * 0.5 + 1.0;
    score += 0.75;
    score -= 0.01 * 2.0;
    EXPECT_EQ(only(before, after).score, score);
}

TEST(KeySuggester, HeadersThatLookLikeAKeyEarnABonus) {
    for (const std::string header :
         {"Customer #", "SKU",       "Ref No",    "UserId", "Paid", "Valid", "Email",   "ID",
          "id",         "order-no",  "Item/Part", "#",      "Lot#", "key",   "ISBN 13", "Serial\nnumber",
          "x_guid",     "Ünique id", "TICKET",    "id.",    "# of"}) {
        EXPECT_DOUBLE_EQ(bonusOf(header), 0.75) << header;
    }
    for (const std::string header :
         {"E-mail", "Name", "Ids", "Number2", "Numéro", "Keys", "Idé", "Price", "", "no1", "i d", "Orders"}) {
        EXPECT_DOUBLE_EQ(bonusOf(header), 0) << header;
    }
}

TEST(KeySuggester, EachKeyWordAloneEarnsTheBonus) {
    // Within a longer header, where the ends of "uuid" and of "#" do not earn it already.
    ASSERT_DOUBLE_EQ(bonusOf("value"), 0);
    for (const std::string word :
         {"id",      "sku",   "key",     "code",      "number", "no",      "num",    "#",        "upc",
          "ean",     "asin",  "barcode", "ref",       "email",  "account", "isbn",   "uuid",     "guid",
          "invoice", "order", "item",    "reference", "part",   "serial",  "ticket", "employee", "customer"}) {
        EXPECT_DOUBLE_EQ(bonusOf(word), 0.75) << word;
        EXPECT_DOUBLE_EQ(bonusOf(word + " value"), 0.75) << word;
        EXPECT_DOUBLE_EQ(bonusOf("value-" + word + "-value"), 0.75) << word;
    }
}

TEST(KeySuggester, PrefersTheColumnFurtherLeftAmongEqualOnes) {
    const DataTable table({"A", "B", "C"}, {{"1", "1", "1"}, {"2", "2", "2"}}, "t.csv");
    const auto all = candidates(table, table);
    ASSERT_EQ(all.size(), 3U);
    EXPECT_EQ(all[0].column, "A");
    EXPECT_EQ(all[1].column, "B");
    EXPECT_EQ(all[2].column, "C");
}

TEST(KeySuggester, KeepsBeforesOrderAmongEqualScores) {
    // The bonus of a key name makes up for 75 columns.
    ASSERT_EQ(6.0 + 0.75 - 0.01 * 75, 6.0);
    Texts headers;
    for (int i = 0; i < 75; ++i) {
        headers.push_back("Column " + std::to_string(i));
    }
    headers.push_back("ID");
    const DataTable table(headers, {Texts(76, "a")}, "t.csv");
    const auto all = candidates(table, table);
    ASSERT_EQ(all.size(), 76U);
    EXPECT_EQ(all[0].column, "Column 0");
    EXPECT_EQ(all[1].column, "ID");
    EXPECT_EQ(all[0].score, all[1].score);
    EXPECT_EQ(all[2].column, "Column 1");
    EXPECT_EQ(suggestedKey(table, table), "Column 0");
}

TEST(KeySuggester, SuggestsTheColumnFurtherLeftThatTiesWithAMorePromisingOne) {
    Texts headers = {"Remark"};
    for (int i = 1; i < 50; ++i) {
        headers.push_back("Empty " + std::to_string(i));
    }
    headers.push_back("ID");
    Rows rows;
    for (int i = 0; i < 4; ++i) {
        rows.emplace_back(headers.size());
        rows.back().front() = std::to_string(i);
        rows.back().back() = i < 3 ? std::to_string(i) : "";
    }
    const DataTable table(headers, rows, "t.csv");
    const auto all = candidates(table, table);
    ASSERT_EQ(all.size(), 2U);
    ASSERT_EQ(all[0].score, all[1].score);
    EXPECT_EQ(all[0].column, "Remark");
    EXPECT_EQ(suggestedKey(table, table), "Remark");
}

TEST(KeySuggester, TestsOnlyTheBestCandidate) {
    // 94 distinct values of 100, but with the bonus it ranks first.
    Rows rows;
    for (int i = 0; i < 100; ++i) {
        rows.push_back({std::to_string(std::min(i, 93)), std::to_string(i)});
    }
    const DataTable table({"ID", "Remark"}, rows, "t.csv");
    const auto all = candidates(table, table);
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].column, "ID");
    EXPECT_EQ(all[0].uniqueness, 0.94);
    EXPECT_EQ(all[1].uniqueness, 1);
    EXPECT_EQ(suggestedKey(table, table), std::nullopt);
    EXPECT_EQ(suggestedKey(all), std::nullopt);
}

TEST(KeySuggester, AcceptsTheThresholdsThemselves) {
    const auto accepts = [](double uniqueness, double overlap) {
        return suggestedKey(std::vector<Candidate>{{"ID", uniqueness, overlap, 1}}).has_value();
    };
    EXPECT_TRUE(accepts(0.95, 0.2));
    EXPECT_FALSE(accepts(0.9499, 1));
    EXPECT_FALSE(accepts(1, 0.1999));
    EXPECT_EQ(suggestedKey(std::vector<Candidate>{}), std::nullopt);
}

TEST(KeySuggester, JudgesTheFirstFiftyThousandRowsOnly) {
    Texts cells = numbered(50'000);
    const DataTable unique = column("ID", cells);
    cells.insert(cells.end(), 10'000, "0");
    cells.insert(cells.end(), 10'000, "");
    const Candidate candidate = only(column("ID", cells), unique);
    EXPECT_EQ(candidate.uniqueness, 1);
    EXPECT_EQ(candidate.overlap, 1);
    EXPECT_EQ(candidate.score, 6.75);  // filled in every row that was looked at
}

TEST(KeySuggester, SeesNothingBeyondTheSample) {
    Texts cells(50'000);
    cells.push_back("1");
    EXPECT_TRUE(candidates(column("ID", cells), column("ID", {"1"})).empty());
}

TEST(KeySuggester, TellsTextsApartByEveryByteAndTheirLength) {
    const std::string zero(1, '\0');
    for (std::size_t size = 1; size < 40; ++size) {
        Texts texts = {std::string(size, 'x'), std::string(size, 'x') + zero, std::string(size + 1, 'x')};
        for (std::size_t i = 0; i < size; ++i) {
            texts.push_back(std::string(size, 'x'));
            texts.back()[i] = 'y';
        }
        const Candidate candidate = only(column("ID", texts), column("ID", texts));
        EXPECT_EQ(candidate.uniqueness, 1) << size;
        EXPECT_EQ(candidate.overlap, 1) << size;
        texts.push_back(texts.front());
        EXPECT_LT(only(column("ID", texts), column("ID", texts)).uniqueness, 1) << size;
    }
}

TEST(KeySuggester, CandidatesAreValues) {
    const Candidate a{"ID", 1, 0.5, 6};
    Candidate b = a;
    EXPECT_EQ(a, b);
    EXPECT_EQ(absl::HashOf(a), absl::HashOf(b));
    b.score = 7;
    EXPECT_NE(a, b);
}

// The measures as one would write them down, column by column.
Texts slowValues(const DataTable& table, std::size_t column) {
    Texts values;
    for (std::size_t i = 0; i < std::min<std::size_t>(table.rows().size(), 50'000); ++i) {
        const std::string cell(Text::trimSpacesAndLineBreaks(table.rows()[i][column]));
        if (!cell.empty()) {
            values.push_back(cell);
        }
    }
    return values;
}

std::vector<Candidate> slowCandidates(const DataTable& before, const DataTable& after) {
    std::vector<Candidate> all;
    for (std::size_t i = 0; i < before.headers().size(); ++i) {
        const auto found = std::find_if(after.headers().begin(), after.headers().end(), [&](const std::string& header) {
            return Text::equalIgnoringCase(Text::trimSpaces(header), Text::trimSpaces(before.headers()[i]));
        });
        if (found == after.headers().end()) {
            continue;
        }
        const Texts left = slowValues(before, i);
        const Texts right = slowValues(after, static_cast<std::size_t>(found - after.headers().begin()));
        if (left.empty() || right.empty()) {
            continue;
        }
        const std::set<std::string> leftSet(left.begin(), left.end());
        const std::set<std::string> rightSet(right.begin(), right.end());
        const auto common = std::count_if(
            leftSet.begin(), leftSet.end(), [&](const std::string& value) { return rightSet.count(value) > 0; });
        const auto ratio = [](auto part, auto whole) { return static_cast<double>(part) / static_cast<double>(whole); };
        Candidate candidate;
        candidate.column = before.headers()[i];
        candidate.uniqueness = std::min(ratio(leftSet.size(), left.size()), ratio(rightSet.size(), right.size()));
        candidate.overlap = ratio(common, leftSet.size());
        const double fill =
            std::min(ratio(left.size(), before.rows().size()), ratio(right.size(), after.rows().size()));
        candidate.score = 3.0 * candidate.uniqueness + 2.0 * candidate.overlap + fill;
        candidate.score -= 0.01 * static_cast<double>(i);
        all.push_back(candidate);
    }
    std::stable_sort(all.begin(), all.end(), [](const Candidate& a, const Candidate& b) { return a.score > b.score; });
    return all;
}

DataTable randomTable(std::mt19937& source, std::size_t columns) {
    const AllTexts::Alphabet letters = {"a", "b", " ", "\n", "é", "long text of many bytes"};
    Texts headers;
    for (std::size_t i = 0; i < columns; ++i) {
        headers.push_back("Column " + std::string(1, static_cast<char>('A' + source() % 26)));
    }
    Rows rows(source() % 12);
    for (auto& row : rows) {
        for (auto left = source() % (columns + 2); left > 0; --left) {
            row.push_back(AllTexts::random(letters, 2, source));
        }
    }
    return DataTable(headers, rows, "t.csv");
}

void expectTheRules(const DataTable& before, const DataTable& after) {
    const auto expected = slowCandidates(before, after);
    ASSERT_EQ(candidates(before, after), expected);
    ASSERT_EQ(suggestedKey(before, after), suggestedKey(expected));
}

TEST(KeySuggester, AgreesWithItsRulesOnRandomTables) {
    std::mt19937 source(1);
    for (int i = 0; i < 3'000; ++i) {
        const DataTable before = randomTable(source, 1 + source() % 5);
        const DataTable after = randomTable(source, 1 + source() % 5);
        expectTheRules(before, after);
    }
}

TEST(KeySuggester, AgreesWithItsRulesOnWideTables) {
    std::mt19937 source(2);
    for (int i = 0; i < 20; ++i) {
        const DataTable before = randomTable(source, 60 + source() % 100);
        const DataTable after = randomTable(source, 60 + source() % 100);
        expectTheRules(before, after);
    }
}

// Names that the bonus is for between others, so that columns overtake each other, and many equal scores.
TEST(KeySuggester, SuggestsTheBestCandidateInWhateverOrderItReadsThem) {
    std::mt19937 source(3);
    for (int i = 0; i < 300; ++i) {
        const std::size_t columns = 1 + source() % 150;
        Texts headers;
        for (std::size_t column = 0; column < columns; ++column) {
            headers.push_back((source() % 8 == 0 ? "ID " : "Column ") + std::to_string(column));
        }
        const auto rows = [&] {
            Rows all(1 + source() % 4, Texts(columns));
            for (auto& row : all) {
                std::generate(row.begin(), row.end(), [&] { return std::to_string(source() % 3); });
            }
            return all;
        };
        const DataTable before(headers, rows(), "b.csv");
        const DataTable after(headers, rows(), "a.csv");
        ASSERT_EQ(suggestedKey(before, after), suggestedKey(candidates(before, after)));
    }
}

TEST(KeySuggester, ReadsScatteredCells) {
    constexpr std::uint32_t width = 5'000;
    std::vector<Grids::PlacedTexts> rows;
    std::vector<std::uint32_t> all;
    for (std::uint32_t i = 0; i < 100; ++i) {
        rows.push_back({{10, "key " + std::to_string(i)}, {width - 1, "same"}});
        all.push_back(i);
    }
    DataTable::Parts parts;
    for (std::uint32_t i = 0; i < width; ++i) {
        parts.headers.push_back("c" + std::to_string(i));
    }
    parts.rows = CellRows(Grids::scattered(rows)).selected(all, width);
    const DataTable table(parts);
    EXPECT_EQ(candidates(table, table), slowCandidates(table, table));
    EXPECT_EQ(suggestedKey(table, table), "c10");
}

}  // namespace
}  // namespace corvale::KeySuggester
