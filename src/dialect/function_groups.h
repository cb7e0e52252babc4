// The groups of which our own functions are made up.
#pragma once

#include "dialect/functions.h"

#include <algorithm>
#include <span>

namespace qbrpt::dialect {

using Arguments = std::span<const Value>;

[[nodiscard]] std::span<const ScalarFunction> TextFunctions();
[[nodiscard]] std::span<const ScalarFunction> NumberFunctions();
[[nodiscard]] std::span<const ScalarFunction> DateFunctions();
[[nodiscard]] std::span<const ScalarFunction> FormatFunctions();

/// `Evaluate`, but null where any argument is null: the rule for all but a few.
template <Value (*Evaluate)(Arguments, const FunctionWorld&)>
Value UnlessNull(Arguments arguments, const FunctionWorld& world) {
    if (std::any_of(arguments.begin(), arguments.end(), [](const Value& value) { return IsNull(value); }))
        return Null{};
    return Evaluate(arguments, world);
}

[[nodiscard]] inline Value WholeValue(std::int64_t whole) {
    return Value(std::in_place_type<std::int64_t>, whole);
}

} // namespace qbrpt::dialect
