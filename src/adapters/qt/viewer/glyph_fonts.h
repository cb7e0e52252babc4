// The faces of pages as fonts that Qt draws with.
#pragma once

#include "adapters/text/font_book.h"
#include "report/text_port.h"

#include <QtGui/QRawFont>

#include <map>
#include <utility>

namespace qbrpt::viewer {

/// Fonts by face and size. Glyphs are asked for by number, as the text engine shaped them; nothing is shaped
/// again.
class GlyphFonts {
public:
    explicit GlyphFonts(const text::FontBook& book) : mBook(book) {}

    [[nodiscard]] const text::FontBook& Book() const { return mBook; }
    const QRawFont& Font(report::FaceId face, double pixels);
    /// Lets go of all sizes, with the glyph pictures that Qt keeps for them.
    void ForgetSizes() { mSizes.clear(); }

private:
    const text::FontBook& mBook;
    std::map<report::FaceId, QRawFont> mFaces;
    std::map<std::pair<report::FaceId, int>, QRawFont> mSizes; ///< in 64ths of a pixel
};

} // namespace qbrpt::viewer
