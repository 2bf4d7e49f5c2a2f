#include "CorvaleKit/loading/SerialDate.h"

#include <cmath>

namespace corvale::SerialDate {

namespace {

using std::chrono::days;
using std::chrono::seconds;
using std::chrono::sys_days;

constexpr double lastDayNumber = 2'958'465.999;
constexpr days missingLeapDay{60};

sys_days baseDate(bool date1904) {
    using namespace std::chrono_literals;
    return date1904 ? sys_days{1904y / 1 / 1} : sys_days{1899y / 12 / 30};
}

}  // namespace

std::optional<DateTime> fromDayNumber(double dayNumber, bool date1904) {
    if (!(dayNumber >= 0 && dayNumber <= lastDayNumber)) {
        return std::nullopt;
    }
    const double wholeDays = std::floor(dayNumber);
    days count{static_cast<int>(wholeDays)};
    if (!date1904 && count < missingLeapDay) {
        count += days{1};
    }
    const seconds time{std::lround((dayNumber - wholeDays) * 86'400)};
    const auto moment = baseDate(date1904) + count + time;
    const auto date = std::chrono::floor<days>(moment);
    const std::chrono::hh_mm_ss clock{moment - date};
    return DateTime{date, static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count())};
}

}  // namespace corvale::SerialDate
