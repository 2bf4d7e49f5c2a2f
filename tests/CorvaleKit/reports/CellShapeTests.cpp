#include <gtest/gtest.h>

#include <array>
#include <locale>
#include <optional>
#include <random>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "CorvaleKit/reports/CellShape.h"
#include "tests/support/AllTexts.h"

namespace corvale {
namespace {

// The serial as written, with a "t" before it when it has a time; empty for what is no date.
std::string serial(std::string_view text) {
    const auto date = CellShape::dateSerial(text);
    return date ? (date->hasTime() ? "t" : "") + std::string(date->text()) : "";
}

TEST(CellShape, DatesAreDayNumbers) {
    struct Case {
        std::string text;
        std::string serial;
    };
    const std::vector<Case> cases = {
        {"2024-02-29", "45351"}, {"2023-02-29", ""},   {"2000-02-29", "36585"}, {"1900-02-29", ""},
        {"2100-02-29", ""},      {"1900-03-01", "61"}, {"1900-02-28", ""},      {"1899-12-30", ""},
        {"0999-01-01", ""},      {"0000-01-01", ""},   {"1970-01-01", "25569"}, {"9999-12-31", "2958465"},
        {"2024-00-01", ""},      {"2024-13-01", ""},   {"2024-01-00", ""},      {"2024-01-32", ""},
        {"2024-04-31", ""},      {"2024-1-1", ""},     {"24-01-01", ""},        {"2024/01/01", ""},
        {"2024-01-01 ", ""},     {" 2024-01-01", ""},  {"2024-01-011", ""},     {"-024-01-01", ""},
        {"2024--1-01", ""},      {"٢٠٢٤-٠١-٠١", ""},   {"10000-01-01", ""},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(serial(text), expected) << text;
    }
}

TEST(CellShape, DatesWithATimeHaveTheShareOfTheDay) {
    struct Case {
        std::string text;
        std::string serial;
    };
    const std::vector<Case> cases = {
        {"2024-03-01 14:30", "t45352.60417"},
        {"2024-03-01 00:00", "t45352"},
        {"2024-03-01 12:00", "t45352.5"},
        {"2024-03-01 00:01", "t45352.00069"},
        {"2024-03-01 23:59", "t45352.99931"},
        {"1900-03-01 06:00", "t61.25"},
        {"1900-03-01 00:01", "t61.00069444"},
        {"9999-12-31 23:59", "t2958465.999"},
        {"1900-02-28 23:59", ""},
        {"2024-03-01 24:00", ""},
        {"2024-03-01 12:60", ""},
        {"2023-02-29 12:00", ""},
        {"2024-03-01T12:00", ""},
        {"2024-03-01 12.00", ""},
        {"2024-03-01 1:30", ""},
        {"2024-03-01 12:00:00", ""},
        {"2024-03-01  2:00", ""},
        {"2024-03-01 -1:00", ""},
        {"2024-03-01 12:0a", ""},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(serial(text), expected) << text;
    }
}

TEST(CellShape, PlainNumbers) {
    for (const std::string text : {"0",
                                   "7",
                                   "42",
                                   "-42",
                                   "-3.5",
                                   "0.25",
                                   "-0",
                                   "-0.0",
                                   "0.0",
                                   "10",
                                   "1.50",
                                   "1234567890123456",
                                   "-123456789012345",
                                   "12345678901234.5"}) {
        EXPECT_TRUE(CellShape::isPlainNumber(text)) << text;
    }
}

TEST(CellShape, AllElseIsNoPlainNumber) {
    for (const std::string text : {"",
                                   "-",
                                   "--1",
                                   "0042",
                                   "007",
                                   "-007",
                                   "01.5",
                                   "00",
                                   "00.5",
                                   "1e5",
                                   "1E5",
                                   "1,000",
                                   "1.000.000",
                                   "+7",
                                   " 7",
                                   "7 ",
                                   "1 000",
                                   ".5",
                                   "5.",
                                   "-.5",
                                   "-5.",
                                   ".",
                                   "1-",
                                   "1..2",
                                   "0x10",
                                   "inf",
                                   "nan",
                                   "٣",
                                   "１２",
                                   "12345678901234567",
                                   "-1234567890123456",
                                   "=1+1"}) {
        EXPECT_FALSE(CellShape::isPlainNumber(text)) << text;
    }
}

bool isPlainNumberSlowly(const std::string& text) {
    static const std::regex shape("-?(0|[1-9][0-9]*)(\\.[0-9]+)?");
    return text.size() <= 16 && std::regex_match(text, shape);
}

TEST(CellShape, NumbersAgreeWithTheSlowFormOnAllShortTexts) {
    AllTexts::forEach({"0", "1", "9", "-", ".", "+", "e"}, 5, [](const std::string& text) {
        ASSERT_EQ(CellShape::isPlainNumber(text), isPlainNumberSlowly(text)) << text;
    });
}

TEST(CellShape, NumbersAgreeWithTheSlowFormOnRandomTexts) {
    const AllTexts::Alphabet mostlyDigits = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "5", "3", ".", "-", ","};
    std::mt19937 source(11);
    for (int i = 0; i < 20'000; ++i) {
        const std::string text = AllTexts::random(mostlyDigits, 18, source);
        ASSERT_EQ(CellShape::isPlainNumber(text), isPlainNumberSlowly(text)) << text;
    }
}

std::string padded(int number, std::size_t width) {
    const std::string digits = std::to_string(number);
    return std::string(width > digits.size() ? width - digits.size() : 0, '0') + digits;
}

std::string dateText(int year, int month, int day) {
    return padded(year, 4) + '-' + padded(month, 2) + '-' + padded(day, 2);
}

int daysIn(int year, int month) {
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    const std::array<int, 12> days = {31, leap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return days.at(static_cast<std::size_t>(month - 1));
}

TEST(CellShape, DatesFollowACalendarTurnedPageByPage) {
    int expected = 2;  // 1900-01-01, where 1899-12-30 is 0
    for (int year = 1900; year <= 2200; ++year) {
        for (int month = 1; month <= 12; ++month) {
            for (int day = 1; day <= daysIn(year, month); ++day, ++expected) {
                const std::string text = dateText(year, month, day);
                ASSERT_EQ(serial(text), expected >= 61 ? std::to_string(expected) : "") << text;
            }
        }
    }
}

TEST(CellShape, DaysThatNoMonthHasAreNoDates) {
    for (const int year : {1900, 1999, 2000, 2023, 2024, 9999}) {
        for (int month = 0; month < 100; ++month) {
            for (int day = 0; day < 100; ++day) {
                const bool exists = month >= 1 && month <= 12 && day >= 1 && day <= daysIn(year, month);
                const bool isEarly = year == 1900 && month < 3;
                const std::string text = dateText(year, month, day);
                ASSERT_EQ(!serial(text).empty(), exists && !isEarly) << text;
            }
        }
    }
}

TEST(CellShape, EveryMinuteHasTenSignificantDigits) {
    std::ostringstream expected;
    expected.imbue(std::locale::classic());
    expected.precision(10);
    for (int minute = 0; minute < 100 * 100; ++minute) {
        const int hours = minute / 100;
        const int minutes = minute % 100;
        const std::string text = "2024-03-01 " + padded(hours, 2) + ':' + padded(minutes, 2);
        expected.str({});
        if (hours < 24 && minutes < 60) {
            expected << 't' << 45352 + (hours * 60 + minutes) / 1440.0;
        }
        ASSERT_EQ(serial(text), expected.str()) << text;
    }
}

// Read with a regular expression and counted from a known day.
std::string slowSerial(const std::string& text) {
    static const std::regex shape("([0-9]{4})-([0-9]{2})-([0-9]{2})( [0-9]{2}:[0-9]{2})?");
    std::smatch match;
    if (!std::regex_match(text, match, shape)) {
        return "";
    }
    const int year = std::stoi(match[1]);
    const int month = std::stoi(match[2]);
    const int day = std::stoi(match[3]);
    if (month < 1 || month > 12 || day < 1 || day > daysIn(year, month) || dateText(year, month, day) < "1900-03-01") {
        return "";
    }
    int days = 2;  // 1900-01-01
    for (int y = 1900; y < year; ++y) {
        days += daysIn(y, 2) == 29 ? 366 : 365;
    }
    for (int m = 1; m < month; ++m) {
        days += daysIn(year, m);
    }
    days += day - 1;
    if (!match[4].matched) {
        return std::to_string(days);
    }
    const int hours = std::stoi(match[4].str().substr(1, 2));
    const int minutes = std::stoi(match[4].str().substr(4, 2));
    std::ostringstream number;
    number.imbue(std::locale::classic());
    number.precision(10);
    number << 't' << days + (hours * 60 + minutes) / 1440.0;
    return hours < 24 && minutes < 60 ? number.str() : "";
}

TEST(CellShape, DatesAgreeWithTheSlowFormWhereTwoBytesAreReplaced) {
    const std::string_view letters = "0123569-: .a\xC3";
    for (const std::string date : {"2024-02-29", "1900-03-01", "2024-03-31 23:59", "1999-10-10 09:00"}) {
        for (std::size_t first = 0; first < date.size(); ++first) {
            for (std::size_t second = first; second < date.size(); ++second) {
                for (std::size_t i = 0; i < letters.size() * letters.size(); ++i) {
                    std::string text = date;
                    text[first] = letters[i / letters.size()];
                    text[second] = letters[i % letters.size()];
                    ASSERT_EQ(serial(text), slowSerial(text)) << text;
                }
            }
        }
    }
}

TEST(CellShape, DatesAgreeWithTheSlowFormWhereTheyAreCutOrExtended) {
    const std::string date = "2024-03-01 14:30";
    for (std::size_t length = 0; length <= date.size(); ++length) {
        for (const std::string tail : {"", "0", " ", "-", ":", "\n"}) {
            const std::string text = date.substr(0, length) + tail;
            EXPECT_EQ(serial(text), slowSerial(text)) << text;
        }
    }
}

}  // namespace
}  // namespace corvale
