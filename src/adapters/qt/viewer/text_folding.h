// Texts made alike for searching.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::viewer {

/// A text as searches compare it: without vowel marks, tatweel and signs that only steer its order; all forms
/// of alef as the bare one, Arabic figures as Latin ones, small letters for capital ones, one blank for many.
class FoldedText {
public:
    /// Appends what `text` is to a search; its letters are told apart from others by `word` and by their
    /// bytes.
    void Append(std::string_view text, std::size_t word);
    /// Parts what was appended from what will be: a blank, which a search may hold, or an end, which none
    /// does.
    void AppendBlank();
    void AppendEnd();

    [[nodiscard]] const std::u32string& Letters() const { return mLetters; }
    struct Source {
        std::size_t word = 0;
        std::size_t firstByte = 0;
        std::size_t endByte = 0; ///< behind the letter and the marks that belong to it
    };
    /// Where a letter came from; a blank or an end came from nowhere and has no bytes.
    [[nodiscard]] const Source& SourceOf(std::size_t letter) const { return mSources[letter]; }

private:
    std::u32string mLetters;
    std::vector<Source> mSources;
};

/// What a user typed, folded; without blanks at its ends. Empty where nothing is left to look for.
[[nodiscard]] std::u32string FoldQuery(std::string_view text);

} // namespace qbrpt::viewer
