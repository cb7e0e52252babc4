#include "dialect/letters.h"

#include "base/letters.h"
#include "base/utf8.h"

namespace qbrpt::dialect {

std::string ChangeLetters(std::string_view text, char32_t (*change)(char32_t)) {
    std::string changed;
    changed.reserve(text.size());
    for (std::size_t at = 0; at < text.size();)
        AppendCharacter(changed, change(NextCharacter(text, at)));
    return changed;
}

std::vector<char32_t> CharactersOf(std::string_view text, bool fold) {
    std::vector<char32_t> characters;
    characters.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = NextCharacter(text, at);
        characters.push_back(fold ? FoldedLetter(character) : character);
    }
    return characters;
}

} // namespace qbrpt::dialect
