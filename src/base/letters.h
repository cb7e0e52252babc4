// Capital and small letters of all alphabets that have them.
#pragma once

#include <string_view>

namespace qbrpt {

/// The letter as a small or as a capital one; a character without the other form, Arabic among them, stays.
[[nodiscard]] char32_t SmallLetter(char32_t character);
[[nodiscard]] char32_t CapitalLetter(char32_t character);

/// The same for all forms of one letter: its capital, its small one, and others such as the final sigma.
[[nodiscard]] char32_t FoldedLetter(char32_t character);

/// Whether two UTF-8 texts differ in the case of their letters at most. Accents count, and letters are
/// compared one by one: "ß" is not "ss".
[[nodiscard]] bool SameFolded(std::string_view one, std::string_view other);

} // namespace qbrpt
