// Comparing names and words without regard to case.
#pragma once

#include "base/latin.h"

#include <string>
#include <string_view>

namespace qbrpt::dialect {

/// Names of tables, columns and functions, and the words of the dialect, are one under any case of the
/// Latin letters.
[[nodiscard]] constexpr bool SameName(std::string_view left, std::string_view right) {
    return SameAnyCase(left, right);
}

/// The form under which names are looked up.
[[nodiscard]] inline std::string FoldName(std::string_view name) {
    return SmallLatin(name);
}

} // namespace qbrpt::dialect
