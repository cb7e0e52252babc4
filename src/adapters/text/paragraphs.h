// From the bytes of a value to paragraphs of characters that layout can trust.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace qbrpt::text {

/// Cuts a text at its line ends. Invalid bytes come as U+FFFD, tabs as blanks, controls not at all; order
/// marks stay.
class ParagraphReader {
public:
    explicit ParagraphReader(std::string_view text) : mText(text) {}

    /// Reads the next paragraph into `characters`; false behind the last. An empty text has none; a line
    /// end at the very end begins no further one.
    bool Next(std::u32string& characters);

    [[nodiscard]] bool AtEnd() const { return mPosition >= mText.size(); }

private:
    std::string_view mText;
    std::size_t mPosition = 0;
};

} // namespace qbrpt::text
