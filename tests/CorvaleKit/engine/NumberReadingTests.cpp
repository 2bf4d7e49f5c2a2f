#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "CorvaleKit/engine/Normalizer.h"
#include "tests/support/AllTexts.h"
#include "tests/support/SlowNormalizer.h"

namespace corvale::Normalizer {
namespace {

constexpr auto dot = NumberStyle::dotDecimal;
constexpr auto comma = NumberStyle::commaDecimal;

TEST(ParseNumber, ReadsWhatACellShows) {
    struct Case {
        std::string_view text;
        double asDot;
        double asComma;
    };
    const std::vector<Case> cases = {
        {"0", 0, 0},
        {"007", 7, 7},
        {"1250", 1250, 1250},
        {"1,250.00", 1250, 1250},
        {"1.250,00", 1250, 1250},
        {"$1250", 1250, 1250},
        {"$ 1250", 1250, 1250},
        {"50%", 0.5, 0.5},
        {"50 %", 0.5, 0.5},
        {"(12.5)", -12.5, -12.5},
        {"12 €", 12, 12},
        {"1250\u202F€", 1250, 1250},
        {"-€5", -5, -5},
        {"€-5", -5, -5},
        {"€ -5", -5, -5},
        {"-$-5", -5, -5},
        {"+$-5", -5, -5},
        {"(-5)", -5, -5},
        {"(5 €)", -5, -5},
        {"( 5€)", -5, -5},  // dropping the sign at the end trims both ends
        {"- 5 €", -5, -5},
        {"$5$", 5, 5},
        {"5 %€", 0.05, 0.05},
        {"-50%", -0.5, -0.5},
        {"+5", 5, 5},
        {"1 234,5", 1234.5, 1234.5},
        {"1\u00A0234,5", 1234.5, 1234.5},
        {"1\u202F234\u00A0567", 1234567, 1234567},
        {"1 234,567.5", 1234567.5, 1234567.5},  // different grouping characters mix
        {"1,250", 1250, 1.25},
        {"1.250", 1.25, 1250},
        {"1,25", 1.25, 1.25},
        {"0,250", 0.25, 0.25},
        {"0.250", 0.25, 0.25},
        {"1234,567", 1234.567, 1234.567},
        {"1234.567", 1234.567, 1234.567},
        {"1,234,567", 1234567, 1234567},
        {"1.234.567", 1234567, 1234567},
        {"1.234.567,5", 1234567.5, 1234567.5},
        {"1.", 1, 1},
        {".5", 0.5, 0.5},
        {",5", 0.5, 0.5},
        {",250", 0.25, 0.25},  // no digit before it: not a group
        {"1.250,", 1250, 1250},
        {"1e3", 1000, 1000},
        {"1E3", 1000, 1000},
        {"1e+3", 1000, 1000},
        {"1e-3", 0.001, 0.001},
        {"1.5e3", 1500, 1500},
        {"1,5e3", 1500, 1500},
        {"5e-324", 5e-324, 5e-324},
        {"1e-310", 1e-310, 1e-310},
        {"1e-400", 0, 0},
        {"0.0e-99999999", 0, 0},
        {"0e99999999", 0, 0},
        {"1.7976931348623157e308", 1.7976931348623157e308, 1.7976931348623157e308},
        {"\t\u3000 12\u2003", 12, 12},
        {"1234567890123456789012345678901234567890",
         1234567890123456789012345678901234567890.0,
         1234567890123456789012345678901234567890.0},  // 40 characters
        {"9007199254740993", 9007199254740992, 9007199254740992},
    };
    for (const auto& [text, asDot, asComma] : cases) {
        EXPECT_EQ(parseNumber(text, dot), asDot) << text;
        EXPECT_EQ(parseNumber(text, comma), asComma) << text;
    }
    for (const std::string currency : {"$", "€", "£", "¥", "₹", "₩", "₽", "₺", "₫", "₱", "₪", "¢"}) {
        EXPECT_EQ(parseNumber(currency + "7", dot), 7) << currency;
        EXPECT_EQ(parseNumber("7 " + currency, dot), 7) << currency;
        EXPECT_EQ(parseNumber(currency + "\u00A0-7", dot), -7) << currency;
    }
}

TEST(ParseNumber, RefusesWhatIsNoNumber) {
    const std::vector<std::string_view> refused = {
        "",
        " ",
        "\t\u00A0\u202F\u2003",
        "1,2,3.4,5",  // the last separator stands twice
        "1.2.3,4.5",
        "12abc",
        "abc",
        "12345678901234567890123456789012345678901",  // 41 digits
        "1,2345,678",
        "12,34,567",
        "1,,234",
        "1234,567,890",
        ",,250",
        "1,234,",
        "1 23",
        "1  234",
        " ,",
        ",",
        ".",
        "-",
        "+",
        "--5",
        "+-5",
        "-+5",
        "- 5",
        "$",
        "$$5",
        "$ - 5",
        "€%",
        "%",
        "5%%",
        "5%€5",
        "5€%",
        "()",
        "(",
        "(5",
        "5)",
        "((5))",
        "( 5 )",
        "(5 )",
        "5-",
        "1-2",
        "2024-05-11",
        "12:30",
        "1/2",
        "1e",
        "1e+",
        "e5",
        "1e3e4",
        "1e400",
        "-1e400",
        "1e99999999999999999999",
        "inf",
        "nan",
        "0x10",
        "1_000",
        "1'000",
        "12\n",  // a line break is not trimmed
        "\r\n12",
        "12 34.5",
        "1.5 0",  // no groups behind the decimal separator
        "1.2\u00A05",
        "٣",  // digits of other scripts
        "１２",
        "5\u0301",
        "\uFEFF5",
        "5\xA0",
        "¤5",
        "5 USD",
    };
    for (const auto text : refused) {
        EXPECT_EQ(parseNumber(text, dot), std::nullopt) << testing::PrintToString(text);
        EXPECT_EQ(parseNumber(text, comma), std::nullopt) << testing::PrintToString(text);
    }
}

TEST(ParseNumber, CountsCharactersAndNotBytes) {
    std::string text = "$ \u00A01";
    for (int i = 0; i < 9; ++i) {
        text += "\u202F234";
    }
    ASSERT_EQ(Text::characterCount(text), 40U);
    ASSERT_EQ(text.size(), 59U);
    EXPECT_TRUE(parseNumber(text, dot));
    EXPECT_FALSE(parseNumber("-" + text, dot));
    EXPECT_TRUE(parseNumber("  " + text + "  ", dot));  // outer spaces are off before the count
}

TEST(ParseNumber, GroupsAreOfCharactersNotOfDigits) {
    EXPECT_EQ(parseNumber("1e-,250", dot), 1e-250);
    EXPECT_EQ(parseNumber("1e-,250", comma), std::nullopt);
}

TEST(ParseNumber, TakesAutomaticAsDotDecimal) {
    EXPECT_EQ(parseNumber("1,250", NumberStyle::automatic), 1250);
    EXPECT_EQ(parseNumber("1.250", NumberStyle::automatic), 1.25);
}

TEST(DecimalSeparator, IsTheLastKindOrTheOnlyOne) {
    struct Case {
        std::string_view text;
        std::optional<char> asDot;
        std::optional<char> asComma;
    };
    const std::vector<Case> cases = {
        {"", '.', '.'},
        {"1250", '.', '.'},
        {"1,250.00", '.', '.'},
        {"1.250,00", ',', ','},
        {"1,2,3.4,5", std::nullopt, std::nullopt},
        {"1.2.3,4.5", std::nullopt, std::nullopt},
        {"1,250", '.', ','},
        {"1.250", '.', ','},
        {"12,250", '.', ','},
        {"123,250", '.', ','},
        {"1234,250", ',', ','},
        {"0,250", ',', ','},
        {"01,250", ',', ','},
        {",250", ',', ','},
        {"1,25", ',', ','},
        {"1,2500", ',', ','},
        {"1,25a", ',', ','},
        {"1,234,567", '.', '.'},
        {"1.234.567", ',', ','},
        {"a1b2c3,250", '.', ','},  // only the digits before it count
        {"1,250 €", ',', ','},
        {"$1,250", '.', ','},
        {"1,٢٥٠", '.', ','},  // digits of any script
        {"٠,250", '.', ','},  // but only this zero is "0"
        {"1,2é0", ',', ','},
        {"1,25\u0660\u0301", ',', ','},
        {"1.\u0301,5", ',', ','},  // a point under an accent is another character
    };
    for (const auto& [text, asDot, asComma] : cases) {
        EXPECT_EQ(decimalSeparator(text, dot), asDot) << text;
        EXPECT_EQ(decimalSeparator(text, NumberStyle::automatic), asDot) << text;
        EXPECT_EQ(decimalSeparator(text, comma), asComma) << text;
    }
}

TEST(CanonicalNumber, IsTheIntegerOrTwelveDigits) {
    struct Case {
        double value;
        std::string_view text;
    };
    const std::vector<Case> cases = {
        {0.0, "0"},
        {-0.0, "0"},
        {1250.0, "1250"},
        {-7.0, "-7"},
        {0.1 + 0.2, "0.3"},
        {0.5, "0.5"},
        {-0.125, "-0.125"},
        {3.14159265358979, "3.14159265359"},
        {1e15, "1e+15"},
        {-1e15, "-1e+15"},
        {999999999999999.0, "999999999999999"},
        {-999999999999999.0, "-999999999999999"},
        {999999999999999.5, "1e+15"},
        {123456789012345.5, "1.23456789012e+14"},
        {1e300, "1e+300"},
        {1.5e-7, "1.5e-07"},
        {0.0001, "0.0001"},
        {0.00001234, "1.234e-05"},
        {5e-324, "4.94065645841e-324"},
        {100.0 / 3, "33.3333333333"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(canonicalNumber(value), text);
    }
}

TEST(CanonicalNumber, AgreesWithTheCLibraryOnRandomNumbers) {
    std::mt19937_64 source(5);
    std::uniform_int_distribution<std::int64_t> hundredths(-100'000'000, 100'000'000);
    for (int i = 0; i < 20'000; ++i) {
        const double anything = std::bit_cast<double>(source());
        if (std::isfinite(anything)) {
            ASSERT_EQ(canonicalNumber(anything), SlowNormalizer::canonicalNumber(anything));
        }
        const double price = static_cast<double>(hundredths(source)) / 100;
        ASSERT_EQ(canonicalNumber(price), SlowNormalizer::canonicalNumber(price));
    }
}

// Bit by bit, so that the two zeros differ.
void expectReadersAgree(const std::string& text) {
    for (const auto style : {dot, comma}) {
        const auto fast = parseNumber(text, style);
        const auto slow = SlowNormalizer::parseNumber(text, style);
        ASSERT_EQ(fast.has_value(), slow.has_value()) << testing::PrintToString(text) << rawValue(style);
        if (fast) {
            ASSERT_EQ(std::bit_cast<std::uint64_t>(*fast), std::bit_cast<std::uint64_t>(*slow))
                << testing::PrintToString(text) << rawValue(style);
        }
        const auto separator = decimalSeparator(text, style);
        const auto slowSeparator = SlowNormalizer::decimalSeparator(SlowNormalizer::charactersOf(text), style);
        ASSERT_EQ(separator ? std::string(1, *separator) : "none", slowSeparator.value_or("none"))
            << testing::PrintToString(text) << rawValue(style);
    }
}

TEST(NumberReading, AgreesWithTheRulesOnAllShortTexts) {
    const AllTexts::Alphabet all = {"1", "0", ",", ".", "-", "(", ")", "%", "€", "e", " ", "\t", "\u00A0", "é"};
    AllTexts::forEach(all, 3, expectReadersAgree);
    AllTexts::forEach({"1", "0", ",", "."}, 6, expectReadersAgree);
    AllTexts::forEach({"1", "(", "-", "€", ")", "%"}, 4, expectReadersAgree);
    AllTexts::forEach({"1", "e", "-", ".", ","}, 5, expectReadersAgree);
    AllTexts::forEach({"1", "234", ",", "\u202F", "."}, 5, expectReadersAgree);
    AllTexts::forEach({"1", "٣", "\u0301", ",", "."}, 4, expectReadersAgree);
}

TEST(NumberReading, AgreesWithTheRulesOnRandomTexts) {
    const AllTexts::Alphabet alphabet = {
        "1", "9", "0", "5", "234", "567", ",", ".",  "-",      "+",      "(", ")",  "$",  "€",         "¢",   "%",
        "e", "E", " ", "+", "€",   "234", "(", "\t", "\u00A0", "\u202F", "é", "\n", "00", "123456789", "e30", "\xC2"};
    std::mt19937 source(6);
    for (int i = 0; i < 10'000; ++i) {
        expectReadersAgree(AllTexts::random(alphabet, 9, source));
    }
    const AllTexts::Alphabet digits = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "0", "0", "."};
    for (int i = 0; i < 2'000; ++i) {
        expectReadersAgree(AllTexts::random(digits, 20, source));
        expectReadersAgree(AllTexts::random(digits, 44, source));
    }
}

TEST(NumberReading, ReadsACanonicalTextToANumberOfThatText) {
    std::mt19937_64 source(7);
    std::uniform_real_distribution<double> exponents(-320, 308);
    for (int i = 0; i < 20'000; ++i) {
        const double value = std::pow(10, exponents(source));
        const std::string text = canonicalNumber(value);
        const auto read = parseNumber(text, dot);
        ASSERT_TRUE(read) << text;
        // From 10^12 on twelve digits leave a whole number, which is then written out.
        const bool isCutToWhole = value >= 1e12 && value < 1e15;
        ASSERT_EQ(canonicalNumber(*read), isCutToWhole ? canonicalNumber(std::round(*read)) : text);
    }
}

// The process's locale for one test.
class LocaleGuard {
public:
    LocaleGuard() : m_before(std::setlocale(LC_ALL, nullptr)) {}
    LocaleGuard(const LocaleGuard&) = delete;
    LocaleGuard& operator=(const LocaleGuard&) = delete;
    ~LocaleGuard() { std::setlocale(LC_ALL, m_before.c_str()); }

private:
    std::string m_before;
};

TEST(NumberReading, DoesNotDependOnTheLocale) {
    const LocaleGuard guard;
    bool found = false;
    for (const char* name : {"tr_TR.UTF-8", "tr_TR.utf8", "de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8"}) {
        if (std::setlocale(LC_ALL, name) != nullptr) {
            found = true;
            EXPECT_EQ(parseNumber("1234.5", dot), 1234.5) << name;
            EXPECT_EQ(parseNumber("1,250", dot), 1250) << name;
            EXPECT_EQ(parseNumber("1e-3", comma), 0.001) << name;
            EXPECT_EQ(canonicalNumber(0.5), "0.5") << name;
            EXPECT_EQ(canonicalNumber(1234567.25), "1234567.25") << name;
            EXPECT_EQ(classify("TITLE", "title", dot), ChangeKind::letterCase) << name;
            EXPECT_EQ(classify("I", "ı", dot), ChangeKind::value) << name;
            EXPECT_EQ(normalizeWhitespace(" a  b"), "a b") << name;
        }
    }
    if (!found) {
        GTEST_SKIP() << "No locale with a decimal comma or Turkish letters is installed.";
    }
}

}  // namespace
}  // namespace corvale::Normalizer
