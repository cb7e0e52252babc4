// Values of unlike kinds, compared and turned into numbers and texts.
#pragma once

#include "base/value.h"

#include <compare>
#include <string>

namespace qbrpt {

/// Order of two values as variants have it: numbers, dates and booleans (true is -1) by their number, every
/// number below every text, texts by their characters. Unordered where one is null or no number.
[[nodiscard]] std::partial_ordering CompareVariants(const Value& one, const Value& other);

/// The value as a number; a date as its day number. Null, or text that is no number, is
/// FailureNumber::TypeMismatch.
[[nodiscard]] double NumberOf(const Value& value);

/// The value as text, numbers in plain decimal. Null is FailureNumber::TypeMismatch.
[[nodiscard]] std::string TextOf(const Value& value);

} // namespace qbrpt
