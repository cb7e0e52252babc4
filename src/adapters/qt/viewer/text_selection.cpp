#include "adapters/qt/viewer/text_selection.h"

#include "adapters/qt/viewer/page_reading.h"

#include <algorithm>

namespace qbrpt::viewer {

std::pair<std::size_t, std::size_t> TextSelection::On(std::int32_t page, std::size_t words) const {
    if (Empty() || page < First().page || page > Last().page) return {0, 0};
    const std::size_t first = page == First().page ? First().word : 0;
    const std::size_t end = page == Last().page ? Last().word + 1 : words;
    return {std::min(first, words), std::min(end, words)};
}

std::string TextSelection::Text(const WithReading& take) const {
    std::string text;
    if (Empty()) return text;
    for (std::int32_t page = First().page; page <= Last().page; ++page) {
        take(page, [&](const PageReading& reading) {
            const auto [first, end] = On(page, reading.Words().size());
            if (first == end) return;
            if (!text.empty()) text += '\n';
            text += reading.Text(first, end);
        });
    }
    return text;
}

} // namespace qbrpt::viewer
