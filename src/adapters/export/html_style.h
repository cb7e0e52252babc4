// The house style for web pages.
#pragma once

#include "base/paper.h"

#include <string>

namespace qbrpt {

/// The rules of a page that is printed on `sheet`.
[[nodiscard]] std::string HtmlStyle(const PaperExtent& sheet);

} // namespace qbrpt
