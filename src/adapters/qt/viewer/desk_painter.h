// Draws what is seen of the desk: its ground, the pages on it, and marks on the pages.
#pragma once

#include "adapters/qt/viewer/desk_layout.h"
#include "adapters/qt/viewer/finder.h"
#include "adapters/qt/viewer/page_painter.h"
#include "adapters/qt/viewer/page_store.h"
#include "adapters/qt/viewer/text_selection.h"
#include "adapters/qt/viewer/tile_store.h"

#include <QtGui/QPainter>

#include <memory>

namespace qbrpt::viewer {

/// Memory for pictures of pages; a screen of 3840 by 2160 takes a third of it.
constexpr std::size_t PictureBudget = std::size_t{96} << 20U;

constexpr QRgb DeskGround = 0xFF8F979D;

/// The part of the desk that is seen.
struct DeskView {
    const DeskLayout& layout;
    Pixels left = 0;
    Pixels top = 0;
    double screenScale = 1; ///< pixels of the screen to one of the desk
};

class DeskPainter {
public:
    explicit DeskPainter(std::shared_ptr<PageStore> pages);

    void Draw(QPainter& painter, const DeskView& view, const TextSelection& selection, const Finder& finder);
    /// Makes one tile that will be needed soon; false when there is none left to make.
    bool PrepareOne(const DeskView& view);
    /// Pages show something else now.
    void Forget();

    [[nodiscard]] const TileStore& Tiles() const { return mTiles; }

private:
    struct TileSpan {
        int firstColumn = 0;
        int endColumn = 0;
        int firstRow = 0;
        int endRow = 0;
    };
    void DrawSheet(QPainter& painter, const QRectF& sheet) const;
    void DrawTiles(QPainter& painter, const DeskView& view, std::int32_t page);
    void DrawMarks(QPainter& painter, const DeskView& view, std::int32_t page, const TextSelection& selection,
                   const Finder& finder);
    const QImage& Tile(const DeskView& view, const TileKey& key);
    bool PrepareBetween(const DeskView& view, Pixels top);
    void TakeScale(const DeskView& view);
    [[nodiscard]] static QRect ScreenPlace(const DeskView& view, std::int32_t page);
    [[nodiscard]] static TileSpan TilesSeen(const DeskView& view, std::int32_t page);

    std::shared_ptr<PageStore> mPages;
    GlyphFonts mFonts;
    PagePainter mPainter;
    TileStore mTiles{PictureBudget};
    double mScale = 0; ///< pixels of the screen to a twip, of the tiles kept
};

} // namespace qbrpt::viewer
