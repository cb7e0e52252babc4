// Sample rows by template.
#pragma once

#include "base/memory_rows.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace qbrpt::samples {

/// As many rows as asked for of a template or subreport, the same on every run; none for an unknown name.
[[nodiscard]] std::vector<Row> RowsFor(std::string_view templateName, std::size_t count);

} // namespace qbrpt::samples
