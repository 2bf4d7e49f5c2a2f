#include "CorvaleKit/reports/CellShape.h"

#include <algorithm>
#include <charconv>
#include <chrono>

namespace corvale::CellShape {

namespace {

constexpr int minutesOfHour = 60;
constexpr int minutesOfDay = 24 * minutesOfHour;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Digits at 'd', anything else as it stands.
bool fits(std::string_view text, std::string_view pattern) {
    return std::equal(text.begin(), text.end(), pattern.begin(), pattern.end(), [](char c, char expected) {
        return expected == 'd' ? isDigit(c) : c == expected;
    });
}

int numberAt(std::string_view text, std::size_t place, std::size_t digits) {
    int number = 0;
    for (const char c : text.substr(place, digits)) {
        number = number * 10 + (c - '0');
    }
    return number;
}

// For a text that begins as a date.
std::optional<int> dayNumber(std::string_view text) {
    using namespace std::chrono_literals;
    constexpr int firstDay = 61;
    constexpr int lastDay = 2'958'465;
    const std::chrono::year_month_day date(std::chrono::year(numberAt(text, 0, 4)),
                                           std::chrono::month(static_cast<unsigned>(numberAt(text, 5, 2))),
                                           std::chrono::day(static_cast<unsigned>(numberAt(text, 8, 2))));
    if (!date.ok()) {
        return std::nullopt;
    }
    constexpr std::chrono::sys_days dayZero = 1899y / 12 / 30;
    const auto day = static_cast<int>((std::chrono::sys_days(date) - dayZero).count());
    return day >= firstDay && day <= lastDay ? std::optional(day) : std::nullopt;
}

// For a text that ends as a time of day.
std::optional<int> minuteOfDay(std::string_view text) {
    const int hour = numberAt(text, 11, 2);
    const int minute = numberAt(text, 14, 2);
    return hour < 24 && minute < minutesOfHour ? std::optional(hour * minutesOfHour + minute) : std::nullopt;
}

}  // namespace

DateSerial::DateSerial(int day)
    : m_size(static_cast<std::size_t>(std::to_chars(m_text.data(), m_text.data() + m_text.size(), day).ptr -
                                      m_text.data())) {}

DateSerial::DateSerial(int day, int minuteOfDay) : m_hasTime(true) {
    const double serial = day + static_cast<double>(minuteOfDay) / minutesOfDay;
    const auto end =
        std::to_chars(m_text.data(), m_text.data() + m_text.size(), serial, std::chars_format::general, 10).ptr;
    m_size = static_cast<std::size_t>(end - m_text.data());
}

std::optional<DateSerial> dateSerial(std::string_view text) {
    const bool isDate = fits(text, "dddd-dd-dd");
    if (!isDate && !fits(text, "dddd-dd-dd dd:dd")) {
        return std::nullopt;
    }
    const auto day = dayNumber(text);
    if (!day || isDate) {
        return day ? std::optional(DateSerial(*day)) : std::nullopt;
    }
    const auto minute = minuteOfDay(text);
    return minute ? std::optional(DateSerial(*day, *minute)) : std::nullopt;
}

bool isPlainNumber(std::string_view text) {
    constexpr std::size_t longest = 16;
    if (text.size() > longest) {
        return false;
    }
    if (text.starts_with('-')) {
        text.remove_prefix(1);
    }
    if (text.empty() || !isDigit(text.front()) || !isDigit(text.back())) {
        return false;
    }
    const auto points = std::count(text.begin(), text.end(), '.');
    const auto digits = std::count_if(text.begin(), text.end(), isDigit);
    if (points > 1 || static_cast<std::size_t>(points + digits) != text.size()) {
        return false;
    }
    return text.front() != '0' || text.size() == 1 || text[1] == '.';
}

}  // namespace corvale::CellShape
