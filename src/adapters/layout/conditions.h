// Tests of a row's values, as layout files write them.
#pragma once

#include "adapters/layout/band.h"

#include <optional>
#include <string_view>

namespace qbrpt::layout {

/// `KEY = { field = "...", is = "positive" }`; nothing where the key is missing.
[[nodiscard]] std::optional<report::Condition> ReadCondition(TableReader& reader, std::string_view key,
                                                             const Workshop& shop);

} // namespace qbrpt::layout
