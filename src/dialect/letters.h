// Capital and small letters, character by character.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::dialect {

/// Letters of the Latin, Greek, Cyrillic and Armenian alphabets change; others, Arabic among them, have no
/// case and stay.
[[nodiscard]] char32_t SmallLetter(char32_t character);
[[nodiscard]] char32_t CapitalLetter(char32_t character);

/// `text` with each of its characters put through `change`.
[[nodiscard]] std::string ChangeLetters(std::string_view text, char32_t (*change)(char32_t));

/// The characters of a UTF-8 text, as small letters where `fold` says so.
[[nodiscard]] std::vector<char32_t> CharactersOf(std::string_view text, bool fold);

} // namespace qbrpt::dialect
