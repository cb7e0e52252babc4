// Numbers as a PDF file spells them.
#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <string>

namespace qbrpt::pdf {

inline void AppendInteger(std::string& text, std::int64_t value) {
    std::array<char, 20> digits; // as many as the longest number has
    char* end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    text.append(digits.data(), end);
}

/// `value` / 10^decimals, without trailing zeros: 2835 with 1 is "283.5".
inline void AppendScaled(std::string& text, std::int64_t value, int decimals) {
    while (decimals > 0 && value % 10 == 0) {
        value /= 10;
        --decimals;
    }
    if (value < 0) text.push_back('-');
    std::string digits = std::to_string(value < 0 ? -value : value);
    const auto places = static_cast<std::size_t>(decimals);
    if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
    text.append(digits, 0, digits.size() - places);
    if (places > 0) text.append(".").append(digits, digits.size() - places);
}

/// `value` in `digits` hexadecimal digits.
inline void AppendHex(std::string& text, std::uint32_t value, unsigned digits) {
    for (unsigned i = digits; i-- > 0;)
        text.push_back("0123456789ABCDEF"[(value >> (4 * i)) & 0xFU]);
}

/// A character in UTF-16, in hexadecimal digits.
inline void AppendUtf16Hex(std::string& text, char32_t character) {
    if (character < 0x10000) {
        AppendHex(text, character, 4);
    } else {
        AppendHex(text, 0xD800U + ((character - 0x10000U) >> 10U), 4);
        AppendHex(text, 0xDC00U + ((character - 0x10000U) & 0x3FFU), 4);
    }
}

} // namespace qbrpt::pdf
