// Turns a stretch of text of one direction into placed glyphs.
#pragma once

#include "adapters/text/font_book.h"
#include "report/text_port.h"

#include <hb.h>

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::text {

/// A stretch of a text that is shaped on its own; what stands around it decides how its ends join.
struct Stretch {
    std::string_view text; ///< valid UTF-8, all of it the context
    std::size_t first = 0; ///< bytes
    std::size_t length = 0;
    bool rightToLeft = false;
};

class Shaper {
public:
    explicit Shaper(FontBook& fonts);

    [[nodiscard]] std::shared_ptr<const report::ShapedWord> Shape(const StyleFaces& style,
                                                                  const Stretch& stretch);

    /// Characters that no face of a style's chain has; a box was drawn for each.
    [[nodiscard]] const std::set<char32_t>& MissingCharacters() const { return mMissing; }

private:
    struct Part {
        std::size_t first = 0;
        std::size_t length = 0;
        report::FaceId face = 0;
    };
    struct Character {
        char32_t value = 0;
        std::size_t first = 0;
        bool arabic = false;
    };
    bool SetFigures(const StyleFaces& style, report::ShapedWord& word) const;
    void Split(const StyleFaces& style, const Stretch& stretch);
    void ChooseFaces(const StyleFaces& style, std::size_t begin, std::size_t end, std::size_t byteEnd);
    report::FaceId FaceFor(const StyleFaces& style, const std::vector<report::FaceId>& chain,
                           char32_t character);
    void AddPart(report::FaceId face, std::size_t first, std::size_t end);
    report::GlyphRun ShapePart(const StyleFaces& style, const Stretch& stretch, const Part& part);

    struct BufferDeleter {
        void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
    };
    FontBook& mFonts;
    std::unique_ptr<hb_buffer_t, BufferDeleter> mBuffer;
    std::vector<Character> mCharacters;
    std::vector<Part> mParts;
    std::set<char32_t> mMissing;
    std::uint64_t mNextSerial;
};

} // namespace qbrpt::text
