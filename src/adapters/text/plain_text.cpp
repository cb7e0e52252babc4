#include "adapters/text/plain_text.h"

#include "adapters/text/characters.h"

#include <cstddef>

namespace qbrpt::text {

namespace {

// The letter that two bytes spell, or 0 where they are none of the Arabic block's letters and vowel marks.
char32_t LetterAt(std::string_view text, std::size_t at) {
    if (at + 1 >= text.size()) return 0;
    const auto lead = static_cast<unsigned char>(text[at]);
    const auto trail = static_cast<unsigned char>(text[at + 1]);
    if (lead < 0xD8 || lead > 0xDB || (trail & 0xC0U) != 0x80U) return 0;
    const char32_t c = (char32_t{lead & 0x1FU} << 6U) | (trail & 0x3FU);
    const bool mark = c == U'،' || c == U'؛' || c == U'؟' || IsOrderMark(c);
    return IsArabic(c) && !mark ? c : 0;
}

} // namespace

bool CutPlain(std::string_view text, std::vector<PlainPiece>& pieces) {
    using Kind = PlainPiece::Kind;
    pieces.clear();
    bool figuresBefore = false;
    for (std::size_t first = 0; first < text.size();) {
        std::size_t end = first;
        Kind kind = Kind::Blank;
        if (text[first] == ' ') {
            ++end;
        } else if (text[first] >= '0' && text[first] <= '9') {
            if (figuresBefore) return false;
            kind = Kind::Figures;
            while (end < text.size() && text[end] >= '0' && text[end] <= '9')
                ++end;
        } else {
            kind = Kind::Letters;
            while (LetterAt(text, end) != 0)
                end += 2;
        }
        const bool wordEnds = kind == Kind::Blank || end == text.size() || text[end] == ' ';
        if (end == first || !wordEnds) return false;
        if (kind != Kind::Blank) figuresBefore = kind == Kind::Figures;
        pieces.push_back({kind, text.substr(first, end - first)});
        first = end;
    }
    return true;
}

} // namespace qbrpt::text
