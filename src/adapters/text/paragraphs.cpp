#include "adapters/text/paragraphs.h"

#include "adapters/text/characters.h"
#include "base/utf8.h"

namespace qbrpt::text {

bool ParagraphReader::Next(std::u32string& characters) {
    characters.clear();
    if (mPosition >= mText.size()) return false;
    while (mPosition < mText.size()) {
        const char32_t c = NextCharacter(mText, mPosition);
        if (IsLineEnd(c)) {
            if (c == U'\r' && mPosition < mText.size() && mText[mPosition] == '\n') ++mPosition;
            return true;
        }
        if (c == U'\t') {
            characters.push_back(U' ');
        } else if (!IsDropped(c)) {
            characters.push_back(c);
        }
    }
    return true;
}

} // namespace qbrpt::text
