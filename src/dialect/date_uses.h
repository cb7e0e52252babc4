// Which dates a statement works with.
#pragma once

#include "dialect/tree.h"

#include <vector>

namespace qbrpt::dialect {

/// The columns of dates that a statement compares, sorts by, works with or stores. A text that stands in one
/// would change the rows in silence. Left out are those that only come out as they are, where every value is
/// seen, and tests for null, which say the same of a text. The tree must be bound.
[[nodiscard]] std::vector<DateColumn> DatesLookedAt(const Statement& statement);

} // namespace qbrpt::dialect
