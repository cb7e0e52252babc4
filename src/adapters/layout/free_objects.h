// Objects that a layout places by hand: the pieces of a page that no table or heading makes.
#pragma once

#include "adapters/layout/band.h"

#include <string>
#include <vector>

namespace qbrpt::layout {

/// An object and the name of the section that it goes into.
struct FreeObject {
    std::string section;
    Placed placed;
};

/// Reads `[[object]]`. Places are points: `right` from the template's right edge, `top` in the section.
[[nodiscard]] std::vector<FreeObject> ReadFreeObjects(const Node& list, const Workshop& shop);

} // namespace qbrpt::layout
