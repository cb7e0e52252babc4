// Days, months and years of the period texts.
#pragma once

#include <cstdint>

namespace qbrpt {

/// The largest whole number not above `dt`, a day number. FailureNumber::Overflow outside 32 bits.
[[nodiscard]] std::int32_t DayNumber(double dt);

[[nodiscard]] bool IsLeapYear(std::int16_t nYear);

/// Days of a month; 0 for month 0. Any other number that is no month is FailureNumber::InvalidArgument.
[[nodiscard]] std::int16_t DaysInMonth(std::int16_t nMonth, std::int16_t nYear);

/// Days of a common year up to the end of month `nMonth`, 0 to 12.
[[nodiscard]] std::int16_t DaysBeforeMonth(std::int16_t nMonth);

} // namespace qbrpt
