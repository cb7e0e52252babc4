// A page as text that can be compared.
#pragma once

#include "report/page.h"

#include <functional>
#include <string>

namespace qbrpt::report {

/// A page's display list, a line an item, the words of one line of text together: points from the top left
/// corner of the sheet with one decimal, colours as #RRGGBB, texts in reading order. The same page gives the
/// same text. `nameStyle` says what stands for a style; without it, its number.
[[nodiscard]] std::string PageText(const Page& page,
                                   const std::function<std::string(StyleId)>& nameStyle = {});

} // namespace qbrpt::report
