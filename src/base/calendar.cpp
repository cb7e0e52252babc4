#include "base/calendar.h"

#include "base/failure.h"

#include <cmath>

namespace qbrpt {

namespace {

constexpr std::int64_t MillisecondsADay = 86'400'000;
constexpr std::int64_t FirstDay = -657'434; // 1 January 100
constexpr std::int64_t LastDay = 2'958'465; // 31 December 9999

constexpr std::int64_t FloorDivide(std::int64_t value, std::int64_t by) {
    return value / by - ((value % by != 0 && (value < 0) != (by < 0)) ? 1 : 0);
}

// Days since 1 March of year 0, by whole 400-year eras (Howard Hinnant's civil calendar algorithm).
constexpr std::int64_t DaysSinceMarchZero(std::int64_t year, std::int64_t month, std::int64_t day) {
    year -= month <= 2 ? 1 : 0;
    const std::int64_t era = FloorDivide(year, 400);
    const std::int64_t yearOfEra = year - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * 146'097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
}

constexpr std::int64_t DayZero = DaysSinceMarchZero(1899, 12, 30);

void SetCivil(Moment& moment, std::int64_t days) {
    const std::int64_t shifted = days + DayZero;
    const std::int64_t era = FloorDivide(shifted, 146'097);
    const std::int64_t dayOfEra = shifted - era * 146'097;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36'524 - dayOfEra / 146'096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t shiftedMonth = (5 * dayOfYear + 2) / 153;
    moment.day = static_cast<int>(dayOfYear - (153 * shiftedMonth + 2) / 5 + 1);
    moment.month = static_cast<int>(shiftedMonth < 10 ? shiftedMonth + 3 : shiftedMonth - 9);
    moment.year = static_cast<int>(yearOfEra + era * 400 + (moment.month <= 2 ? 1 : 0));
    moment.weekday = static_cast<int>(((days + 6) % 7 + 7) % 7);
}

// Whole milliseconds of a day number, counted forward in time from day 0.
std::int64_t MillisecondsOf(double dayNumber) {
    if (!(std::fabs(dayNumber) < 1e8)) {
        throw Failure(FailureNumber::InvalidArgument, "A date number lies outside the years 100 to 9999.");
    }
    const double whole = std::trunc(dayNumber);
    const double fraction = std::fabs(dayNumber - whole);
    return static_cast<std::int64_t>(whole) * MillisecondsADay +
           std::llround(fraction * static_cast<double>(MillisecondsADay));
}

double NumberOfMilliseconds(std::int64_t milliseconds) {
    const std::int64_t days = FloorDivide(milliseconds, MillisecondsADay);
    const double fraction =
        static_cast<double>(milliseconds - days * MillisecondsADay) / static_cast<double>(MillisecondsADay);
    return days >= 0 || fraction == 0 ? static_cast<double>(days) + fraction
                                      : static_cast<double>(days) - fraction;
}

} // namespace

Moment MomentOf(double dayNumber) {
    const std::int64_t milliseconds = MillisecondsOf(dayNumber);
    const std::int64_t days = FloorDivide(milliseconds, MillisecondsADay);
    if (days < FirstDay || days > LastDay) {
        throw Failure(FailureNumber::InvalidArgument, "A date number lies outside the years 100 to 9999.");
    }
    std::int64_t rest = milliseconds - days * MillisecondsADay;
    Moment moment;
    SetCivil(moment, days);
    moment.millisecond = static_cast<int>(rest % 1000);
    rest /= 1000;
    moment.second = static_cast<int>(rest % 60);
    rest /= 60;
    moment.minute = static_cast<int>(rest % 60);
    moment.hour = static_cast<int>(rest / 60);
    return moment;
}

Moment MomentToTheSecond(double dayNumber) {
    Moment moment = MomentOf(dayNumber);
    const bool nearsNext = moment.millisecond > 500;
    moment.millisecond = 0;
    if (!nearsNext) return moment;
    Moment next = moment;
    ++next.second;
    const double nextNumber = DayNumberOf(next);
    return nextNumber > static_cast<double>(LastDay) + 1 - 1e-9 ? moment : MomentOf(nextNumber);
}

double DayNumberOf(const Moment& moment) {
    const std::int64_t days = DaysFromCivil(moment.year, moment.month, moment.day);
    const std::int64_t time =
        ((moment.hour * 60LL + moment.minute) * 60LL + moment.second) * 1000LL + moment.millisecond;
    return NumberOfMilliseconds(days * MillisecondsADay + time);
}

std::int64_t DaysFromCivil(int year, int month, int day) {
    const std::int64_t months = static_cast<std::int64_t>(year) * 12 + month - 1;
    const std::int64_t normalYear = FloorDivide(months, 12);
    return DaysSinceMarchZero(normalYear, months - normalYear * 12 + 1, 1) + day - 1 - DayZero;
}

double SnapToMillisecond(double dayNumber) {
    return NumberOfMilliseconds(MillisecondsOf(dayNumber));
}

} // namespace qbrpt
