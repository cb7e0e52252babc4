#include "adapters/qt/viewer/page_painter.h"

#include <QtGui/QGlyphRun>

#include <algorithm>
#include <cmath>

namespace qbrpt::viewer {

namespace {

/// A glyph may reach over its word by as much, in twips: tails, dots and marks of the largest headings.
constexpr report::Twips Overhang = 480;
constexpr double TwipsPerHundredth = 0.2; ///< of a point
constexpr std::size_t PicturesKept = 8;

QColor ColorOf(report::Color color) {
    return QColor::fromRgb(0xFF000000U | color);
}

} // namespace

void PagePainter::Paint(QImage& image, const report::Page& page, QPoint origin, double pixelsPerTwip) {
    mOrigin = origin;
    mSize = image.size();
    mScale = pixelsPerTwip;
    mPainter.begin(&image);
    mPainter.setRenderHints(QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    for (const report::Item& item : page.items)
        if (!Outside(item)) Draw(page, item);
    Flush();
    mPainter.end();
}

void PagePainter::Draw(const report::Page& page, const report::Item& item) {
    const bool writes = item.kind == report::ItemKind::Word || item.kind == report::ItemKind::Figures;
    if (!writes) Flush();
    switch (item.kind) {
    case report::ItemKind::Word:
        DrawWord(item);
        break;
    case report::ItemKind::Figures:
        DrawFigures(page, item);
        break;
    case report::ItemKind::Rule:
        DrawRule(item);
        break;
    case report::ItemKind::Fill:
        mPainter.fillRect(Snapped(item), ColorOf(item.color));
        break;
    case report::ItemKind::Frame:
        DrawFrame(item);
        break;
    case report::ItemKind::Image:
        DrawImage(page, item);
        break;
    }
}

QPointF PagePainter::At(double x, double y) const {
    return {x * mScale - mOrigin.x(), y * mScale - mOrigin.y()};
}

bool PagePainter::Outside(const report::Item& item) const {
    const double left = std::min(item.x, item.x + item.width) - Overhang;
    const double right = std::max(item.x, item.x + item.width) + Overhang;
    const double top = std::min(item.y, item.y + item.height) - Overhang;
    const double bottom = std::max(item.y, item.y + item.height) + Overhang;
    const QRectF place(At(left, top), At(right, bottom));
    return place.right() < 0 || place.bottom() < 0 || place.left() > mSize.width() ||
           place.top() > mSize.height();
}

PagePainter::Batch& PagePainter::BatchOf(report::FaceId face, float size, report::Color color) {
    const double pixels = size * mScale;
    for (std::size_t i = mBatchesUsed; i-- > 0;) {
        Batch& batch = mBatches[i];
        if (batch.face == face && batch.size == pixels && batch.color == color) return batch;
    }
    if (mBatchesUsed == mBatches.size()) mBatches.emplace_back();
    Batch& batch = mBatches[mBatchesUsed++];
    batch.face = face;
    batch.size = pixels;
    batch.color = color;
    return batch;
}

void PagePainter::Flush() {
    for (std::size_t i = 0; i < mBatchesUsed; ++i) {
        Batch& batch = mBatches[i];
        QGlyphRun run;
        run.setRawFont(mFonts.Font(batch.face, batch.size));
        run.setRawData(batch.glyphs.constData(), batch.places.constData(),
                       static_cast<int>(batch.glyphs.size()));
        mPainter.setPen(ColorOf(batch.color));
        mPainter.drawGlyphRun(QPointF(), run);
        batch.glyphs.resize(0);
        batch.places.resize(0);
    }
    mBatchesUsed = 0;
}

void PagePainter::DrawWord(const report::Item& item) {
    if (item.word == nullptr) return;
    double pen = item.x;
    for (const report::GlyphRun& run : item.word->runs) {
        Batch& batch = BatchOf(run.face, run.size, item.color);
        for (const report::Glyph& glyph : run.glyphs) {
            const double x = pen + double{glyph.xOffset} * run.size;
            const double y = item.y - double{glyph.yOffset} * run.size;
            batch.glyphs.append(glyph.id);
            batch.places.append(At(x, y));
            pen += double{glyph.advance} * run.size;
        }
    }
}

void PagePainter::DrawFigures(const report::Page& page, const report::Item& item) {
    const report::FigureFont& font = mFonts.Book().Faces(item.style).figures;
    Batch& batch = BatchOf(font.face, font.size, item.color);
    double pen = item.x;
    for (std::uint32_t i = 0; i < item.length; ++i) {
        const std::size_t character = static_cast<unsigned char>(page.figureText[item.first + i]) & 0x7FU;
        batch.glyphs.append(font.glyph[character]);
        batch.places.append(At(pen, item.y));
        pen += double{font.advance[character]} * font.size;
    }
}

QRect PagePainter::Snapped(const report::Item& item) const {
    const QPointF begin = At(item.x, item.y);
    const QPointF end = At(item.x + item.width, item.y + item.height);
    const QPoint first(static_cast<int>(std::lround(begin.x())), static_cast<int>(std::lround(begin.y())));
    const QPoint last(static_cast<int>(std::lround(end.x())), static_cast<int>(std::lround(end.y())));
    return QRect(first, QSize(last.x() - first.x(), last.y() - first.y())).normalized();
}

int PagePainter::Stroke(const report::Item& item) const {
    return std::max(static_cast<int>(std::lround(item.stroke * TwipsPerHundredth * mScale)), 1);
}

// A line is never thinner than a pixel; where pages are seen small, it gets paler instead, or the lines of a
// table would outweigh its text.
QColor PagePainter::StrokeColor(const report::Item& item) const {
    constexpr double fullFrom = 0.4; // a hairline at 100 percent
    QColor color = ColorOf(item.color);
    color.setAlphaF(static_cast<float>(std::min(item.stroke * TwipsPerHundredth * mScale / fullFrom, 1.0)));
    return color;
}

void PagePainter::DrawRule(const report::Item& item) {
    const int stroke = Stroke(item);
    const QRect place = Snapped(item);
    if (item.height == 0) {
        mPainter.fillRect(place.x(), place.y() - stroke / 2, place.width(), stroke, StrokeColor(item));
    } else if (item.width == 0) {
        mPainter.fillRect(place.x() - stroke / 2, place.y(), stroke, place.height(), StrokeColor(item));
    } else {
        mPainter.setRenderHint(QPainter::Antialiasing);
        mPainter.setPen(QPen(ColorOf(item.color), item.stroke * TwipsPerHundredth * mScale));
        mPainter.drawLine(At(item.x, item.y), At(item.x + item.width, item.y + item.height));
        mPainter.setRenderHint(QPainter::Antialiasing, false);
    }
}

void PagePainter::DrawFrame(const report::Item& item) {
    const int stroke = Stroke(item);
    const QRect outer = Snapped(item).translated(-(stroke / 2), -(stroke / 2));
    const QColor color = StrokeColor(item);
    mPainter.fillRect(outer.x(), outer.y(), outer.width() + stroke, stroke, color);
    mPainter.fillRect(outer.x(), outer.y() + outer.height(), outer.width() + stroke, stroke, color);
    mPainter.fillRect(outer.x(), outer.y(), stroke, outer.height() + stroke, color);
    mPainter.fillRect(outer.x() + outer.width(), outer.y(), stroke, outer.height() + stroke, color);
}

// A picture is scaled once for all the tiles that it stands on.
void PagePainter::DrawImage(const report::Page& page, const report::Item& item) {
    if (item.first >= page.pictures.size() || !page.pictures[item.first]) return;
    const std::shared_ptr<const Picture>& picture = page.pictures[item.first];
    const QRect place = Snapped(item);
    if (place.isEmpty() || picture->rgba.empty()) return;
    const auto known = std::find_if(mPictures.begin(), mPictures.end(), [&](const ScaledPicture& one) {
        return one.picture == picture && one.image.size() == place.size();
    });
    if (known != mPictures.end()) {
        mPainter.drawImage(place.topLeft(), known->image);
        return;
    }
    const QImage whole(picture->rgba.data(), picture->width, picture->height, picture->width * 4,
                       QImage::Format_RGBA8888);
    const bool shrinks = place.width() <= picture->width && place.height() <= picture->height;
    if (!shrinks) {
        mPainter.drawImage(place, whole);
        return;
    }
    if (mPictures.size() >= PicturesKept) mPictures.erase(mPictures.begin());
    mPictures.push_back(
        {picture, whole.convertToFormat(QImage::Format_ARGB32_Premultiplied)
                      .scaled(place.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)});
    mPainter.drawImage(place.topLeft(), mPictures.back().image);
}

} // namespace qbrpt::viewer
