// Rows that show what a layout looks like.
#pragma once

#include "base/memory_rows.h"
#include "report/definition.h"

#include <cstddef>
#include <memory>

namespace qbrpt::layouts {

/// Sample rows of the layout's template. For any other layout they are made up after the kinds of its fields:
/// names, days, amounts, durations, as its columns show them; rows of one group stand together. The same on
/// every run.
[[nodiscard]] std::shared_ptr<const RowSource> PreviewRows(const report::Definition& definition,
                                                           std::size_t count);

} // namespace qbrpt::layouts
