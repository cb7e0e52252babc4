// Pictures written as rows of letters, and read back.
#pragma once

#include "base/picture.h"
#include "platform/gdi.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::test {

using Rows = std::vector<std::string>;

/// k black, w white, r red, g green, b blue, y grey, and "." for a pixel of nothing, which is red.
inline const std::vector<std::pair<char, ColorRef>>& Letters() {
    static const std::vector<std::pair<char, ColorRef>> letters = {
        {'k', 0x000000}, {'w', 0xFFFFFF}, {'r', 0x0000FF}, {'g', 0x00FF00}, {'b', 0xFF0000}, {'y', 0x808080}};
    return letters;
}

inline Picture PictureOf(const Rows& rows) {
    Picture picture;
    picture.width = static_cast<std::int32_t>(rows.front().size());
    picture.height = static_cast<std::int32_t>(rows.size());
    for (const std::string& row : rows) {
        for (const char letter : row) {
            ColorRef color = 0x0000FF;
            for (const auto& [known, itsColor] : Letters())
                if (known == letter) color = itsColor;
            for (const ColorRef channel : {color, color >> 8, color >> 16})
                picture.rgba.push_back(static_cast<std::uint8_t>(channel));
            picture.rgba.push_back(letter == '.' ? 0 : 255);
        }
    }
    return picture;
}

/// "?" for a colour that has no letter.
inline Rows RowsOf(const Picture& picture) {
    Rows rows;
    for (std::size_t i = 0; i < picture.rgba.size(); i += 4) {
        if (i / 4 % static_cast<std::size_t>(picture.width) == 0) rows.emplace_back();
        const ColorRef color = ColorRef{picture.rgba[i]} | ColorRef{picture.rgba[i + 1]} << 8 |
                               ColorRef{picture.rgba[i + 2]} << 16;
        char letter = '?';
        for (const auto& [known, itsColor] : Letters())
            if (itsColor == color) letter = known;
        rows.back() += letter;
    }
    return rows;
}

} // namespace qbrpt::test
