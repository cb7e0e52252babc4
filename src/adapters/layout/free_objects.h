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

/// Reads what an object says, but for the section that it goes into; `name` is its own where the file
/// gives none.
[[nodiscard]] Placed ReadFreeObject(TableReader& reader, const Place& place, const std::string& name,
                                    const Workshop& shop);

} // namespace qbrpt::layout
