// Words that the reader has selected.
#pragma once

#include <algorithm>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace qbrpt::viewer {

class PageReading;

/// A word of the report: its page and its number in reading order, both from 0.
struct TextPlace {
    std::int32_t page = 0;
    std::size_t word = 0;
    friend auto operator<=>(const TextPlace&, const TextPlace&) = default;
};

/// From one word to another in reading order, both included; may span pages.
class TextSelection {
public:
    void Clear() { mAnchor.reset(); }
    void Begin(TextPlace place) { mAnchor = mHead = place; }
    void Extend(TextPlace place) { mHead = place; }

    [[nodiscard]] bool Empty() const { return !mAnchor; }
    [[nodiscard]] TextPlace First() const { return std::min(*mAnchor, mHead); }
    [[nodiscard]] TextPlace Last() const { return std::max(*mAnchor, mHead); }
    /// The selected words of a page that has `words`: from the first to before the second.
    [[nodiscard]] std::pair<std::size_t, std::size_t> On(std::int32_t page, std::size_t words) const;
    /// Its text; `take` shows the reading of a page to the function given.
    using WithReading =
        std::function<void(std::int32_t page, const std::function<void(const PageReading&)>&)>;
    [[nodiscard]] std::string Text(const WithReading& take) const;

private:
    std::optional<TextPlace> mAnchor;
    TextPlace mHead;
};

} // namespace qbrpt::viewer
