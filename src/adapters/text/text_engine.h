// The text port of the house: FontConfig finds the faces, FriBidi orders, HarfBuzz shapes.
#pragma once

#include "adapters/text/block_builder.h"
#include "adapters/text/font_book.h"
#include "adapters/text/line_breaker.h"
#include "adapters/text/plain_text.h"
#include "adapters/text/shaper.h"
#include "adapters/text/word_cache.h"
#include "report/text_port.h"

#include <array>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::text {

/// Shapes each distinct word once and keeps it for a while, so that a million names made of some thousand
/// words cost little. Takes any bytes: what is no UTF-8 shows as U+FFFD.
class TextEngine final : public report::TextPort {
public:
    TextEngine();

    report::StyleId Style(const report::FontSpec& font) override;
    std::shared_ptr<const report::TextBlock> Layout(std::string_view text, report::StyleId style,
                                                    report::Twips maxWidth,
                                                    report::BaseDirection base) override;
    report::Twips Width(std::string_view text, report::StyleId style, report::BaseDirection base) override;
    const report::FigureFont& Figures(report::StyleId style) override;

    /// Characters met so far that no face of their style has, one entry each: "U+4E2D 中". A box stands on
    /// the page for each; whoever made the page owes the user a warning.
    [[nodiscard]] std::vector<std::string> MissingGlyphs() const;

    /// The faces behind the FaceIds of shaped words, for embedding.
    [[nodiscard]] const FontBook& Fonts() const { return mFonts; }

private:
    /// A text of one line as it was last read: a page measures a row, then draws it.
    struct Reading {
        std::string text;
        report::StyleId style = 0;
        report::BaseDirection base = report::BaseDirection::RightToLeft;
        std::vector<Unit> units;
        report::Twips width = 0; ///< without the blanks at both ends
    };

    const Reading* ReadOneLine(std::string_view text, report::StyleId style, report::BaseDirection base);
    void ReadPieces(report::StyleId style, std::size_t length);
    void AddLines(std::span<const Unit> units, report::StyleId style, report::Twips maxWidth);
    void ReadUnits(report::StyleId style, report::BaseDirection base);
    [[nodiscard]] bool NeedsMark(std::size_t first, std::size_t end) const;
    void AddWord(report::StyleId style, std::size_t first, std::size_t end);
    std::shared_ptr<const report::ShapedWord> Word(report::StyleId style, bool rightToLeft);
    [[nodiscard]] std::vector<Unit> Cut(const StyleFaces& faces, const Unit& unit, report::Twips width);

    FontBook mFonts;
    Shaper mShaper;
    WordCache<std::shared_ptr<const report::ShapedWord>> mWords;
    WordCache<std::shared_ptr<const report::TextBlock>> mBlocks;
    BlockBuilder mBuilder;
    std::array<Reading, 64> mReadings; ///< by the hash of their texts
    // Working memory, kept from call to call.
    std::vector<PlainPiece> mPieces;
    std::u32string mCharacters;
    std::vector<Level> mLevels;
    std::vector<Unit> mUnits;
    std::string mText;
    std::string mKey;
    std::string mBlockKey;
};

/// The text port of the process's reports.
[[nodiscard]] std::unique_ptr<TextEngine> MakeTextPort();

} // namespace qbrpt::text
