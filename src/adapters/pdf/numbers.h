// Numbers as a PDF file spells them.
#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>

namespace qbrpt::pdf {

inline void AppendInteger(std::string& text, std::int64_t value) {
    std::array<char, 20> digits; // as many as the longest number has
    const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    text.append(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

/// The same with one character behind it.
inline void AppendInteger(std::string& text, std::int64_t value, char behind) {
    std::array<char, 21> digits;
    char* end = std::to_chars(digits.data(), digits.data() + digits.size() - 1, value).ptr;
    *end++ = behind;
    text.append(digits.data(), static_cast<std::size_t>(end - digits.data()));
}

/// `value` / 10^decimals, without zeros at either end: 2835 with 1 is "283.5", 50 with 3 is ".05".
inline void AppendScaled(std::string& text, std::int64_t value, int decimals) {
    while (decimals > 0 && value % 10 == 0) {
        value /= 10;
        --decimals;
    }
    if (value < 0) text.push_back('-');
    const std::size_t first = text.size();
    AppendInteger(text, value < 0 ? -value : value);
    if (decimals == 0) return;
    const auto places = static_cast<std::size_t>(decimals);
    if (text.size() - first < places) text.insert(first, places - (text.size() - first), '0');
    text.insert(text.size() - places, 1, '.');
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
