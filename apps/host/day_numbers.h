// Date numbers: days since 30 December 1899, the time of day as their fraction.
#pragma once

#include <QtCore/QDateTime>

namespace cafe {

/// From the year 100 to the end of 9999.
constexpr double FirstDayNumber = -657434.0;
constexpr double LastDayNumber = 2958465.999999;

[[nodiscard]] double DayNumberOf(const QDate& day, const QTime& time);
/// To the minute; none outside of the calendar.
[[nodiscard]] QDateTime MomentOf(double dayNumber);

} // namespace cafe
