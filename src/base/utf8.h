// UTF-8 by characters.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qbrpt {

constexpr char32_t ReplacementCharacter = 0xFFFD;

/// Reads the character at `position` and moves past it. A byte that begins no valid character reads
/// as U+FFFD and is stepped over alone, so that a walk over any bytes ends.
char32_t NextCharacter(std::string_view text, std::size_t& position);

void AppendCharacter(std::string& text, char32_t character);

[[nodiscard]] std::size_t CharacterCount(std::string_view text);

/// The first `count` characters, whole.
[[nodiscard]] std::string_view FirstCharacters(std::string_view text, std::size_t count);

/// As many whole characters from the beginning as fit into `bytes`.
[[nodiscard]] std::string_view WholeCharacters(std::string_view text, std::size_t bytes);

/// `text` with every invalid byte replaced by U+FFFD; valid text comes back unchanged.
[[nodiscard]] std::string ValidUtf8(std::string_view text);

} // namespace qbrpt
