// Texts changed and taken apart character by character.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::dialect {

/// `text` with each of its characters put through `change`.
[[nodiscard]] std::string ChangeLetters(std::string_view text, char32_t (*change)(char32_t));

/// The characters of a UTF-8 text, each as all forms of its letter where `fold` says so.
[[nodiscard]] std::vector<char32_t> CharactersOf(std::string_view text, bool fold);

} // namespace qbrpt::dialect
