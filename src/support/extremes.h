// The largest and the smallest of a list of values.
#pragma once

#include "base/value.h"

#include <span>

namespace qbrpt {

/// The largest value, but never below the whole number -2147483648, which is also the answer for an empty
/// list. A value that cannot be compared is skipped; of equal ones the first counts.
[[nodiscard]] Value MaxOf(std::span<const Value> values);

/// The smallest value; null for an empty list. A value that cannot be compared is skipped; of equal ones the
/// first counts.
[[nodiscard]] Value MinOf(std::span<const Value> values);

} // namespace qbrpt
