// A text port with fixed widths: every character is half an em wide, a blank a quarter.
#pragma once

#include "base/utf8.h"
#include "report/text_port.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace qbrpt::fakes {

/// Breaks lines at blanks and orders words as a right-to-left page does, without any font.
class FakeTextPort : public report::TextPort {
public:
    using StyleId = report::StyleId;
    using Twips = report::Twips;

    StyleId Style(const report::FontSpec& font) override {
        for (std::size_t i = 0; i < mFonts.size(); ++i) {
            if (mFonts[i] == font) return static_cast<StyleId>(i);
        }
        mFonts.push_back(font);
        auto figures = std::make_unique<report::FigureFont>();
        figures->size = static_cast<float>(font.size);
        for (std::size_t c = 0; c < figures->advance.size(); ++c) {
            figures->glyph[c] = static_cast<std::uint16_t>(c);
            figures->advance[c] = c == ' ' ? 0.25F : 0.5F;
        }
        mFigures.push_back(std::move(figures));
        return static_cast<StyleId>(mFonts.size() - 1);
    }

    std::shared_ptr<const report::TextBlock> Layout(std::string_view text, StyleId style, Twips maxWidth,
                                                    report::BaseDirection base) override {
        ++layouts;
        auto block = std::make_shared<report::TextBlock>();
        for (std::size_t start = 0; start <= text.size();) {
            const std::size_t end = std::min(text.find('\n', start), text.size());
            BreakParagraph(text.substr(start, end - start), style, maxWidth, base, *block);
            start = end + 1;
        }
        for (const report::TextLine& line : block->lines)
            block->width = std::max(block->width, line.width);
        return block;
    }

    Twips Width(std::string_view text, StyleId style, report::BaseDirection) override {
        ++widths;
        return Em(style, Quarters(text));
    }

    const report::FigureFont& Figures(StyleId style) override { return *mFigures.at(style); }

    /// "family size", with "bold" behind it: for page texts.
    [[nodiscard]] std::string NameOf(StyleId style) const {
        const report::FontSpec& font = mFonts.at(style);
        return font.family + " " + std::to_string(font.size) + (font.bold ? " bold" : "");
    }

    int layouts = 0; ///< calls so far
    int widths = 0;

private:
    static bool IsInvisible(char32_t c) { return c >= 0x2066 && c <= 0x2069; }
    static bool IsRightToLeft(char32_t c) { return c >= 0x590 && c <= 0x8FF; }

    static int Quarters(std::string_view text) {
        int quarters = 0;
        for (std::size_t at = 0; at < text.size();) {
            const char32_t c = NextCharacter(text, at);
            if (!IsInvisible(c)) quarters += c == U' ' ? 1 : 2;
        }
        return quarters;
    }

    [[nodiscard]] Twips Em(StyleId style, int quarters) const { return mFonts.at(style).size * quarters / 4; }

    const report::ShapedWord* Word(const std::string& text, StyleId style) {
        auto& word = mWords[{text, style}];
        if (word) return word.get();
        word = std::make_unique<report::ShapedWord>();
        word->serial = mWords.size();
        for (std::size_t at = 0; at < text.size();) {
            const char32_t c = NextCharacter(text, at);
            if (IsInvisible(c)) continue;
            AppendCharacter(word->text, c);
            word->rightToLeft = word->rightToLeft || IsRightToLeft(c);
        }
        word->width = Em(style, Quarters(word->text));
        return word.get();
    }

    // The words of a paragraph; one wider than a line comes in pieces.
    std::vector<std::string> WordsOf(std::string_view text, StyleId style, Twips maxWidth) const {
        std::vector<std::string> words;
        for (std::size_t start = 0; start < text.size();) {
            const std::size_t end = std::min(text.find(' ', start), text.size());
            std::string piece;
            for (std::size_t at = start; at < end;) {
                const std::size_t before = at;
                NextCharacter(text, at);
                const std::string_view character = text.substr(before, at - before);
                if (maxWidth > 0 && !piece.empty() &&
                    Em(style, Quarters(piece) + Quarters(character)) > maxWidth) {
                    words.push_back(piece);
                    piece.clear();
                }
                piece.append(character);
            }
            if (!piece.empty()) words.push_back(piece);
            start = end + 1;
        }
        return words;
    }

    void BreakParagraph(std::string_view text, StyleId style, Twips maxWidth, report::BaseDirection base,
                        report::TextBlock& block) {
        std::vector<const report::ShapedWord*> line;
        Twips width = 0;
        const Twips blank = Em(style, 1);
        for (const std::string& word : WordsOf(text, style, maxWidth)) {
            const report::ShapedWord* shaped = Word(word, style);
            if (!line.empty() && maxWidth > 0 && width + blank + shaped->width > maxWidth) {
                block.lines.push_back(Placed(line, blank, base));
                line.clear();
            }
            width = line.empty() ? shaped->width : width + blank + shaped->width;
            line.push_back(shaped);
        }
        block.lines.push_back(Placed(line, blank, base));
    }

    static report::TextLine Placed(std::vector<const report::ShapedWord*> words, Twips blank,
                                   report::BaseDirection base) {
        if (base == report::BaseDirection::RightToLeft) {
            std::reverse(words.begin(), words.end());
            const auto rightToLeft = [](const report::ShapedWord* word) { return word->rightToLeft; };
            for (auto run = words.begin(); run != words.end();) {
                const auto end = std::find_if(run, words.end(), rightToLeft);
                std::reverse(run, end);
                run = end == words.end() ? end : end + 1;
            }
        }
        report::TextLine line;
        for (const report::ShapedWord* word : words) {
            if (!line.words.empty()) line.width += blank;
            line.words.push_back({word, line.width});
            line.width += word->width;
        }
        return line;
    }

    std::vector<report::FontSpec> mFonts;
    std::vector<std::unique_ptr<report::FigureFont>> mFigures;
    std::map<std::pair<std::string, StyleId>, std::unique_ptr<report::ShapedWord>> mWords;
};

} // namespace qbrpt::fakes
