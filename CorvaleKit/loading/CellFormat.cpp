#include "CorvaleKit/loading/CellFormat.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "CorvaleKit/base/Numbers.h"
#include "CorvaleKit/loading/SerialDate.h"
#include "CorvaleKit/text/Text.h"

namespace corvale::XLSX {

namespace {

constexpr int significantDigits = 15;

// Doubles below it hold every whole number exactly.
constexpr double wholeLimit = 1e15;

bool isWhole(double value) { return std::abs(value) < wholeLimit && std::trunc(value) == value; }

void appendPadded(std::string& target, std::int64_t value, std::size_t width) {
    std::array<char, 20> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    const auto length = static_cast<std::size_t>(end - digits.data());
    target.append(width - std::min(width, length), '0');
    target.append(digits.data(), length);
}

void appendGeneral(std::string& target, double value) {
    if (isWhole(value)) {
        Numbers::append(target, static_cast<std::int64_t>(value));
    } else {
        Numbers::append(target, value, std::chars_format::general, significantDigits);
    }
}

void appendZeroPadded(std::string& target, double value, std::int64_t digits) {
    if (!isWhole(value)) {
        appendGeneral(target, value);
        return;
    }
    if (value < 0) {
        target += '-';
    }
    appendPadded(target, std::abs(static_cast<std::int64_t>(value)), static_cast<std::size_t>(digits));
}

void appendDate(std::string& target, std::chrono::year_month_day date) {
    appendPadded(target, static_cast<int>(date.year()), 4);
    target += '-';
    appendPadded(target, static_cast<unsigned>(date.month()), 2);
    target += '-';
    appendPadded(target, static_cast<unsigned>(date.day()), 2);
}

void appendClock(std::string& target, const SerialDate::DateTime& moment) {
    appendPadded(target, moment.hours, 2);
    target += ':';
    appendPadded(target, moment.minutes, 2);
}

void appendDateTime(std::string& target, const SerialDate::DateTime& moment) {
    appendDate(target, moment.date);
    if (moment.hours != 0 || moment.minutes != 0) {
        target += ' ';
        appendClock(target, moment);
    }
}

void appendMoment(std::string& target, double value, NumberFormat::Kind kind, bool date1904) {
    const auto moment = SerialDate::fromDayNumber(value, date1904);
    if (!moment) {
        appendGeneral(target, value);
    } else if (kind == NumberFormat::Kind::date) {
        appendDate(target, moment->date);
    } else if (kind == NumberFormat::Kind::time) {
        appendClock(target, *moment);
    } else {
        appendDateTime(target, *moment);
    }
}

void appendFormatted(std::string& target, double value, NumberFormat format, bool date1904) {
    switch (format.kind) {
        case NumberFormat::Kind::zeroPadded:
            appendZeroPadded(target, value, format.digits);
            return;
        case NumberFormat::Kind::general:
            appendGeneral(target, value);
            return;
        case NumberFormat::Kind::date:
        case NumberFormat::Kind::dateTime:
        case NumberFormat::Kind::time:
            appendMoment(target, value, format.kind, date1904);
            return;
        case NumberFormat::Kind::percent:
            appendGeneral(target, value * 100);
            target += '%';
            return;
    }
}

std::size_t digitRun(std::string_view text, std::size_t from) {
    std::size_t end = from;
    while (end < text.size() && text[end] >= '0' && text[end] <= '9') {
        ++end;
    }
    return end - from;
}

// Zeros after the point that %.15g writes before it takes to an exponent.
constexpr std::size_t mostLeadingZeros = 3;

bool isPlainBelowOne(std::string_view fraction) {
    const std::size_t zeros = fraction.find_first_not_of('0');
    return zeros <= mostLeadingZeros && fraction.size() - zeros <= significantDigits;
}

}  // namespace

bool isPlainDecimal(std::string_view raw) {
    const bool negative = raw.starts_with('-');
    const std::size_t first = negative ? 1 : 0;
    const std::size_t whole = digitRun(raw, first);
    const std::size_t point = first + whole;
    if (whole == 0) {
        return false;
    }
    const bool belowOne = raw[first] == '0';
    if (belowOne && whole > 1) {
        return false;
    }
    if (point == raw.size()) {
        return whole <= significantDigits && !(belowOne && negative);
    }
    const std::size_t decimals = digitRun(raw, point + 1);
    if (raw[point] != '.' || point + 1 + decimals != raw.size() || raw.back() == '0' || decimals == 0) {
        return false;
    }
    return belowOne ? isPlainBelowOne(raw.substr(point + 1)) : whole + decimals <= significantDigits;
}

std::string_view displayText(std::string_view raw, NumberFormat format, bool date1904, std::string& scratch) {
    if (format.kind == NumberFormat::Kind::general && isPlainDecimal(raw)) {
        return raw;
    }
    const auto value = Numbers::decimal(Text::trimSpaces(raw));
    if (!value) {
        return raw;
    }
    scratch.clear();
    appendFormatted(scratch, *value, format, date1904);
    return scratch;
}

std::string formatCell(std::string_view raw, NumberFormat format, bool date1904) {
    std::string scratch;
    return std::string(displayText(raw, format, date1904, scratch));
}

}  // namespace corvale::XLSX
