#include <gtest/gtest.h>

#include <chrono>
#include <limits>
#include <vector>

#include "CorvaleKit/loading/SerialDate.h"

namespace corvale {
namespace {

using std::chrono::year_month_day;
using namespace std::chrono_literals;

year_month_day dateOf(double dayNumber, bool date1904 = false) {
    const auto moment = SerialDate::fromDayNumber(dayNumber, date1904);
    return moment ? moment->date : year_month_day{};
}

int daysIn(int year, int month) {
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    const std::vector<int> days = {31, leap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return days[static_cast<std::size_t>(month - 1)];
}

// A calendar turned page by page.
class PaperCalendar {
public:
    PaperCalendar(int year, int month, int day) : m_year(year), m_month(month), m_day(day) {}

    void turn() {
        if (++m_day > daysIn(m_year, m_month)) {
            m_day = 1;
            if (++m_month > 12) {
                m_month = 1;
                ++m_year;
            }
        }
    }

    year_month_day date() const {
        return std::chrono::year(m_year) / std::chrono::month(static_cast<unsigned>(m_month)) /
               std::chrono::day(static_cast<unsigned>(m_day));
    }

private:
    int m_year;
    int m_month;
    int m_day;
};

TEST(SerialDate, DaysFollowTheCalendar) {
    PaperCalendar calendar(1900, 3, 1);
    for (int day = 61; day < 150'000; ++day, calendar.turn()) {
        ASSERT_EQ(dateOf(day), calendar.date()) << day;
    }
}

TEST(SerialDate, DaysOfThe1904SystemFollowTheCalendar) {
    PaperCalendar calendar(1904, 1, 1);
    for (int day = 0; day < 50'000; ++day, calendar.turn()) {
        ASSERT_EQ(dateOf(day, true), calendar.date()) << day;
    }
}

TEST(SerialDate, The29thOfFebruary1900IsThe28th) {
    EXPECT_EQ(dateOf(0), 1899y / 12 / 31);
    EXPECT_EQ(dateOf(1), 1900y / 1 / 1);
    EXPECT_EQ(dateOf(59), 1900y / 2 / 28);
    EXPECT_EQ(dateOf(59.9), 1900y / 2 / 28);
    EXPECT_EQ(dateOf(60), 1900y / 2 / 28);
    EXPECT_EQ(dateOf(61), 1900y / 3 / 1);
}

TEST(SerialDate, DayNumbersHaveBounds) {
    EXPECT_EQ(dateOf(2'958'465), 9999y / 12 / 31);
    EXPECT_TRUE(SerialDate::fromDayNumber(2'958'465.999, false));
    EXPECT_FALSE(SerialDate::fromDayNumber(2'958'465.9991, false));
    EXPECT_FALSE(SerialDate::fromDayNumber(-0.0001, false));
    EXPECT_TRUE(SerialDate::fromDayNumber(-0.0, false));
    EXPECT_FALSE(SerialDate::fromDayNumber(1e300, true));
    EXPECT_FALSE(SerialDate::fromDayNumber(std::numeric_limits<double>::infinity(), false));
    EXPECT_FALSE(SerialDate::fromDayNumber(std::numeric_limits<double>::quiet_NaN(), false));
}

TEST(SerialDate, TheTimeIsRoundedToTheNearestSecond) {
    struct Case {
        double seconds;
        int hours;
        int minutes;
    };
    const std::vector<Case> cases = {
        {0, 0, 0},
        {59, 0, 0},
        {59.4, 0, 0},
        {59.6, 0, 1},
        {60, 0, 1},
        {3599.4, 0, 59},
        {3599.6, 1, 0},
        {43'200, 12, 0},
        {86'340, 23, 59},
        {86'399.4, 23, 59},
        {86'399.6, 0, 0},
        {12'345.0, 3, 25},
    };
    for (const auto& [seconds, hours, minutes] : cases) {
        const auto moment = SerialDate::fromDayNumber(1000 + seconds / 86'400, false);
        ASSERT_TRUE(moment);
        EXPECT_EQ(moment->hours, hours) << seconds;
        EXPECT_EQ(moment->minutes, minutes) << seconds;
    }
}

TEST(SerialDate, HalfSecondsRoundUp) {
    constexpr double dayNumber = 239.5 / 86'400;
    ASSERT_EQ(dayNumber * 86'400, 239.5);
    EXPECT_EQ(SerialDate::fromDayNumber(dayNumber, false)->minutes, 4);
}

TEST(SerialDate, RoundingMayReachTheNextDay) {
    EXPECT_EQ(dateOf(44'197 + 86'399.6 / 86'400), 2021y / 1 / 2);
    EXPECT_EQ(dateOf(59 + 86'399.6 / 86'400), 1900y / 3 / 1);
    EXPECT_EQ(dateOf(60 + 86'399.6 / 86'400), 1900y / 3 / 1);
}

}  // namespace
}  // namespace corvale
