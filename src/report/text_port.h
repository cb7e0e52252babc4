// Text as the report engine asks for it: measured, shaped and ordered by somebody else.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::report {

/// 1440 to the inch, 20 to the point.
using Twips = std::int32_t;
/// A font at a size, as TextPort::Style knows it.
using StyleId = std::uint16_t;
/// A font file's face, as the text adapter numbers them; the PDF writer asks it for the file.
using FaceId = std::uint16_t;

struct FontSpec {
    std::string family;
    Twips size = 180; ///< 20 to the point
    bool bold = false;
    friend bool operator==(const FontSpec&, const FontSpec&) = default;
};

/// One drawn glyph. Lengths are in ems (1.0 is the font size).
struct Glyph {
    std::uint16_t id = 0;
    float advance = 0;
    float xOffset = 0;
    float yOffset = 0;
    std::uint16_t textStart = 0;  ///< bytes into the word's text: the letters that this glyph stands for
    std::uint16_t textLength = 0; ///< 0 for a glyph without a letter of its own (a mark, a joining stroke)
};

/// Glyphs of one face at one size, left to right as they are drawn.
struct GlyphRun {
    FaceId face = 0;
    float size = 0; ///< twips
    std::vector<Glyph> glyphs;
};

/// Right-to-left mark: stands in a word's text at the end that is drawn leftmost, draws nothing, and keeps
/// figures and the marks behind them apart for programs that read the page.
constexpr char32_t ReadingMark = 0x200F;

/// A word, shaped once. Never changes; alive as long as a TextBlock that holds it.
struct ShapedWord {
    std::uint64_t serial = 0; ///< unique in the process: a key for what writers keep per word
    std::string text;         ///< UTF-8, in reading order
    Twips width = 0;
    bool rightToLeft = false;
    std::vector<GlyphRun> runs; ///< left to right
};

struct PlacedWord {
    const ShapedWord* word = nullptr;
    Twips x = 0; ///< left edge, from the left edge of the line
};

/// Words in drawing order, left to right.
struct TextLine {
    Twips width = 0;
    std::vector<PlacedWord> words;
};

/// A text broken into lines. Holds its words alive.
struct TextBlock {
    std::vector<TextLine> lines;
    Twips width = 0; ///< of the widest line
    std::shared_ptr<const void> words;
};

/// One face for figures: digits and the marks that stand in them, drawn left to right without shaping.
/// '-' is drawn as a minus sign: U+2212, or the en dash of a face that lacks it. Characters that the face
/// lacks have glyph 0.
struct FigureFont {
    FaceId face = 0;
    float size = 0; ///< twips
    std::array<std::uint16_t, 128> glyph{};
    std::array<float, 128> advance{}; ///< ems
};

enum class BaseDirection : std::uint8_t { RightToLeft, LeftToRight };

/// What the engine needs of fonts. One implementation serves screen, PDF and paper, so that all three
/// break lines alike.
class TextPort {
public:
    virtual ~TextPort() = default;

    /// The style of a font; the same number for the same font.
    virtual StyleId Style(const FontSpec& font) = 0;

    /// Text in lines no wider than `maxWidth` (0: one line), broken at blanks, and between letters only
    /// where a single word is too wide. A line feed begins a line. Figures, dates and codes inside Arabic
    /// keep their order.
    virtual std::shared_ptr<const TextBlock> Layout(std::string_view text, StyleId style, Twips maxWidth,
                                                    BaseDirection base) = 0;

    /// Width of `text` on one line; the same as Layout's, without building lines.
    virtual Twips Width(std::string_view text, StyleId style, BaseDirection base) = 0;

    /// The figure font of a style; valid as long as the port.
    virtual const FigureFont& Figures(StyleId style) = 0;
};

} // namespace qbrpt::report
