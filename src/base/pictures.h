// Number and date pictures, as the Format function of statements and of report texts reads them.
#pragma once

#include "base/calendar_names.h"

#include <string>
#include <string_view>

namespace qbrpt {

/// `value` by a number picture: `0 # . , %` with literals in quotes or behind "\", up to three
/// sections (positive;negative;zero), and the named pictures "General Number", "Currency", "Fixed",
/// "Standard", "Percent", "Scientific", "Yes/No", "True/False", "On/Off". Halves round away from zero on
/// the decimal text of the number.
[[nodiscard]] std::string FormatNumber(double value, std::string_view picture);

/// A day number by a date picture: d dd ddd dddd, m mm mmm mmmm (a month, but the minute right behind an
/// hour picture when written in small letters), M.. (always the month), yy yyyy, h hh, n nn, s ss, AM/PM
/// am/pm A/P a/p AMPM, q, w, ww, y, "/" ":" as they stand, and the named pictures "General Date", "Long
/// Date", "Medium Date", "Short Date", "Long Time", "Medium Time", "Short Time". A time less than half a
/// second before a minute belongs to that minute.
[[nodiscard]] std::string FormatDate(double dayNumber, std::string_view picture, const CalendarNames& names);

/// Whether Format reads `picture` as one of dates: it has date letters outside of literals and no places
/// for digits.
[[nodiscard]] bool IsDatePicture(std::string_view picture);

} // namespace qbrpt
