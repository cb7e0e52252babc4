#include "adapters/qt/viewer/tile_store.h"

#include <gtest/gtest.h>

namespace qbrpt::viewer {
namespace {

constexpr std::size_t TileBytes = 10 * 10 * 4;

QImage Tile() {
    return {10, 10, QImage::Format_RGB32};
}

TEST(TileStore, KeepsTheLastUsedWithinItsBudget) {
    TileStore tiles(3 * TileBytes);
    for (std::int32_t page = 0; page < 3; ++page)
        tiles.Put({page, 0, 0}, Tile());
    EXPECT_EQ(tiles.Bytes(), 3 * TileBytes);
    ASSERT_NE(tiles.Find({0, 0, 0}), nullptr); // used again
    tiles.Put({3, 0, 0}, Tile());
    EXPECT_EQ(tiles.Bytes(), 3 * TileBytes);
    EXPECT_NE(tiles.Find({0, 0, 0}), nullptr);
    EXPECT_EQ(tiles.Find({1, 0, 0}), nullptr) << "not used for longest";
    EXPECT_NE(tiles.Find({3, 0, 0}), nullptr);
    tiles.Clear();
    EXPECT_EQ(tiles.Bytes(), 0U);
    EXPECT_EQ(tiles.Find({3, 0, 0}), nullptr);
}

TEST(TileStore, TheTileThatIsDrawnStaysHoweverSmallTheBudget) {
    TileStore tiles(1);
    EXPECT_EQ(tiles.Put({0, 0, 0}, Tile()).width(), 10);
    EXPECT_EQ(tiles.Put({0, 0, 1}, Tile()).width(), 10);
    EXPECT_EQ(tiles.Bytes(), TileBytes);
}

} // namespace
} // namespace qbrpt::viewer
