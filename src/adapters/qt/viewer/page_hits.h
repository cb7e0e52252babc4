// Where a page holds what is looked for.
#pragma once

#include "adapters/qt/viewer/page_reading.h"

#include <string>
#include <vector>

namespace qbrpt::viewer {

/// One place of a page; several boxes where it goes over a blank or to the next line.
struct PageHit {
    std::vector<PageBox> boxes;
};

/// All places of `query`, folded as FoldQuery does, in reading order. A query never spans two cells.
[[nodiscard]] std::vector<PageHit> HitsOn(const PageReading& page, const std::u32string& query);
/// The same, counted only.
[[nodiscard]] std::size_t CountHits(const PageReading& page, const std::u32string& query);

} // namespace qbrpt::viewer
