// The functions that we evaluate ourselves, so that every engine prints the same words.
#pragma once

#include "base/value.h"

#include <memory>
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

/// What the function gives. A failure of it is raised with the call in front, as a statement of the dialect
/// would write it: `CLng("abc"): The text "abc" is no number.`
[[nodiscard]] Value Evaluate(const ScalarFunction& function, std::span<const Value> arguments,
                             const FunctionWorld& world);

/// The rows of one group, seen one after the other.
class Accumulator {
public:
    virtual ~Accumulator() = default;
    virtual void Step(std::span<const Value> arguments) = 0;
    [[nodiscard]] virtual Value Result() const = 0;
};

/// One aggregate under the name by which emitted statements call it, with any number of arguments.
struct AggregateFunction {
    std::string_view emittedName;
    std::unique_ptr<Accumulator> (*begin)();
};

[[nodiscard]] std::span<const AggregateFunction> AggregateFunctions();

/// Name of the collation that emitted statements ask for wherever text is compared, sorted or grouped:
/// without regard to case, Arabic by its own alphabet. The adapter registers it.
constexpr std::string_view CollationName = "QBRPT";

/// Name of the function that emitted statements sort many texts by: of a text a value whose plain order is
/// that of the collation, equal where the collation says equal; of anything else the value itself. The
/// adapter registers it. Working it out once a row is far quicker than asking the collation for every two
/// rows.
constexpr std::string_view OrderFunctionName = "qb_order";

} // namespace qbrpt::dialect
