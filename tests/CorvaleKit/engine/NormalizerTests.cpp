#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/engine/Normalizer.h"
#include "tests/support/AllTexts.h"
#include "tests/support/Grids.h"
#include "tests/support/SlowNormalizer.h"

namespace corvale::Normalizer {
namespace {

constexpr auto dot = NumberStyle::dotDecimal;
constexpr auto comma = NumberStyle::commaDecimal;

TEST(NormalizeWhitespace, JoinsWordsWithSingleSpaces) {
    struct Case {
        std::string_view text;
        std::string_view normalized;
    };
    const std::vector<Case> cases = {
        {"", ""},
        {" ", ""},
        {" \t\r\n\u00A0", ""},
        {"one two", "one two"},
        {"one  two ", "one two"},
        {" one", "one"},
        {"one\ttwo", "one two"},
        {"one\r\ntwo", "one two"},
        {"one\u00A0two", "one two"},
        {"\u00A0one", "one"},
        {"one\u0085two", "one two"},
        {"one\u2003two  three", "one two three"},  // the doubled space sends the em space to the split
        {"one\n\u2028two\u202F", "one two"},
        {"one\vtwo  three", "one two three"},
        {"£5", "£5"},                   // the lead byte C2 sends it to the split, which leaves it alone
        {"a\u00ADb  c", "a\u00ADb c"},  // a soft hyphen is no white space
        {"a\u200Bb  c", "a\u200Bb c"},  // nor is a zero width space
        {"\xFFz  \xC2", "\xFFz \xC2"},  // bytes that are no text stay
    };
    for (const auto& [text, normalized] : cases) {
        EXPECT_EQ(normalizeWhitespace(text), normalized) << testing::PrintToString(text);
    }
}

TEST(NormalizeWhitespace, OtherSpacesPassTheQuickLook) {
    for (const std::string_view text : {"one\u2003two",
                                        "\u2003one",
                                        "one\u3000",
                                        "one\u2003\u2003two",
                                        "one\u202Ftwo",
                                        "one\vtwo",
                                        "one\ftwo",
                                        "\u2028one"}) {
        EXPECT_FALSE(needsWhitespaceNormalization(text)) << testing::PrintToString(text);
        EXPECT_EQ(normalizeWhitespace(text), text);
    }
}

TEST(NormalizeWhitespace, AgreesWithTheRulesOnAllShortTexts) {
    const AllTexts::Alphabet alphabet = {"a", " ", "\t", "\u00A0", "\u2003", "é", "\xE2\x80"};
    AllTexts::forEach(alphabet, 5, [](const std::string& text) {
        ASSERT_EQ(normalizeWhitespace(text), SlowNormalizer::normalizeWhitespace(text)) << testing::PrintToString(text);
    });
}

TEST(Classify, NamesTheFirstDifferenceThatFits) {
    struct Case {
        std::string_view before;
        std::string_view after;
        NumberStyle style;
        ChangeKind kind;
    };
    const std::vector<Case> cases = {
        {" apple", "apple", dot, ChangeKind::whitespace},
        {"red  apple", "red apple", dot, ChangeKind::whitespace},
        {"", "  ", dot, ChangeKind::whitespace},
        {"red\napple", "red apple", dot, ChangeKind::whitespace},
        {"apple", "APPLE", dot, ChangeKind::letterCase},
        {" apple", "APPLE ", dot, ChangeKind::letterCase},
        {"straße", "STRAßE", dot, ChangeKind::letterCase},
        {"ΟΔΟΣ", "οδοσ", dot, ChangeKind::letterCase},
        {"1,250", "1250.00", dot, ChangeKind::numberFormat},
        {"1,250", "1250.00", comma, ChangeKind::value},
        {"1.250", "1250", comma, ChangeKind::numberFormat},
        {"$1250", "1,250.00", comma, ChangeKind::numberFormat},
        {"50%", "0.5", dot, ChangeKind::numberFormat},
        {"007", "7", dot, ChangeKind::numberFormat},
        {" 007", "7", dot, ChangeKind::numberFormat},
        {"-0", "0", dot, ChangeKind::numberFormat},
        {"1E3", "1e3", dot, ChangeKind::letterCase},  // before the number test
        {"1e3", "1000", dot, ChangeKind::numberFormat},
        {"0.1234567890123", "0.1234567890124", dot, ChangeKind::numberFormat},  // the same in twelve digits
        {"0.123456789012", "0.123456789013", dot, ChangeKind::value},
        {"123456789012345", "123456789012346", dot, ChangeKind::value},
        {"1234567890123456", "1234567890123457", dot, ChangeKind::numberFormat},  // beyond 10^15 twelve digits count
        {"10", "11", dot, ChangeKind::value},
        {"-1", "1", dot, ChangeKind::value},
        {"N/A", "0", dot, ChangeKind::value},
        {"0", "N/A", dot, ChangeKind::value},
        {"", "0", dot, ChangeKind::value},
        {"one\u2003two", "one two", dot, ChangeKind::value},  // the em space passes the quick look
        {"strasse", "straße", dot, ChangeKind::value},
    };
    for (const auto& [before, after, style, kind] : cases) {
        EXPECT_EQ(rawValue(classify(before, after, style)), rawValue(kind)) << before << " against " << after;
        EXPECT_EQ(rawValue(classify(after, before, style)), rawValue(kind)) << after << " against " << before;
    }
}

ChangeKind slowClassify(const std::string& before, const std::string& after, NumberStyle style) {
    const std::string a = SlowNormalizer::normalizeWhitespace(before);
    const std::string b = SlowNormalizer::normalizeWhitespace(after);
    if (a == b) {
        return ChangeKind::whitespace;
    }
    if (Text::lowercased(a) == Text::lowercased(b)) {
        return ChangeKind::letterCase;
    }
    const auto x = SlowNormalizer::parseNumber(a, style);
    const auto y = SlowNormalizer::parseNumber(b, style);
    return x && y && SlowNormalizer::canonicalNumber(*x) == SlowNormalizer::canonicalNumber(*y)
               ? ChangeKind::numberFormat
               : ChangeKind::value;
}

TEST(Classify, AgreesWithTheRulesOnRandomTexts) {
    const AllTexts::Alphabet alphabet = {"1", "0", "9", ".", ",", " ", "a", "A", "é", "É", "%", "000", "e", "E"};
    std::mt19937 source(3);
    for (int i = 0; i < 5'000; ++i) {
        const std::string a = AllTexts::random(alphabet, 5, source);
        const std::string b = AllTexts::random(alphabet, 5, source);
        ASSERT_EQ(rawValue(classify(a, b, dot)), rawValue(slowClassify(a, b, dot))) << a << " against " << b;
        ASSERT_EQ(rawValue(classify(a, b, comma)), rawValue(slowClassify(a, b, comma))) << a << " against " << b;
    }
}

TEST(Classify, TellsNumbersApartByTheirTwelveDigitsHoweverCloseTheyAre) {
    const auto written = [](double value) {
        std::array<char, 40> text{};
        return std::string(text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr);
    };
    std::mt19937_64 source(4);
    std::uniform_real_distribution<double> exponents(-20, 20);
    std::uniform_real_distribution<double> distances(-16, -8);
    for (int i = 0; i < 5'000; ++i) {
        const double number = std::pow(10, exponents(source));
        const std::string a = written(number);
        const std::string b = written(number * (1 + std::pow(10, distances(source))));
        ASSERT_EQ(rawValue(classify(a, b, dot)), rawValue(slowClassify(a, b, dot))) << a << " against " << b;
    }
}

TEST(CellStyleVote, IsCastByNumbersWhoseSeparatorBothStylesAgreeOn) {
    struct Case {
        std::string_view text;
        std::optional<NumberStyle> vote;
    };
    const std::vector<Case> cases = {
        {"1.5", dot},
        {"1,5", comma},
        {"1.234,56", comma},
        {"1,234.56", dot},
        {" 1,5\u00A0", comma},
        {"1,250", std::nullopt},
        {"1.250", std::nullopt},
        {"0,250", comma},
        {"0.250", dot},
        {"1234,567", comma},
        {"1,234,567", dot},  // commas group, so a point would be decimal
        {"1.234.567", comma},
        {"$1,250", std::nullopt},
        {"1,250 €", comma},  // what follows the three digits makes the comma decimal
        {"(1,250)", comma},
        {"1.250%", dot},
        {"-$-5.5", dot},
        {"1250", std::nullopt},
        {"", std::nullopt},
        {" ", std::nullopt},
        {",", std::nullopt},
        {"a.b", std::nullopt},
        {"1.2.3", std::nullopt},
        {"12.5.2024", std::nullopt},
        {"1.", dot},
        {",5", comma},
        {"1,2,3.4,5", std::nullopt},
        {"0.00000000000000000000000000000000000001", dot},            // 40 characters
        {"0.000000000000000000000000000000000000001", std::nullopt},  // 41
        {"1e400.5", std::nullopt},
        {"٣.٥", std::nullopt},
    };
    for (const auto& [text, vote] : cases) {
        EXPECT_EQ(cellStyleVote(text), vote) << text;
    }
}

TEST(CellStyleVote, AgreesWithTheRulesOnAllShortTexts) {
    const AllTexts::Alphabet alphabet = {"1", "0", ",", ".", "250", "-", "(", ")", " ", "€", "é"};
    AllTexts::forEach(alphabet, 3, [](const std::string& text) {
        ASSERT_EQ(cellStyleVote(text), SlowNormalizer::cellStyleVote(text)) << text;
    });
}

DataTable column(const std::vector<std::string>& cells) {
    std::vector<std::vector<std::string>> rows;
    for (const auto& cell : cells) {
        rows.push_back({cell});
    }
    return DataTable({"Amount"}, rows, "amounts.csv");
}

const std::vector<std::size_t> onlyColumn = {0};

NumberStyle detected(const std::vector<std::string>& before, const std::vector<std::string>& after,
                     NumberStyle fallback = NumberStyle::automatic, std::size_t limit = 3000) {
    const DataTable left = column(before);
    const DataTable right = column(after);
    return detectStyle({left, onlyColumn}, {right, onlyColumn}, limit, fallback);
}

TEST(DetectStyle, FollowsTheMajorityOfBothTables) {
    EXPECT_EQ(detected({"1.234,56", "7,5"}, {"1.234,56"}), comma);
    EXPECT_EQ(detected({"1,234.56", "7.5"}, {}), dot);
    EXPECT_EQ(detected({"1,5", "2,5"}, {"1.5", "2.5", "3.5"}, comma), dot);
    EXPECT_EQ(detected({"1.5"}, {"1,5", "2,5"}, dot), comma);
}

TEST(DetectStyle, FallsBackWhenTheVotesAreEqual) {
    EXPECT_EQ(detected({"1,250", "2,250"}, {"3,250"}, comma), comma);
    EXPECT_EQ(detected({"1,250", "2,250"}, {"3,250"}, dot), dot);
    EXPECT_EQ(detected({"1,5"}, {"1.5"}, comma), comma);
    EXPECT_EQ(detected({}, {}, comma), comma);
    EXPECT_EQ(detected({"1250", "", "n.a."}, {}, dot), dot);
}

TEST(DetectStyle, TakesAnAutomaticFallbackAsDotDecimal) { EXPECT_EQ(detected({}, {}, NumberStyle::automatic), dot); }

TEST(DetectStyle, ReadsOnlyTheFirstRowsOfEachTable) {
    EXPECT_EQ(detected({"1.5", "2,5", "3,5"}, {}, comma, 1), dot);
    EXPECT_EQ(detected({"", "2,5"}, {"", "3,5"}, dot, 1), dot);
    EXPECT_EQ(detected({"2,5"}, {"3.5", "4.5", "5.5"}, dot, 1), dot);
    EXPECT_EQ(detected({"", "2,5"}, {"", "3,5"}, dot, 2), comma);
}

TEST(DetectStyle, ReadsOnlyTheColumnsThatCount) {
    const DataTable table({"A", "B", "C"}, {{"1,5", "1.5", "2,5"}}, "t.csv");
    const std::vector<std::size_t> middle = {1};
    const std::vector<std::size_t> outer = {0, 2};
    const std::vector<std::size_t> none;
    EXPECT_EQ(detectStyle({table, middle}, {table, none}, 3000, comma), dot);
    EXPECT_EQ(detectStyle({table, outer}, {table, none}, 3000, dot), comma);
    EXPECT_EQ(detectStyle({table, none}, {table, none}, 3000, comma), comma);
    EXPECT_EQ(detectStyle({table, middle}, {table, outer}, 3000, dot), comma);
}

TEST(DetectStyle, ReadsScatteredCells) {
    constexpr std::size_t width = 1'000;
    DataTable::Parts parts;
    parts.headers.assign(width, "c");
    parts.rows = CellRows(Grids::scattered({{{3, "1,5"}, {900, "2.5"}}, {{3, "3,5"}}})).selected({0, 1}, width);
    const DataTable table(parts);
    const std::vector<std::size_t> first = {3};
    const std::vector<std::size_t> second = {900};
    EXPECT_EQ(detectStyle({table, first}, {table, second}, 3000, dot), comma);
    EXPECT_EQ(detectStyle({table, second}, {table, second}, 3000, comma), dot);
}

TEST(DetectStyle, PassesOverCellsOfMoreThanFortyBytes) {
    const std::string padding(38, ' ');
    EXPECT_EQ(detected({"1.5"}, {padding + "1,5", padding + "2,5"}, comma), dot);
    const std::string shorter(37, ' ');
    EXPECT_EQ(detected({"1.5"}, {shorter + "1,5", shorter + "2,5"}, dot), comma);
}

TEST(LocaleStyle, IsCommaDecimalForACommaAlone) {
    EXPECT_EQ(localeStyle(","), comma);
    EXPECT_EQ(localeStyle("."), dot);
    EXPECT_EQ(localeStyle("٫"), dot);
    EXPECT_EQ(localeStyle(""), dot);
    EXPECT_EQ(localeStyle(",,"), dot);
}

}  // namespace
}  // namespace corvale::Normalizer
