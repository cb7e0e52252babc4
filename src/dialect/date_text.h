// Dates written as text.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace qbrpt::dialect {

/// Which number of 6/7/2003 is the month: literals between "#" have it first, the café's people second.
enum class DateOrder : std::uint8_t { MonthFirst, DayFirst };

/// The day number of "15/6/2003 10:30:00", "2003-06-15", "15 June 2003", "10:30 PM" and the like; nothing
/// where the text is no date. A first number that can't be what `order` says is taken for the other one.
/// Years of two digits are 1930 to 2029.
[[nodiscard]] std::optional<double> ParseDateText(std::string_view text, DateOrder order);

} // namespace qbrpt::dialect
