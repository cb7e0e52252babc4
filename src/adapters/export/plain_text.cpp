#include "adapters/export/plain_text.h"

#include "base/utf8.h"

#include <algorithm>

namespace qbrpt {

namespace {

bool IsPlain(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 && byte < 0x7F;
}

bool IsControl(char32_t c) {
    return c < 0x20 || (c >= 0x7F && c < 0xA0);
}

bool IsNone(char32_t c) {
    return c == 0xFFFE || c == 0xFFFF;
}

} // namespace

std::string PlainText(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        if (IsPlain(text[at])) {
            plain += text[at++];
            continue;
        }
        const char32_t c = NextCharacter(text, at);
        if (c == U'\r') {
            if (at == text.size() || text[at] != '\n') plain += '\n';
        } else if (c == U'\n') {
            plain += '\n';
        } else if (IsControl(c)) {
            plain += ' ';
        } else {
            AppendCharacter(plain, IsNone(c) ? ReplacementCharacter : c);
        }
    }
    return plain;
}

std::string WithoutIsolates(std::string_view text) {
    std::string bare;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t c = NextCharacter(text, at);
        if (c < 0x2066 || c > 0x2069) AppendCharacter(bare, c);
    }
    return bare;
}

} // namespace qbrpt
