// The house style for web pages.
#pragma once

#include "adapters/export/table_plan.h"
#include "base/paper.h"

#include <string>

namespace qbrpt {

/// The rules of a page in these colours that is printed on `sheet`.
[[nodiscard]] std::string HtmlStyle(const TableColors& colors, const PaperExtent& sheet);
/// "#RRGGBB".
[[nodiscard]] std::string HtmlColor(report::Color color);

} // namespace qbrpt
