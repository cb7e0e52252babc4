// The scalar functions that we evaluate ourselves, so that every engine prints the same words.
#pragma once

#include "base/value.h"

#include <span>
#include <string_view>

namespace qbrpt::dialect {

/// Things that a function may ask of the world.
struct FunctionWorld {
    double now = 0; ///< local time as a day number, fixed for one statement
};

/// One function under the name by which emitted statements call it. Deterministic unless `usesNow`.
struct ScalarFunction {
    std::string_view emittedName;
    int minimumArguments;
    int maximumArguments;
    bool usesNow;
    Value (*evaluate)(std::span<const Value> arguments, const FunctionWorld& world);
};

[[nodiscard]] std::span<const ScalarFunction> ScalarFunctions();

} // namespace qbrpt::dialect
