// Names of tables, columns and queries, which are the same in any case.
#pragma once

#include "dialect/words.h"

#include <string_view>

namespace qbrpt::database {

// A database looks names up as statements write them.
using dialect::FoldName;
using dialect::SameName;

/// `text` without blanks, tabs and line ends around it.
[[nodiscard]] std::string_view Trimmed(std::string_view text);

} // namespace qbrpt::database
