#include "adapters/text/letters.h"

#include <algorithm>

namespace qbrpt::text {

void AssignLetters(std::vector<report::Glyph>& glyphs, std::size_t first, std::size_t length,
                   bool rightToLeft) {
    // Clusters go down from glyph to glyph in right-to-left text; walk them in reading order.
    const std::size_t count = glyphs.size();
    const auto at = [&](std::size_t i) -> report::Glyph& { return glyphs[rightToLeft ? count - 1 - i : i]; };
    for (std::size_t i = 0; i < count;) {
        const std::uint16_t start = at(i).textStart;
        std::size_t next = i;
        std::size_t widest = i;
        for (; next < count && at(next).textStart == start; ++next)
            if (at(next).advance > at(widest).advance) widest = next;
        const std::size_t end = next < count ? at(next).textStart : first + length;
        for (std::size_t j = i; j < next; ++j)
            at(j).textLength = 0;
        // Letters that draw nothing at the start of a run go to its first glyph.
        const std::size_t begin = i == 0 ? first : start;
        at(widest).textStart = static_cast<std::uint16_t>(begin);
        at(widest).textLength = static_cast<std::uint16_t>(std::max(end, begin) - begin);
        i = next;
    }
}

} // namespace qbrpt::text
