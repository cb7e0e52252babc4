// Groups that are summed up before a join in place of after it.
#pragma once

#include "dialect/totals_pass.h"
#include "dialect/tree.h"

namespace qbrpt::dialect {

/// In a grouped select over two tables that are joined by one equality of numbers, where all that is added
/// up, and all that WHERE looks at, lies in one of them: joins the other table to the totals by key, and adds
/// those up. In a LEFT JOIN that is the right table, without a WHERE. A million rows are then summed where
/// they lie, and only as many are joined as there are keys. The rows are the same, with keys that stand twice
/// or nowhere in either table too; sums of fractions may differ in their last digits, since they are added in
/// another order.
void GroupEarly(Query& query, TotalsPasses& passes);

} // namespace qbrpt::dialect
