#include "adapters/qt/viewer/text_folding.h"

#include "adapters/text/characters.h"
#include "base/utf8.h"

#include <QtCore/QChar>

namespace qbrpt::viewer {

namespace {

/// Stands in no text that can be typed.
constexpr char32_t End = 0;
constexpr char32_t Tatweel = 0x0640;
constexpr char32_t NoBreakBlank = 0x00A0;

bool IsPassedOver(char32_t c) {
    return c == Tatweel || text::IsAttached(c) || text::IsOrderMark(c) || text::IsDropped(c);
}

char32_t Folded(char32_t c) {
    switch (c) {
    case U'أ':
    case U'إ':
    case U'آ':
    case 0x0671: // alef with wasla
        return U'ا';
    case 0x066A:
        return U'%';
    case 0x066B:
        return U'.';
    case 0x066C:
        return U',';
    case 0x2212: // minus
        return U'-';
    default:
        break;
    }
    if (c >= 0x0660 && c <= 0x0669) return U'0' + (c - 0x0660);
    if (c >= 0x06F0 && c <= 0x06F9) return U'0' + (c - 0x06F0);
    if (text::IsBlank(c) || c == NoBreakBlank || c == U'\t') return U' ';
    return QChar::toCaseFolded(c);
}

} // namespace

void FoldedText::Append(std::string_view text, std::size_t word) {
    bool ownLetter = false;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t begin = at;
        const char32_t c = NextCharacter(text, at);
        if (IsPassedOver(c)) {
            if (ownLetter) mSources.back().endByte = at;
            continue;
        }
        const char32_t folded = Folded(c);
        if (folded == U' ' && !mLetters.empty() && mLetters.back() == U' ') continue;
        mLetters.push_back(folded);
        mSources.push_back({word, begin, at});
        ownLetter = true;
    }
}

void FoldedText::AppendBlank() {
    if (mLetters.empty() || mLetters.back() == U' ') return;
    mLetters.push_back(U' ');
    mSources.emplace_back();
}

void FoldedText::AppendEnd() {
    mLetters.push_back(End);
    mSources.emplace_back();
}

std::u32string FoldQuery(std::string_view text) {
    FoldedText folded;
    folded.Append(text, 0);
    std::u32string letters = folded.Letters();
    const std::size_t first = letters.find_first_not_of(U' ');
    if (first == std::u32string::npos) return {};
    return letters.substr(first, letters.find_last_not_of(U' ') + 1 - first);
}

} // namespace qbrpt::viewer
