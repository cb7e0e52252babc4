// The words of a page as a reader meets them: lines, and the order of reading inside a line.
#pragma once

#include "report/page.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::report {

/// The line of words that begins at item `first` of the page: words of one style and colour on one baseline,
/// a blank apart at most. Gives the index behind its last word.
[[nodiscard]] std::size_t LineEnd(const Page& page, std::size_t first);

/// The items of a line, from `begin` to before `end`, in reading order.
[[nodiscard]] std::vector<std::size_t> ReadingOrder(const Page& page, std::size_t begin, std::size_t end);

/// Marks that only steer the order of other letters.
[[nodiscard]] constexpr bool IsReadingSign(char32_t c) {
    return (c >= 0x200E && c <= 0x200F) || (c >= 0x2066 && c <= 0x2069);
}

} // namespace qbrpt::report
