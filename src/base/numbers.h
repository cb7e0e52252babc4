// Whole numbers that overflow with a failure, and the decimal text of a statement.
#pragma once

#include <cstdint>
#include <string>

namespace qbrpt {

/// Nearest 32-bit whole number, halves to the even neighbour. Raises FailureNumber::Overflow outside.
[[nodiscard]] std::int32_t RoundToLong(double value);

/// `value` in 32 bits, or FailureNumber::Overflow.
[[nodiscard]] std::int32_t CheckedLong(std::int64_t value);

/// `value` in 16 bits, or FailureNumber::Overflow.
[[nodiscard]] std::int16_t CheckedShort(std::int64_t value);

/// Plain decimal text as it goes into statements: up to 15 significant digits, "." whatever the
/// locale, no grouping, no exponent for the sizes that money, counts and day numbers have.
[[nodiscard]] std::string DecimalText(double value);
[[nodiscard]] std::string DecimalText(std::int32_t value);

/// Shortest text that reads back as the same number, "." as point; for exports and traces.
[[nodiscard]] std::string RoundTripText(double value);

} // namespace qbrpt
