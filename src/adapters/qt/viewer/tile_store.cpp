#include "adapters/qt/viewer/tile_store.h"

#include <utility>

namespace qbrpt::viewer {

const QImage* TileStore::Find(const TileKey& key) {
    const auto known = mPlaces.find(key);
    if (known == mPlaces.end()) return nullptr;
    mTiles.splice(mTiles.begin(), mTiles, known->second);
    return &known->second->image;
}

const QImage& TileStore::Put(const TileKey& key, QImage image) {
    mBytes += static_cast<std::size_t>(image.sizeInBytes());
    mTiles.push_front({key, std::move(image)});
    mPlaces[key] = mTiles.begin();
    while (mBytes > mBudget && mTiles.size() > 1) {
        mBytes -= static_cast<std::size_t>(mTiles.back().image.sizeInBytes());
        mPlaces.erase(mTiles.back().key);
        mTiles.pop_back();
    }
    return mTiles.front().image;
}

void TileStore::Clear() {
    mTiles.clear();
    mPlaces.clear();
    mBytes = 0;
}

} // namespace qbrpt::viewer
