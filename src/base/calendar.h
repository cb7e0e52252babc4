// Day numbers and the Gregorian calendar.
#pragma once

#include <cstdint>

namespace qbrpt {

/// A moment taken apart, to the millisecond. Months and days count from 1; weekday 0 is Sunday.
struct Moment {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
    int weekday = 6;
};

/// Takes a day number apart. Below 0 the fraction still counts forward in time (-1.25 is 06:00 of
/// 29 December 1899), as day numbers of the trade have it. The time is snapped to the millisecond,
/// so that a stored 09:59:59.9999995 is 10:00:00. Raises FailureNumber::InvalidArgument outside the
/// years 100 to 9999.
[[nodiscard]] Moment MomentOf(double dayNumber);

/// MomentOf to the whole second, as people read it: a moment less than half a second before a second belongs
/// to that second, and so to its minute and its day. The calendar ends with the last second of 9999.
[[nodiscard]] Moment MomentToTheSecond(double dayNumber);

/// The day number of a moment; the inverse of MomentOf.
[[nodiscard]] double DayNumberOf(const Moment& moment);

/// Whole days since 30 December 1899 of a calendar day; month and day may lie outside their range and
/// carry over (month 14 is February of the next year).
[[nodiscard]] std::int64_t DaysFromCivil(int year, int month, int day);

/// `dayNumber` snapped to the nearest millisecond: the two texts of one moment become one number.
[[nodiscard]] double SnapToMillisecond(double dayNumber);

} // namespace qbrpt
