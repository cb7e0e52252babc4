// Draws display lists.
#pragma once

#include "adapters/qt/viewer/glyph_fonts.h"
#include "report/page.h"

#include <QtGui/QPainter>

#include <memory>
#include <vector>

namespace qbrpt::viewer {

/// Draws parts of pages at any scale. Letters stand where the PDF file has them; thin lines and edges are
/// moved to whole pixels, so that all of them look alike.
class PagePainter {
public:
    explicit PagePainter(GlyphFonts& fonts) : mFonts(fonts) {}

    /// Fills `image` with the part of `page` whose left upper corner is `origin`, in pixels of the image.
    void Paint(QImage& image, const report::Page& page, QPoint origin, double pixelsPerTwip);

private:
    /// Glyphs that wait to be drawn together.
    struct Batch {
        report::FaceId face = 0;
        double size = 0;
        report::Color color = 0;
        QList<quint32> glyphs;
        QList<QPointF> places;
    };
    struct ScaledPicture {
        std::shared_ptr<const Picture> picture;
        QImage image;
    };

    void Draw(const report::Page& page, const report::Item& item);
    void DrawWord(const report::Item& item);
    void DrawFigures(const report::Page& page, const report::Item& item);
    void DrawRule(const report::Item& item);
    void DrawFrame(const report::Item& item);
    void DrawImage(const report::Page& page, const report::Item& item);
    Batch& BatchOf(report::FaceId face, float size, report::Color color);
    void Flush();
    [[nodiscard]] bool Outside(const report::Item& item) const;
    [[nodiscard]] QRect Snapped(const report::Item& item) const;
    [[nodiscard]] int Stroke(const report::Item& item) const;
    [[nodiscard]] QColor StrokeColor(const report::Item& item) const;
    [[nodiscard]] QPointF At(double x, double y) const;

    GlyphFonts& mFonts;
    QPainter mPainter;
    QPoint mOrigin;
    QSize mSize;
    double mScale = 1;
    std::vector<Batch> mBatches;
    std::size_t mBatchesUsed = 0;
    std::vector<ScaledPicture> mPictures; ///< the last ones drawn
};

} // namespace qbrpt::viewer
