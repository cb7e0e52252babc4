// What a character is to layout: where lines may break, which face draws it, what never reaches a page.
#pragma once

#include <cstdint>

namespace qbrpt::text {

/// A blank that words are split at. A no-break blank is none.
[[nodiscard]] constexpr bool IsBlank(char32_t c) {
    return c == U' ' || (c >= 0x2000 && c <= 0x200A && c != 0x2007) || c == 0x205F || c == 0x3000;
}

/// Ends a line wherever it stands: line feed, carriage return, form feed, and what Unicode adds.
[[nodiscard]] constexpr bool IsLineEnd(char32_t c) {
    return (c >= 0x0A && c <= 0x0D) || c == 0x85 || c == 0x2028 || c == 0x2029;
}

/// Marks that only steer the order of text: single marks and isolates. Embeddings and overrides are not
/// among them; they are dropped, since one that is left open would turn all that follows.
[[nodiscard]] constexpr bool IsOrderMark(char32_t c) {
    return c == 0x200E || c == 0x200F || c == 0x061C || (c >= 0x2066 && c <= 0x2069);
}

/// Has no place on a page.
[[nodiscard]] constexpr bool IsDropped(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x202A && c <= 0x202E) || c == 0x00AD ||
           c == 0x200B || (c >= 0x2060 && c <= 0x2064) || (c >= 0x206A && c <= 0x206F) || c == 0xFEFF ||
           (c >= 0xFFF9 && c <= 0xFFFB) || (c & 0xFFFEU) == 0xFFFE || (c >= 0xFDD0 && c <= 0xFDEF) ||
           (c >= 0xE0000 && c <= 0xE0FFF);
}

/// An Arabic-Indic or Eastern Arabic-Indic digit.
[[nodiscard]] constexpr bool IsArabicDigit(char32_t c) {
    return (c >= 0x0660 && c <= 0x0669) || (c >= 0x06F0 && c <= 0x06F9);
}

/// A percent sign, decimal point or thousands mark of Arabic figures.
[[nodiscard]] constexpr bool IsArabicFigureMark(char32_t c) {
    return c >= 0x066A && c <= 0x066C;
}

/// Letters, vowel marks and punctuation of the Arabic script, without its figures.
[[nodiscard]] constexpr bool IsArabic(char32_t c) {
    return ((c >= 0x0600 && c <= 0x06FF) || (c >= 0x0750 && c <= 0x077F) || (c >= 0x0870 && c <= 0x08FF) ||
            (c >= 0xFB50 && c <= 0xFDFF) || (c >= 0xFE70 && c <= 0xFEFC)) &&
           !IsArabicDigit(c) && !IsArabicFigureMark(c);
}

/// Follows the character before it: combining marks, joiners, variation selectors.
[[nodiscard]] constexpr bool IsAttached(char32_t c) {
    return (c >= 0x0300 && c <= 0x036F) || (c >= 0x0610 && c <= 0x061A) || (c >= 0x064B && c <= 0x065F) ||
           c == 0x0670 || (c >= 0x06D6 && c <= 0x06DC) || (c >= 0x06DF && c <= 0x06E4) || c == 0x06E7 ||
           c == 0x06E8 || (c >= 0x06EA && c <= 0x06ED) || (c >= 0x0898 && c <= 0x089F) ||
           (c >= 0x08CA && c <= 0x08E1) || (c >= 0x08E3 && c <= 0x08FF) || c == 0x200C || c == 0x200D ||
           (c >= 0x20D0 && c <= 0x20F0) || (c >= 0xFE00 && c <= 0xFE0F) || (c >= 0xFE20 && c <= 0xFE2F);
}

[[nodiscard]] constexpr bool IsAsciiDigit(char32_t c) {
    return c >= U'0' && c <= U'9';
}

[[nodiscard]] constexpr bool IsAsciiLetter(char32_t c) {
    return (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z');
}

} // namespace qbrpt::text
