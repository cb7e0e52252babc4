#include "adapters/qt/viewer/desk_painter.h"

#include "adapters/qt/viewer/page_hits.h"
#include "base/failure.h"

#include <algorithm>
#include <cmath>

namespace qbrpt::viewer {

namespace {

constexpr QRgb SheetOutline = 0xFF5D666D;
constexpr QRgb SelectionTint = 0xFFB5D3DC;
constexpr QRgb HitTint = 0xFFFFE68A;
constexpr QRgb CurrentHitTint = 0xFFFFB347;
constexpr int ShadowSteps = 7;
constexpr int ShadowAlpha = 9;

QRectF PlaceOf(const PageBox& box, const QRectF& sheet, double pixelsPerTwip) {
    return {sheet.x() + box.left * pixelsPerTwip, sheet.y() + box.top * pixelsPerTwip,
            (box.right - box.left) * pixelsPerTwip, (box.bottom - box.top) * pixelsPerTwip};
}

/// Gives a painter its state back, also when a page fails half-way.
class Kept {
public:
    explicit Kept(QPainter& painter) : mPainter(painter) { mPainter.save(); }
    ~Kept() { mPainter.restore(); }
    Kept(const Kept&) = delete;
    Kept& operator=(const Kept&) = delete;

private:
    QPainter& mPainter;
};

} // namespace

DeskPainter::DeskPainter(std::shared_ptr<PageStore> pages)
    : mPages(std::move(pages)), mFonts(mPages->Fonts()), mPainter(mFonts) {}

void DeskPainter::Forget() {
    mTiles.Clear();
    mPages->Forget();
}

void DeskPainter::TakeScale(const DeskView& view) {
    const double scale = view.layout.PixelsPerTwip() * view.screenScale;
    if (scale == mScale) return;
    mScale = scale;
    mTiles.Clear();
    mFonts.ForgetSizes();
}

// In whole pixels of the screen, from the left upper corner of the view.
QRect DeskPainter::ScreenPlace(const DeskView& view, std::int32_t page) {
    const DeskRect rect = view.layout.PageRect(page);
    const auto screen = [&view](Pixels desk) {
        return static_cast<int>(std::lround(static_cast<double>(desk) * view.screenScale));
    };
    return {screen(rect.x - view.left), screen(rect.y - view.top), screen(rect.width), screen(rect.height)};
}

DeskPainter::TileSpan DeskPainter::TilesSeen(const DeskView& view, std::int32_t page) {
    const QRect place = ScreenPlace(view, page);
    const QRect screen(
        0, 0, static_cast<int>(std::ceil(static_cast<double>(view.layout.ViewWidth()) * view.screenScale)),
        static_cast<int>(std::ceil(static_cast<double>(view.layout.ViewHeight()) * view.screenScale)));
    const QRect seen = place.intersected(screen).translated(-place.topLeft());
    if (seen.isEmpty()) return {};
    return {seen.left() / TileStore::Side, seen.right() / TileStore::Side + 1, seen.top() / TileStore::Side,
            seen.bottom() / TileStore::Side + 1};
}

const QImage& DeskPainter::Tile(const DeskView& view, const TileKey& key) {
    if (const QImage* known = mTiles.Find(key)) return *known;
    const QRect sheet({}, ScreenPlace(view, key.page).size());
    const QRect part(key.column * TileStore::Side, key.row * TileStore::Side, TileStore::Side,
                     TileStore::Side);
    QImage image(part.intersected(sheet).size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    mPainter.Paint(image, mPages->At(key.page)->Page(), part.topLeft(), mScale);
    return mTiles.Put(key, std::move(image));
}

void DeskPainter::Draw(QPainter& painter, const DeskView& view, const TextSelection& selection,
                       const Finder& finder) {
    TakeScale(view);
    painter.fillRect(QRectF(0, 0, static_cast<double>(view.layout.ViewWidth()),
                            static_cast<double>(view.layout.ViewHeight())),
                     QColor(DeskGround));
    const PageSpan seen = view.layout.Visible(view.top);
    for (std::int32_t page = seen.first; page < seen.end; ++page) {
        const QRect place = ScreenPlace(view, page);
        const QRectF sheet(QPointF(place.topLeft()) / view.screenScale,
                           QSizeF(place.size()) / view.screenScale);
        DrawSheet(painter, sheet);
        const Kept kept(painter);
        painter.setClipRect(sheet);
        try {
            DrawTiles(painter, view, page);
            DrawMarks(painter, view, page, selection, finder);
        } catch (const Failure& failure) {
            painter.setPen(Qt::darkRed);
            painter.drawText(sheet.adjusted(DeskMargin, DeskMargin, -DeskMargin, -DeskMargin),
                             Qt::TextWordWrap, QString::fromStdString(failure.Description()));
        }
    }
}

void DeskPainter::DrawSheet(QPainter& painter, const QRectF& sheet) const {
    const Kept kept(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, ShadowAlpha));
    for (int i = ShadowSteps; i > 0; --i)
        painter.drawRoundedRect(sheet.adjusted(-i, 2 - i, i, 3 + i), i + 1, i + 1);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(sheet.adjusted(-1, -1, 1, 1), QColor(SheetOutline));
    painter.fillRect(sheet, Qt::white);
}

// In whole pixels of the screen, also where the desk itself begins half-way in one: there would be seams
// between tiles that are rounded each by itself.
void DeskPainter::DrawTiles(QPainter& painter, const DeskView& view, std::int32_t page) {
    const QPoint corner = ScreenPlace(view, page).topLeft();
    const TileSpan span = TilesSeen(view, page);
    const Kept kept(painter);
    painter.scale(1 / view.screenScale, 1 / view.screenScale);
    const QTransform toScreen = painter.deviceTransform();
    painter.translate(std::round(toScreen.dx()) - toScreen.dx(), std::round(toScreen.dy()) - toScreen.dy());
    for (int row = span.firstRow; row < span.endRow; ++row)
        for (int column = span.firstColumn; column < span.endColumn; ++column) {
            const QPoint at = corner + QPoint(column, row) * TileStore::Side;
            painter.drawImage(at, Tile(view, {page, column, row}));
        }
}

// As a marker on paper does: the letters stay as they are.
void DeskPainter::DrawMarks(QPainter& painter, const DeskView& view, std::int32_t page,
                            const TextSelection& selection, const Finder& finder) {
    if (selection.Empty() && finder.Query().empty()) return;
    const auto built = mPages->At(page);
    const PageReading& reading = built->Reading();
    const QRect place = ScreenPlace(view, page);
    const QRectF sheet(QPointF(place.topLeft()) / view.screenScale, QSizeF(place.size()) / view.screenScale);
    const double scale = view.layout.PixelsPerTwip();
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    const auto mark = [&](const PageBox& box, QRgb tint) {
        painter.fillRect(PlaceOf(box, sheet, scale), QColor(tint));
    };
    const auto [first, end] = selection.On(page, reading.Words().size());
    for (std::size_t i = first; i < end; ++i) {
        PageBox box = reading.Words()[i].box;
        // The blank to the next word of the line belongs to both.
        if (i + 1 < end && reading.Words()[i + 1].before == Before::Blank &&
            reading.Words()[i + 1].item->y == reading.Words()[i].item->y) {
            const PageBox& next = reading.Words()[i + 1].box;
            if (next.right <= box.left)
                box.left = next.right;
            else if (next.left >= box.right)
                box.right = next.left;
        }
        mark(box, SelectionTint);
    }
    if (finder.Query().empty()) return;
    const std::vector<PageHit> hits = HitsOn(reading, finder.Query());
    for (std::size_t i = 0; i < hits.size(); ++i) {
        const bool isCurrent = finder.Course() != nullptr && finder.Course()->Current() == HitPlace{page, i};
        for (const PageBox& box : hits[i].boxes)
            mark(box, isCurrent ? CurrentHitTint : HitTint);
    }
}

bool DeskPainter::PrepareOne(const DeskView& view) {
    if (mScale != view.layout.PixelsPerTwip() * view.screenScale) return false;
    // Beside what is seen there is room for as much above and below.
    constexpr std::size_t viewsKept = 3;
    const auto area = static_cast<double>(view.layout.ViewWidth() * view.layout.ViewHeight());
    const auto bytes = static_cast<std::size_t>(area * view.screenScale * view.screenScale * 4);
    if (bytes * viewsKept > mTiles.Budget()) return false;
    return PrepareBetween(view, view.top + view.layout.ViewHeight()) ||
           PrepareBetween(view, view.top - view.layout.ViewHeight());
}

bool DeskPainter::PrepareBetween(const DeskView& view, Pixels top) {
    const DeskView there{view.layout, view.left, std::clamp<Pixels>(top, 0, view.layout.LastTop()),
                         view.screenScale};
    const PageSpan span = there.layout.Visible(there.top);
    for (std::int32_t page = span.first; page < span.end; ++page) {
        const TileSpan tiles = TilesSeen(there, page);
        for (int row = tiles.firstRow; row < tiles.endRow; ++row)
            for (int column = tiles.firstColumn; column < tiles.endColumn; ++column) {
                const TileKey key{page, column, row};
                if (mTiles.Find(key) != nullptr) continue;
                Tile(there, key);
                return true;
            }
    }
    return false;
}

} // namespace qbrpt::viewer
