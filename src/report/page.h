// A finished page: a display list, in painter's order.
#pragma once

#include "base/picture.h"
#include "report/text_port.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace qbrpt::report {

/// 0xRRGGBB.
using Color = std::uint32_t;

enum class ItemKind : std::uint8_t {
    Word,    ///< a shaped word; x is its left edge, y its baseline
    Figures, ///< characters of the page's figure text in a style's figure font; x left edge, y baseline
    Rule,    ///< a straight line from (x, y) to (x + width, y + height), `stroke` hundredths of a point thick
    Fill,    ///< a filled rectangle
    Frame,   ///< the outline of a rectangle, `stroke` hundredths of a point thick
    Image    ///< a picture, filling the rectangle
};

/// One thing on the page. Twips from the top left corner of the sheet, y downwards.
struct Item {
    ItemKind kind = ItemKind::Fill;
    StyleId style = 0;
    Color color = 0;
    Twips x = 0;
    Twips y = 0;
    Twips width = 0;
    Twips height = 0;
    std::int32_t stroke = 0;  ///< hundredths of a point, since hairlines are thinner than a twip is fine
    std::uint32_t first = 0;  ///< Figures: offset into figureText; Image: index into pictures
    std::uint32_t length = 0; ///< Figures: characters
    const ShapedWord* word = nullptr;
};

struct Page {
    Twips width = 0;  ///< the sheet as it is turned
    Twips height = 0; ///< the sheet as it is turned
    std::vector<Item> items;
    std::string figureText;
    std::vector<std::shared_ptr<const TextBlock>> texts; ///< keeps the words of `items` alive
    std::vector<std::shared_ptr<const Picture>> pictures;

    /// Makes the page empty, keeping its memory for the next one.
    void Clear();
};

} // namespace qbrpt::report
