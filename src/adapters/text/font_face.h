// One face of a font file, open for shaping and for embedding.
#pragma once

#include <hb.h>

#include <cstdint>
#include <memory>
#include <string>

namespace qbrpt::text {

/// What a PDF says of a face. Lengths are in thousandths of the font size.
struct FaceMetrics {
    int ascent = 0;
    int descent = 0; ///< below 0
    int capHeight = 0;
    int left = 0;   ///< of the box that holds every glyph
    int bottom = 0; ///< of the box that holds every glyph
    int right = 0;  ///< of the box that holds every glyph
    int top = 0;    ///< of the box that holds every glyph
    int weight = 400;
    bool fixedPitch = false;
};

class FontFace {
public:
    /// Raises FailureNumber::FileAccess when the file cannot be read as a font.
    FontFace(const std::string& path, unsigned index);

    [[nodiscard]] bool Has(char32_t character) const { return GlyphOf(character) != 0; }
    /// 0 where the face lacks the character.
    [[nodiscard]] std::uint16_t GlyphOf(char32_t character) const;
    /// Width of a glyph in ems.
    [[nodiscard]] float AdvanceOf(std::uint16_t glyph) const;
    /// `units` of the font in ems.
    [[nodiscard]] float Ems(hb_position_t units) const { return static_cast<float>(units) / mUnitsPerEm; }
    /// A glyph that draws nothing; -1 where the face has none.
    [[nodiscard]] int EmptyGlyph() const;

    [[nodiscard]] std::string PostScriptName() const;
    [[nodiscard]] FaceMetrics Metrics() const;

    /// The face as a font file of its own, also where it came out of a collection.
    [[nodiscard]] std::string File() const;

    [[nodiscard]] hb_font_t* Font() const { return mFont.get(); }
    [[nodiscard]] hb_face_t* Face() const { return hb_font_get_face(mFont.get()); }

private:
    struct FontDeleter {
        void operator()(hb_font_t* font) const { hb_font_destroy(font); }
    };
    std::unique_ptr<hb_font_t, FontDeleter> mFont;
    float mUnitsPerEm = 1000;
};

} // namespace qbrpt::text
