// Rows that show what a layout looks like.
#pragma once

#include "base/memory_rows.h"
#include "report/definition.h"

#include <cstddef>
#include <memory>

namespace qbrpt::layouts {

/// Made-up rows for the fields of a layout: names, days, amounts, durations, as its columns show them;
/// rows of one group stand together. The same on every run.
[[nodiscard]] std::shared_ptr<const RowSource> PreviewRows(const report::Definition& definition,
                                                           std::size_t count);

} // namespace qbrpt::layouts
