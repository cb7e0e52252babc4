#include "support/extremes.h"

#include "support/variant.h"

#include <cstdint>

namespace qbrpt {

Value MaxOf(std::span<const Value> values) {
    Value held = std::int64_t{INT32_MIN};
    for (const Value& value : values) {
        if (CompareVariants(value, held) > 0) held = value;
    }
    return held;
}

Value MinOf(std::span<const Value> values) {
    Value held = Null{};
    for (const Value& value : values) {
        const bool comparable = CompareVariants(value, value) == 0;
        if (comparable && (IsNull(held) || CompareVariants(value, held) < 0)) held = value;
    }
    return held;
}

} // namespace qbrpt
