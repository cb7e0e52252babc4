#include "base/utf8.h"

namespace qbrpt {

namespace {

bool Continues(unsigned char byte) {
    return (byte & 0xC0U) == 0x80U;
}

// Length of the character that `lead` begins, 0 where it begins none, and the bits it gives.
std::size_t LengthOf(unsigned char lead, char32_t& bits) {
    if (lead < 0x80U) return bits = lead, 1;
    if (lead >= 0xC2U && lead < 0xE0U) return bits = lead & 0x1FU, 2;
    if (lead >= 0xE0U && lead < 0xF0U) return bits = lead & 0x0FU, 3;
    if (lead >= 0xF0U && lead < 0xF5U) return bits = lead & 0x07U, 4;
    return 0;
}

bool Allowed(char32_t character, std::size_t length) {
    if (length == 3) return character >= 0x800 && (character < 0xD800 || character > 0xDFFF);
    if (length == 4) return character >= 0x10000 && character <= 0x10FFFF;
    return true;
}

} // namespace

char32_t NextCharacter(std::string_view text, std::size_t& position) {
    const std::size_t start = position++;
    char32_t character = 0;
    const std::size_t length = LengthOf(static_cast<unsigned char>(text[start]), character);
    if (length == 0 || start + length > text.size()) return ReplacementCharacter;
    for (std::size_t i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[start + i]);
        if (!Continues(byte)) return ReplacementCharacter;
        character = (character << 6U) | (byte & 0x3FU);
    }
    if (!Allowed(character, length)) return ReplacementCharacter;
    position = start + length;
    return character;
}

void AppendCharacter(std::string& text, char32_t character) {
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0U | (character >> 6U));
        put(0x80U | (character & 0x3FU));
    } else if (character < 0x10000) {
        put(0xE0U | (character >> 12U));
        put(0x80U | ((character >> 6U) & 0x3FU));
        put(0x80U | (character & 0x3FU));
    } else {
        put(0xF0U | (character >> 18U));
        put(0x80U | ((character >> 12U) & 0x3FU));
        put(0x80U | ((character >> 6U) & 0x3FU));
        put(0x80U | (character & 0x3FU));
    }
}

std::size_t CharacterCount(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t position = 0; position < text.size(); ++count)
        NextCharacter(text, position);
    return count;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
    if (text.size() <= count) return text; // a character has at least one byte
    std::size_t position = 0;
    while (count-- > 0 && position < text.size())
        NextCharacter(text, position);
    return text.substr(0, position);
}

std::string_view WholeCharacters(std::string_view text, std::size_t bytes) {
    std::size_t end = 0;
    for (std::size_t next = 0; end < text.size(); end = next) {
        static_cast<void>(NextCharacter(text, next));
        if (next > bytes) break;
    }
    return text.substr(0, end);
}

std::string ValidUtf8(std::string_view text) {
    std::string valid;
    valid.reserve(text.size());
    for (std::size_t position = 0; position < text.size();)
        AppendCharacter(valid, NextCharacter(text, position));
    return valid;
}

} // namespace qbrpt
