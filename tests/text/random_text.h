// Texts of everything that a database may hold.
#pragma once

#include "base/utf8.h"

#include <random>
#include <string>
#include <vector>

namespace qbrpt::text::test {

/// Names, figures, order marks, characters of any script and bytes that are no text, in any order.
inline std::string RandomText(std::mt19937& random) {
    static const std::vector<std::string> pieces = {"محمد",
                                                    " ",
                                                    "  ",
                                                    "لا",
                                                    "َّ",
                                                    "ـ",
                                                    "123",
                                                    "-0.35",
                                                    "21/03/2025",
                                                    "abc",
                                                    "(",
                                                    ")",
                                                    "%",
                                                    "\n",
                                                    "\t",
                                                    "\xE2\x80\xAE",
                                                    "\xE2\x81\xA6",
                                                    "\xE2\x81\xA9",
                                                    "\xE2\x80\x8D",
                                                    "\xF0\x9F\x98\x80",
                                                    "中",
                                                    "\xC2\xA0",
                                                    "،"};
    std::string text;
    const std::size_t length = random() % 40;
    for (std::size_t i = 0; i < length; ++i) {
        switch (random() % 4) {
        case 0:
            text.push_back(static_cast<char>(random() & 0xFFU));
            break;
        case 1:
            AppendCharacter(text, static_cast<char32_t>(random() % 0x110000U));
            break;
        default:
            text += pieces[random() % pieces.size()];
        }
    }
    return text;
}

} // namespace qbrpt::text::test
