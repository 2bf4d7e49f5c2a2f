#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "CorvaleKit/base/Numbers.h"

namespace corvale {
namespace {

TEST(Numbers, IntegersAreASignAndDigits) {
    struct Case {
        std::string text;
        std::optional<std::int64_t> value;
    };
    const std::vector<Case> cases = {
        {"0", 0},
        {"7", 7},
        {"+7", 7},
        {"-7", -7},
        {"-0", 0},
        {"007", 7},
        {"123456789012345678", 123456789012345678},
        {"1234567890123456789", 1234567890123456789},
        {"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
        {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
        {std::string(50, '0') + "5", 5},
        {"9223372036854775808", std::nullopt},
        {"-9223372036854775809", std::nullopt},
        {"99999999999999999999999", std::nullopt},
        {"", std::nullopt},
        {"+", std::nullopt},
        {"-", std::nullopt},
        {"+-7", std::nullopt},
        {"-+7", std::nullopt},
        {"--7", std::nullopt},
        {"++7", std::nullopt},
        {" 7", std::nullopt},
        {"7 ", std::nullopt},
        {"7.0", std::nullopt},
        {"7a", std::nullopt},
        {"0x7", std::nullopt},
        {"1,000", std::nullopt},
        {"٧", std::nullopt},
        {std::string("7\0", 2), std::nullopt},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(Numbers::integer(text), value) << text;
    }
}

TEST(Numbers, IntegersOfEveryLengthRead) {
    const std::string digits = "1234567890123456789";
    std::int64_t value = 0;
    for (std::size_t length = 1; length <= digits.size(); ++length) {
        value = value * 10 + static_cast<std::int64_t>(length % 10);
        EXPECT_EQ(Numbers::integer(digits.substr(0, length)), value);
        EXPECT_EQ(Numbers::integer("-" + digits.substr(0, length)), -value);
        EXPECT_EQ(Numbers::integer("+" + digits.substr(0, length)), value);
    }
}

TEST(Numbers, DecimalsAreReadWholeOrNotAtAll) {
    struct Case {
        std::string text;
        std::optional<double> value;
    };
    const std::vector<Case> cases = {
        {"0", 0.0},
        {"42", 42.0},
        {"+42", 42.0},
        {"-42.5", -42.5},
        {".5", 0.5},
        {"-.5", -0.5},
        {"5.", 5.0},
        {"1e3", 1000.0},
        {"1E+3", 1000.0},
        {"1.5e-3", 0.0015},
        {"0.30000000000000004", 0.1 + 0.2},
        {"1.7976931348623157e308", std::numeric_limits<double>::max()},
        {"5e-324", std::numeric_limits<double>::denorm_min()},
        {"", std::nullopt},
        {"+", std::nullopt},
        {"-", std::nullopt},
        {".", std::nullopt},
        {"e5", std::nullopt},
        {"5e", std::nullopt},
        {"5e+", std::nullopt},
        {"+-5", std::nullopt},
        {"-+5", std::nullopt},
        {"1 2", std::nullopt},
        {" 1", std::nullopt},
        {"1,5", std::nullopt},
        {"1.2.3", std::nullopt},
        {"inf", std::nullopt},
        {"-inf", std::nullopt},
        {"Infinity", std::nullopt},
        {"nan", std::nullopt},
        {"-NaN", std::nullopt},
        {"nan(1)", std::nullopt},
        {"0x10", std::nullopt},
        {"0x1p3", std::nullopt},
        {"1d", std::nullopt},
        {"#N/A", std::nullopt},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(Numbers::decimal(text), value) << text;
    }
}

TEST(Numbers, DecimalsOutOfRangeAreNoneOrZero) {
    const std::string zeros(400, '0');
    const std::vector<std::string> tooLarge = {
        "1e309",
        "-1e309",
        "1e99999999999999999999",
        "1" + zeros,
        "-1" + zeros + ".5",
        "0.001e400",
        "1" + zeros + "e-50",
        "1e9223372036854775807",
        "1e9223372036854775808",
        "1e18446744073709551616",
        "-1e99999999999999999999",
        "0.001e9223372036854775807",
        ".1e+9223372036854775808",
        "1.e9223372036854775807",
        zeros + "1e9223372036854775807",
    };
    for (const auto& text : tooLarge) {
        EXPECT_EQ(Numbers::decimal(text), std::nullopt) << text;
    }
    const std::vector<std::string> tooSmall = {
        "1e-400",
        "-1e-400",
        "1e-99999999999999999999",
        "0." + zeros + "1",
        "1000e-400",
        "." + zeros + "1e50",
        "+1e-400",
        "1e-9223372036854775808",
        "1e-9223372036854775809",
        "1e-18446744073709551616",
        "-1e-99999999999999999999",
        "0.001e-9223372036854775808",
        "1000e-9223372036854775808",
        ".1e-9223372036854775809",
        "1" + zeros + "e-9223372036854775807",
    };
    for (const auto& text : tooSmall) {
        EXPECT_EQ(Numbers::decimal(text), 0.0) << text;
    }
}

TEST(Numbers, LongMantissasAndExponentsMayCancelOut) {
    const std::string zeros(400, '0');
    EXPECT_EQ(Numbers::decimal("1" + zeros + "e-400"), 1.0);
    EXPECT_EQ(Numbers::decimal("0." + zeros + "1e401"), 1.0);
    EXPECT_EQ(Numbers::decimal("0e99999999999999999999"), 0.0);
    EXPECT_EQ(Numbers::decimal("0." + zeros + "e400"), 0.0);
}

TEST(Numbers, NothingTimesAnyPowerIsNothing) {
    for (const std::string exponent : {"9223372036854775807",
                                       "9223372036854775808",
                                       "18446744073709551616",
                                       "-9223372036854775808",
                                       "-9223372036854775809",
                                       "-99999999999999999999"}) {
        for (const std::string nothing : {"0", "-0", "+0", "0.000", ".0", "0000."}) {
            EXPECT_EQ(Numbers::decimal(nothing + "e" + exponent), 0.0) << nothing << "e" << exponent;
        }
    }
}

TEST(Numbers, AreAppendedWhateverTheirLength) {
    std::string text = "x";
    Numbers::append(text, std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(text, "x-9223372036854775808");
    text = "x";
    Numbers::append(text, -std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(text, "x-5e-324");
    text = "x";
    Numbers::append(text, -2.2250738585072014e-308);
    EXPECT_EQ(text, "x-2.2250738585072014e-308");
    text = "x";
    Numbers::append(text, -2.2250738585072014e-308, std::chars_format::general, 17);
    EXPECT_EQ(text, "x-2.2250738585072014e-308");
}

TEST(Numbers, AnExponentAloneIsNoNumber) {
    for (const std::string exponent :
         {"e9223372036854775807", "e9223372036854775808", "e-9223372036854775809", "E99999999999999999999"}) {
        for (const std::string before : {"", "-", "+", ".", "-."}) {
            EXPECT_EQ(Numbers::decimal(before + exponent), std::nullopt) << before << exponent;
        }
    }
}

}  // namespace
}  // namespace corvale
