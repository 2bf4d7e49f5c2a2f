#pragma once

#include <chrono>
#include <optional>

// Spreadsheet day numbers as calendar dates (Gregorian, UTC).
namespace corvale::SerialDate {

struct DateTime {
    std::chrono::year_month_day date;
    int hours = 0;
    int minutes = 0;  // seconds are dropped, after the time was rounded to the nearest one
};

// A day number counts from 1899-12-31 as day 0, with a 29 February 1900 that never was (day 60 reads as the 28th), or
// from 1904-01-01 as day 0. Its fraction is the time of day. None below 0 and after the year 9999 of the 1900 system.
std::optional<DateTime> fromDayNumber(double dayNumber, bool date1904);

}  // namespace corvale::SerialDate
