// Cards to cut out: rows of equal cards side by side.
#pragma once

#include "adapters/layout/band.h"

namespace qbrpt::layout {

/// Reads `[cards]`. A row of data is a row of cards that touch each other; `card` names the fields and
/// objects of each, the rightmost first, and the objects of `[[cards.object]]` are drawn once for every card
/// with those names in their places. Marks around and between the cards tell where to cut.
[[nodiscard]] Band CardsBand(const Node& node, const Workshop& shop);

} // namespace qbrpt::layout
