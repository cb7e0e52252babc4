// Aggregates that a statement asks for row by row, worked out in one pass.
#pragma once

#include "dialect/totals_pass.h"
#include "dialect/tree.h"

namespace qbrpt::dialect {

/// Finds sub-selects such as (SELECT Sum(x) FROM t WHERE t.key = outer.key AND ...) in the list of a select
/// that looks at all of a table, and turns them into look-ups in a table of totals by key. Those over the
/// same table and key share one pass, also where their other conditions differ. The values are the same, for
/// keys without rows too; an aggregate that sees the order of rows, or a condition that ties the two selects
/// in any other way, is left as it stands. Sub-selects of `outer` must be rewritten already.
void TakeLookups(Select& outer, TotalsPasses& passes);

} // namespace qbrpt::dialect
