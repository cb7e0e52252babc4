// Where groups end and begin.
#pragma once

#include "base/rows.h"
#include "report/definition.h"

#include <cstddef>
#include <vector>

namespace qbrpt::report {

/// The outermost group whose value differs between two rows that follow each other, or the number of groups.
[[nodiscard]] std::size_t FirstDifference(const std::vector<Group>& groups, const RowView& a,
                                          const RowView& b);

} // namespace qbrpt::report
