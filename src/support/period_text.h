// The period that a report covers, in words.
#pragma once

#include <cstdint>
#include <string>

namespace qbrpt {

/// Bits of the period flags.
namespace PeriodFlag {
constexpr std::int16_t SameMonth = 1;   ///< whole months, from a month to the month of the same name
constexpr std::int16_t OtherMonth = 2;  ///< whole months, from a month to one of another name
constexpr std::int16_t YearsDiffer = 4; ///< the two years differ
} // namespace PeriodFlag

/// What the two dates, the smaller first, mean as a period. Months are compared by their number alone.
[[nodiscard]] std::int16_t GetPeriodFlags(double dtStart, double dtEnd);

/// The period from `dtFrom` to `dtTo` (day numbers, in either order; `dtTo` 0 for a single date) as a title
/// names it. With `bWithTime` each date that is printed carries its time of day.
[[nodiscard]] std::string GetPeriodText(double dtFrom, double dtTo, bool bArabic, bool bWithTime);

/// One date in the picture `sFormat`, with two blanks and the time of day behind it where asked for.
[[nodiscard]] std::string DateTextArabic(double dt, const std::string& sFormat, bool bWithTime);
[[nodiscard]] std::string DateTextEnglish(double dt, const std::string& sFormat, bool bWithTime);

} // namespace qbrpt
