#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

// Which texts a report holds as numbers and dates, so that spreadsheet programs can reckon with them and sort them. A
// date they show as the text was; a number may look otherwise: 1.50 as 1.5, and what has 16 digits loses the last.
namespace corvale::CellShape {

// The day number of a date as a cell holds it.
class DateSerial {
public:
    // `day` counts from 1899-12-30 as day 0.
    explicit DateSerial(int day);
    DateSerial(int day, int minuteOfDay);

    bool hasTime() const { return m_hasTime; }
    // A decimal number; lives as long as this object.
    std::string_view text() const& { return {m_text.data(), m_size}; }
    std::string_view text() const&& = delete;

private:
    std::array<char, 24> m_text{};
    std::size_t m_size = 0;
    bool m_hasTime = false;
};

// For 2024-02-29 and 2024-02-29 14:30: a day from 1900-03-01, below which spreadsheets count a day that never was, to
// 9999-12-31.
std::optional<DateSerial> dateSerial(std::string_view text);

// An optional minus and decimal digits with at most one point among them, 16 bytes at most; leading zeros, as in an
// identifier, make it a text.
bool isPlainNumber(std::string_view text);

}  // namespace corvale::CellShape
