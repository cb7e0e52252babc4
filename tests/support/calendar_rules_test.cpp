#include "support/calendar_rules.h"
#include "support_fixture.h"

#include <string>

namespace qbrpt {
namespace {

TEST(CalendarRules, DayNumberIsTheLargestWholeNumberNotAbove) {
    struct Row {
        double date;
        std::int32_t day;
    };
    for (const Row& row :
         {Row{0, 0}, Row{0.5, 0}, Row{1.5, 1}, Row{2.5, 2}, Row{38'000, 38'000}, Row{38'000.999, 38'000},
          Row{-0.5, -1}, Row{-1, -1}, Row{-1.25, -2}, Row{-1.75, -2}, Row{2'147'483'647.0, 2'147'483'647},
          Row{-2'147'483'648.0, INT32_MIN}}) {
        SCOPED_TRACE(row.date);
        EXPECT_EQ(DayNumber(row.date), row.day);
    }
    for (const double date : {2'147'483'647.5, 2'147'483'648.0, -2'147'483'649.0, -2'147'483'648.25, 1e300}) {
        SCOPED_TRACE(date);
        EXPECT_THROW(static_cast<void>(DayNumber(date)), Failure);
    }
}

TEST(CalendarRules, LeapYears) {
    for (const int year : {2000, 2004, 1600, 0, -4})
        EXPECT_TRUE(IsLeapYear(static_cast<std::int16_t>(year))) << year;
    for (const int year : {1900, 2001, 2002, 2003, 2100, -1})
        EXPECT_FALSE(IsLeapYear(static_cast<std::int16_t>(year))) << year;
}

TEST(CalendarRules, DaysInAndBeforeMonths) {
    const int days[] = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    int before = 0;
    for (std::int16_t month = 0; month <= 12; ++month) {
        SCOPED_TRACE(month);
        before += days[month];
        EXPECT_EQ(DaysInMonth(month, 2003), days[month]);
        EXPECT_EQ(DaysInMonth(month, 2004), days[month] + (month == 2 ? 1 : 0));
        EXPECT_EQ(DaysBeforeMonth(month), before);
    }
    EXPECT_EQ(DaysInMonth(2, 1900), 28);
    EXPECT_EQ(DaysInMonth(2, 2000), 29);
    for (const std::int16_t month : {std::int16_t{-1}, std::int16_t{13}, std::int16_t{INT16_MIN}}) {
        EXPECT_THROW(static_cast<void>(DaysInMonth(month, 2003)), Failure) << month;
        EXPECT_THROW(static_cast<void>(DaysBeforeMonth(month)), Failure) << month;
    }
}

TEST(CalendarRules, MomentsGoToTheNearestSecond) {
    struct Row {
        const char* name;
        double date;
        int day, hour, minute, second;
    };
    for (const Row& row :
         {Row{"on the second", Day(2004, 1, 15, 9, 59, 59), 15, 9, 59, 59},
          Row{"below half", Day(2004, 1, 15, 9, 59, 59, 499), 15, 9, 59, 59},
          Row{"half", Day(2004, 1, 15, 9, 59, 59, 500), 15, 9, 59, 59},
          Row{"above half", Day(2004, 1, 15, 9, 59, 59, 501), 15, 10, 0, 0},
          Row{"the last second of the calendar", Day(9999, 12, 31, 23, 59, 59, 900), 31, 23, 59, 59},
          Row{"into the next day", Day(2004, 1, 15, 23, 59, 59, 700), 16, 0, 0, 0},
          Row{"before day zero", Day(1899, 12, 28, 23, 59, 59, 700), 29, 0, 0, 0}}) {
        SCOPED_TRACE(row.name);
        const Moment moment = MomentToTheSecond(row.date);
        EXPECT_EQ(moment.day, row.day);
        EXPECT_EQ(moment.hour, row.hour);
        EXPECT_EQ(moment.minute, row.minute);
        EXPECT_EQ(moment.second, row.second);
        EXPECT_EQ(moment.millisecond, 0);
    }
}

} // namespace
} // namespace qbrpt
