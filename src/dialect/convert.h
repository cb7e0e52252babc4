// Values from one kind to another, as the functions of a statement do it.
#pragma once

#include "base/value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qbrpt::dialect {

/// Empty for null; numbers with up to 15 digits.
[[nodiscard]] std::string TextOf(const Value& value);

/// The number that the whole of `text` is, blanks around it and commas of grouping apart.
[[nodiscard]] std::optional<double> ParseNumber(std::string_view text);

/// Raises TypeMismatch for a text that is no number. Null is 0.
[[nodiscard]] double NumberOf(const Value& value);

/// Nearest whole number, halves to the even neighbour. Raises Overflow outside of 64 bits.
[[nodiscard]] std::int64_t WholeOf(const Value& value);

/// The same where only small numbers make sense: lengths, places, parts of a date. Raises InvalidArgument
/// beyond `limit` on either side.
[[nodiscard]] int SmallOf(const Value& value, int limit = 1'000'000'000);

/// A day number; texts are read as dates, day before month. Raises TypeMismatch for a text that is none.
[[nodiscard]] double DayOf(const Value& value);

} // namespace qbrpt::dialect
