// What tests of text ask of a laid-out block.
#pragma once

#include "adapters/text/text_engine.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::text::test {

using report::BaseDirection;

inline const report::FontSpec Body{"Noto Sans Arabic", 180, false};

/// A word's text without the mark for programs that read the page.
inline std::string Plain(std::string text) {
    constexpr std::string_view mark = "\xE2\x80\x8F";
    for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark))
        text.erase(at, mark.size());
    return text;
}

/// The words of a line as they stand on the page, from left to right.
inline std::vector<std::string> WordsLeftToRight(const report::TextLine& line) {
    std::vector<report::PlacedWord> words = line.words;
    std::stable_sort(words.begin(), words.end(), [](const auto& a, const auto& b) { return a.x < b.x; });
    std::vector<std::string> texts;
    for (const report::PlacedWord& word : words)
        texts.push_back(Plain(word.word->text));
    return texts;
}

/// The lines of a block in reading order of an Arabic page: the words of each from right to left.
inline std::vector<std::string> LinesRightToLeft(const report::TextBlock& block) {
    std::vector<std::string> lines;
    for (const report::TextLine& line : block.lines) {
        std::vector<std::string> words = WordsLeftToRight(line);
        std::reverse(words.begin(), words.end());
        std::string& text = lines.emplace_back();
        for (const std::string& word : words)
            text += (text.empty() ? "" : " ") + word;
    }
    return lines;
}

inline std::vector<report::Glyph> GlyphsOf(const report::TextBlock& block) {
    std::vector<report::Glyph> glyphs;
    for (const report::TextLine& line : block.lines)
        for (const report::PlacedWord& word : line.words)
            for (const report::GlyphRun& run : word.word->runs)
                glyphs.insert(glyphs.end(), run.glyphs.begin(), run.glyphs.end());
    return glyphs;
}

/// Sets FONTCONFIG_FILE while it lives.
class FontConfiguration {
public:
    explicit FontConfiguration(const std::string& file) {
        if (const char* before = std::getenv("FONTCONFIG_FILE")) mBefore = before;
        setenv("FONTCONFIG_FILE", file.c_str(), 1);
    }
    ~FontConfiguration() {
        mBefore.empty() ? unsetenv("FONTCONFIG_FILE") : setenv("FONTCONFIG_FILE", mBefore.c_str(), 1);
    }
    FontConfiguration(const FontConfiguration&) = delete;
    FontConfiguration& operator=(const FontConfiguration&) = delete;

private:
    std::string mBefore;
};

} // namespace qbrpt::text::test
