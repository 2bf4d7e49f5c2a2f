#include <gtest/gtest.h>

#include <cmath>
#include <iomanip>
#include <locale>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "CorvaleKit/base/Numbers.h"
#include "CorvaleKit/loading/CellFormat.h"

namespace corvale::XLSX {
namespace {

using Kind = NumberFormat::Kind;

struct Case {
    std::string raw;
    NumberFormat format;
    std::string text;
};

void expectTexts(const std::vector<Case>& cases, bool date1904 = false) {
    for (const auto& [raw, format, text] : cases) {
        EXPECT_EQ(formatCell(raw, format, date1904), text) << raw << ", kind " << static_cast<int>(format.kind);
    }
}

TEST(CellFormat, WhatIsNoNumberStaysAsItIs) {
    for (const auto kind : {Kind::zeroPadded, Kind::general, Kind::date, Kind::dateTime, Kind::time, Kind::percent}) {
        for (const std::string raw :
             {"", " ", "#N/A", "#DIV/0!", " text ", "1,5", "0x10", "inf", "nan", "1e400", "1 2"}) {
            EXPECT_EQ(formatCell(raw, {kind, 5}, false), raw);
        }
    }
}

TEST(CellFormat, GeneralNumbersHaveNoSpuriousDecimals) {
    expectTexts({
        {"1234.0", {}, "1234"},
        {"0.30000000000000004", {}, "0.3"},
        {"1E3", {}, "1000"},
        {"+5", {}, "5"},
        {"-5", {}, "-5"},
        {"-0", {}, "0"},
        {"-0.0", {}, "0"},
        {"-1e-400", {}, "0"},
        {"007", {}, "7"},
        {".5", {}, "0.5"},
        {"5.", {}, "5"},
        {"2.50", {}, "2.5"},
        {"999999999999999", {}, "999999999999999"},
        {"-999999999999999", {}, "-999999999999999"},
        {"1000000000000000", {}, "1e+15"},
        {"-1000000000000000", {}, "-1e+15"},
        {"1234567890123456", {}, "1.23456789012346e+15"},
        {"999999999999999.5", {}, "1e+15"},
        {"0.0001", {}, "0.0001"},
        {"0.00001", {}, "1e-05"},
        {"1.5e-7", {}, "1.5e-07"},
        {"1e300", {}, "1e+300"},
        {"3.14159265358979323846", {}, "3.14159265358979"},
    });
}

TEST(CellFormat, SpacesAndTabsAroundANumberAreDropped) {
    expectTexts({
        {" 42 ", {}, "42"},
        {"\t42\t", {}, "42"},
        {"\u00A042", {}, "42"},
        {"42\n", {}, "42\n"},
        {" 42 ", {Kind::zeroPadded, 5}, "00042"},
    });
}

TEST(CellFormat, ZeroPaddedNumbersKeepTheirZeros) {
    expectTexts({
        {"42", {Kind::zeroPadded, 5}, "00042"},
        {"-42", {Kind::zeroPadded, 5}, "-00042"},
        {"42.5", {Kind::zeroPadded, 5}, "42.5"},
        {"42.0", {Kind::zeroPadded, 5}, "00042"},
        {"0", {Kind::zeroPadded, 2}, "00"},
        {"-0", {Kind::zeroPadded, 2}, "00"},
        {"123456", {Kind::zeroPadded, 5}, "123456"},
        {"999999999999999", {Kind::zeroPadded, 16}, "0999999999999999"},
        {"1000000000000000", {Kind::zeroPadded, 20}, "1e+15"},
        {"7", {Kind::zeroPadded, 40}, std::string(39, '0') + "7"},
    });
}

TEST(CellFormat, DatesAreIsoDates) {
    expectTexts({
        {"44197", {Kind::date}, "2021-01-01"},
        {"44197.99", {Kind::date}, "2021-01-01"},
        {"44197.999999", {Kind::date}, "2021-01-02"},
        {"0", {Kind::date}, "1899-12-31"},
        {"1", {Kind::date}, "1900-01-01"},
        {"59", {Kind::date}, "1900-02-28"},
        {"60", {Kind::date}, "1900-02-28"},
        {"61", {Kind::date}, "1900-03-01"},
        {"2958465", {Kind::date}, "9999-12-31"},
    });
}

TEST(CellFormat, TimesAreHoursAndMinutes) {
    expectTexts({
        {"0.5", {Kind::time}, "12:00"},
        {"44197.75", {Kind::time}, "18:00"},
        {"0", {Kind::time}, "00:00"},
        {"0.000694444444444444", {Kind::time}, "00:01"},
        {"0.00069", {Kind::time}, "00:01"},
        {"0.00068", {Kind::time}, "00:00"},
        {"0.999999", {Kind::time}, "00:00"},
        {"1.5", {Kind::time}, "12:00"},
    });
}

TEST(CellFormat, DateTimesLeaveMidnightOut) {
    expectTexts({
        {"44197.5", {Kind::dateTime}, "2021-01-01 12:00"},
        {"44197", {Kind::dateTime}, "2021-01-01"},
        {"44197.0003", {Kind::dateTime}, "2021-01-01"},
        {"44197.0007", {Kind::dateTime}, "2021-01-01 00:01"},
        {"44197.999999", {Kind::dateTime}, "2021-01-02"},
    });
}

TEST(CellFormat, TheOtherDateSystemStartsInTheYear1904) {
    expectTexts(
        {
            {"0", {Kind::date}, "1904-01-01"},
            {"59", {Kind::date}, "1904-02-29"},
            {"42735.5", {Kind::dateTime}, "2021-01-01 12:00"},
            {"2958465", {Kind::date}, "10004-01-01"},
        },
        true);
}

TEST(CellFormat, WhatIsNoDayNumberIsGeneral) {
    for (const auto kind : {Kind::date, Kind::dateTime, Kind::time}) {
        expectTexts({{"-1", {kind}, "-1"},
                     {"-0.50", {kind}, "-0.5"},
                     {"2958466", {kind}, "2958466"},
                     {"2958465.9995", {kind}, "2958465.9995"},
                     {"1e20", {kind}, "1e+20"}});
    }
}

TEST(CellFormat, PercentagesAreHundredths) {
    expectTexts({
        {"0.1", {Kind::percent}, "10%"},
        {"0.07", {Kind::percent}, "7%"},
        {"1", {Kind::percent}, "100%"},
        {"0.12345", {Kind::percent}, "12.345%"},
        {"-0.5", {Kind::percent}, "-50%"},
        {"0", {Kind::percent}, "0%"},
        {"1e20", {Kind::percent}, "1e+22%"},
    });
}

TEST(CellFormat, PlainDecimalsAreTheirOwnText) {
    for (const std::string raw : {"0",
                                  "7",
                                  "1250",
                                  "-5",
                                  "998.4",
                                  "-0.5",
                                  "0.0001",
                                  "123456789012345",
                                  "0.123456789012345",
                                  "12345678.9012345",
                                  "-999999999999999"}) {
        EXPECT_TRUE(isPlainDecimal(raw)) << raw;
    }
    for (const std::string raw : {"",
                                  "-",
                                  "+1",
                                  "-0",
                                  "00",
                                  "01",
                                  "1.",
                                  ".5",
                                  "1.0",
                                  "1.50",
                                  "0.00001",
                                  "1e5",
                                  " 1",
                                  "1 ",
                                  "1234567890123456",
                                  "0.1234567890123456",
                                  "1.2.3",
                                  "1,5",
                                  "abc",
                                  "-.5",
                                  "1.5.",
                                  "--1"}) {
        EXPECT_FALSE(isPlainDecimal(raw)) << raw;
    }
}

// The general format by way of a stream, which writes as %.15g does.
std::string slowGeneral(double value) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    if (std::abs(value) < 1e15 && std::floor(value) == value) {
        text << static_cast<std::int64_t>(value);
    } else {
        text << std::setprecision(15) << value;
    }
    return text.str();
}

void expectSameAsSlow(const std::string& raw) {
    const auto value = Numbers::decimal(raw);
    ASSERT_EQ(formatCell(raw, {}, false), value ? slowGeneral(*value) : raw) << raw;
}

TEST(CellFormat, GeneralAgreesWithItsTwinOnAllShortTexts) {
    const std::string alphabet = "019.-e";
    for (std::size_t length = 0; length <= 6; ++length) {
        std::vector<std::size_t> digits(length, 0);
        for (bool done = false; !done;) {
            std::string raw;
            for (const std::size_t digit : digits) {
                raw += alphabet[digit];
            }
            expectSameAsSlow(raw);
            done = true;
            for (std::size_t& digit : digits) {
                digit = (digit + 1) % alphabet.size();
                if (digit != 0) {
                    done = false;
                    break;
                }
            }
        }
    }
}

TEST(CellFormat, GeneralAgreesWithItsTwinOnRandomNumbers) {
    std::mt19937_64 random(11);
    for (int i = 0; i < 20'000; ++i) {
        std::string raw = random() % 2 == 0 ? "-" : "";
        for (std::size_t left = random() % 18; left > 0; --left) {
            raw += static_cast<char>('0' + random() % 10);
        }
        if (random() % 2 == 0) {
            raw += '.';
            for (std::size_t left = random() % 18; left > 0; --left) {
                raw += random() % 3 == 0 ? '0' : static_cast<char>('0' + random() % 10);
            }
        }
        if (random() % 8 == 0) {
            raw += "e" + std::to_string(static_cast<int>(random() % 40) - 20);
        }
        expectSameAsSlow(raw);
    }
}

TEST(CellFormat, DisplayTextCopiesOnlyWhatItMust) {
    std::string scratch;
    const std::string plain = "1250";
    EXPECT_EQ(displayText(plain, {}, false, scratch).data(), plain.data());
    const std::string padded = "7";
    EXPECT_EQ(displayText(padded, {Kind::zeroPadded, 3}, false, scratch), "007");
    EXPECT_EQ(displayText(padded, {Kind::percent}, false, scratch), "700%");
}

}  // namespace
}  // namespace corvale::XLSX
