#include "report/page_lines.h"

#include <algorithm>

namespace qbrpt::report {

namespace {

/// A gap between words that is wider than this is no blank: it parts two columns of a table.
constexpr Twips WidestBlank = 120;

bool Continues(const Item& a, const Item& b) {
    return b.kind == ItemKind::Word && b.y == a.y && b.style == a.style && b.color == a.color &&
           b.x >= a.x + a.width && b.x - (a.x + a.width) < WidestBlank;
}

} // namespace

std::size_t LineEnd(const Page& page, std::size_t first) {
    std::size_t end = first + 1;
    while (end < page.items.size() && Continues(page.items[end - 1], page.items[end]))
        ++end;
    return end;
}

// Words are drawn from left to right. Right-to-left words are read from the right, runs of left-to-right
// words between them from the left.
std::vector<std::size_t> ReadingOrder(const Page& page, std::size_t begin, std::size_t end) {
    const auto rightToLeft = [&page](std::size_t i) { return page.items[i].word->rightToLeft; };
    std::vector<std::size_t> order;
    bool anyRightToLeft = false;
    for (std::size_t i = begin; i < end; ++i) {
        order.push_back(i);
        anyRightToLeft = anyRightToLeft || rightToLeft(i);
    }
    if (!anyRightToLeft) return order;
    std::reverse(order.begin(), order.end());
    for (auto run = order.begin(); run != order.end();) {
        const auto runEnd = std::find_if(run, order.end(), rightToLeft);
        std::reverse(run, runEnd);
        run = runEnd == order.end() ? runEnd : runEnd + 1;
    }
    return order;
}

} // namespace qbrpt::report
