#include "dialect/letters.h"

#include "base/utf8.h"

#include <array>

namespace qbrpt::dialect {

namespace {

// Capitals `first` to `last`; every `step`-th is one, and its small letter lies `distance` behind it.
struct Capitals {
    char32_t first;
    char32_t last;
    char32_t step;
    char32_t distance;
};

constexpr auto Ranges = std::to_array<Capitals>({
    {U'A', U'Z', 1, 32},
    {0xC0, 0xD6, 1, 32},
    {0xD8, 0xDE, 1, 32},
    {0x100, 0x12E, 2, 1},
    {0x132, 0x136, 2, 1},
    {0x139, 0x147, 2, 1},
    {0x14A, 0x176, 2, 1},
    {0x179, 0x17D, 2, 1},
    {0x391, 0x3A1, 1, 32},
    {0x3A3, 0x3AB, 1, 32},
    {0x400, 0x40F, 1, 80},
    {0x410, 0x42F, 1, 32},
    {0x460, 0x480, 2, 1},
    {0x48A, 0x4BE, 2, 1},
    {0x4D0, 0x52E, 2, 1},
    {0x531, 0x556, 1, 48},
    {0x1E00, 0x1E94, 2, 1},
    {0x1EA0, 0x1EFE, 2, 1},
});

bool Holds(const Capitals& range, char32_t character) {
    return character >= range.first && character <= range.last && (character - range.first) % range.step == 0;
}

} // namespace

char32_t SmallLetter(char32_t character) {
    if (character < 0x80) return character >= U'A' && character <= U'Z' ? character + 32 : character;
    for (const Capitals& range : Ranges) {
        if (Holds(range, character)) return character + range.distance;
    }
    return character;
}

char32_t CapitalLetter(char32_t character) {
    for (const Capitals& range : Ranges) {
        if (character >= range.distance && Holds(range, character - range.distance))
            return character - range.distance;
    }
    return character;
}

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
        characters.push_back(fold ? SmallLetter(character) : character);
    }
    return characters;
}

} // namespace qbrpt::dialect
