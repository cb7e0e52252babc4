#include "adapters/qt/viewer/glyph_fonts.h"

#include <cmath>

namespace qbrpt::viewer {

namespace {

constexpr double Steps = 64;
constexpr double AnySize = 16;

} // namespace

const QRawFont& GlyphFonts::Font(report::FaceId face, double pixels) {
    const int size = static_cast<int>(std::lround(pixels * Steps));
    const auto [place, isNew] = mSizes.try_emplace({face, size});
    if (!isNew) return place->second;
    const auto [known, isNewFace] = mFaces.try_emplace(face);
    if (isNewFace) {
        const std::string file = mBook.Face(face).File();
        // Hinting would move letters away from where paper has them.
        known->second = QRawFont(QByteArray::fromStdString(file), AnySize, QFont::PreferNoHinting);
    }
    place->second = known->second;
    place->second.setPixelSize(size / Steps);
    return place->second;
}

} // namespace qbrpt::viewer
