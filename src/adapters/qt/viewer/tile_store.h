// Pictures of parts of pages, within a fixed amount of memory.
#pragma once

#include <QtGui/QImage>

#include <compare>
#include <cstddef>
#include <cstdint>
#include <list>
#include <map>

namespace qbrpt::viewer {

/// Which part of which page.
struct TileKey {
    std::int32_t page = 0;
    std::int32_t column = 0;
    std::int32_t row = 0;
    friend auto operator<=>(const TileKey&, const TileKey&) = default;
};

class TileStore {
public:
    /// Side of a tile, in pixels of the screen.
    static constexpr int Side = 512;

    explicit TileStore(std::size_t budget) : mBudget(budget) {}

    /// Null where the tile is not kept.
    const QImage* Find(const TileKey& key);
    /// Takes a tile; those not used for longest go when the budget is used up.
    const QImage& Put(const TileKey& key, QImage image);
    void Clear();

    [[nodiscard]] std::size_t Bytes() const { return mBytes; }
    [[nodiscard]] std::size_t Budget() const { return mBudget; }

private:
    struct Tile {
        TileKey key;
        QImage image;
    };
    std::size_t mBudget;
    std::size_t mBytes = 0;
    std::list<Tile> mTiles; ///< the last used first
    std::map<TileKey, std::list<Tile>::iterator> mPlaces;
};

} // namespace qbrpt::viewer
