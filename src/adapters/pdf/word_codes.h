// Shaped words and figures as strings of a PDF file's codes.
#pragma once

#include "adapters/pdf/font_codes.h"
#include "adapters/text/font_book.h"
#include "report/text_port.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace qbrpt::pdf {

/// Advances count in parts of the font size.
constexpr std::int32_t EmUnits = 10000;
/// How far the blank between two words moves the pen.
constexpr std::int32_t BlankAdvance = 2500;

/// A font at a size.
struct FontChoice {
    FontId font = 0;
    float size = 0; ///< twips
    friend bool operator==(const FontChoice&, const FontChoice&) = default;
};

/// A glyph that is drawn apart from its word's string: marks above and below, joining strokes.
struct Overlay {
    FontChoice font;
    report::Twips x = 0; ///< from the word's left edge
    report::Twips y = 0; ///< upwards from the baseline
    std::uint16_t code = 0;
};

/// Appends the operator that puts a font in force.
void AppendFont(std::string& content, const FontChoice& choice);

struct EncodedWord {
    FontChoice first;        ///< in force where `show` begins
    FontChoice last;         ///< in force behind it
    report::Twips start = 0; ///< of the first glyph, from the word's left edge
    /// What stands in an array of strings, from behind the first "(" up to and without the last ")".
    std::string show;
    double advance = 0; ///< twips that `show` moves the pen
    std::vector<Overlay> overlays;
    std::array<char, 2> blank{}; ///< the code of a blank in the last font
};

struct EncodedFigures {
    FontChoice font;
    std::array<char, 128> codes{}; ///< 0: not yet
    std::array<std::int32_t, 128> advances{};
};

class WordCodes {
public:
    WordCodes(const text::FontBook& fonts, FontCodes& codes) : mFonts(fonts), mCodes(codes) {}

    /// The codes of a word, from a bounded store; valid until the next call.
    const EncodedWord& Encode(const report::ShapedWord& word);

    /// The font that a style's figures are set in.
    FontChoice FigureFont(report::StyleId style);
    /// Appends the codes of `figures` and gives their advance in EmUnits; FigureFont of the style must be in
    /// force.
    double AppendFigures(std::string& content, std::string_view figures, report::StyleId style);

private:
    /// A glyph that takes its place in the row of letters.
    struct Carrier {
        const report::Glyph* glyph = nullptr;
        float origin = 0;      ///< ems from the run's left edge
        std::size_t first = 0; ///< the letters that it carries: bytes of the word's text
        std::size_t end = 0;
    };
    float FindCarriers(const report::ShapedWord& word, const report::GlyphRun& run);
    void EncodeRun(const report::ShapedWord& word, const report::GlyphRun& run, float left,
                   EncodedWord& encoded);
    std::int32_t AppendCarrier(CodeTable& table, const report::ShapedWord& word, const Carrier& carrier,
                               float width, std::string& show);
    void AddOverlays(const FontChoice& font, const report::GlyphRun& run, float left, EncodedWord& encoded);
    [[nodiscard]] int EmptyGlyph(report::FaceId face);
    EncodedFigures& FiguresOf(report::StyleId style);
    char AssignFigure(EncodedFigures& figures, report::StyleId style, unsigned character);

    const text::FontBook& mFonts;
    FontCodes& mCodes;
    std::unordered_map<std::uint64_t, EncodedWord> mWords;
    std::vector<EncodedFigures> mFigures; ///< by style
    std::unordered_map<report::FaceId, int> mEmpty;
    std::vector<Carrier> mCarriers;
    std::u32string mLetters;
};

} // namespace qbrpt::pdf
