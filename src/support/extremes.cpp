#include "support/extremes.h"

#include "support/variant.h"

#include <compare>
#include <cstdint>

namespace qbrpt {

Value MaxOf(std::span<const Value> values) {
    Value held = std::int64_t{INT32_MIN};
    for (const Value& value : values) {
        if (std::is_gt(CompareVariants(value, held))) held = value;
    }
    return held;
}

Value MinOf(std::span<const Value> values) {
    Value held = Null{};
    for (const Value& value : values) {
        const bool comparable = std::is_eq(CompareVariants(value, value));
        if (comparable && (IsNull(held) || std::is_lt(CompareVariants(value, held)))) held = value;
    }
    return held;
}

} // namespace qbrpt
