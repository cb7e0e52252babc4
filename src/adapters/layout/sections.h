// Stacks bands into the named sections of a template.
#pragma once

#include "adapters/layout/band.h"
#include "adapters/layout/free_objects.h"

#include <map>
#include <string>
#include <vector>

namespace qbrpt::layout {

/// Bands by the names under which `[sections]` asks for them.
using Parts = std::map<std::string, Band, std::less<>>;

struct BuiltSection {
    report::Section section; ///< without its objects
    std::vector<Placed> objects;
    Place place;
};

/// Reads `[sections]`: a section's name, and the parts that stand in it from the top. "empty" stands for a
/// section that shows nothing. A part that no section shows is a mistake.
[[nodiscard]] std::vector<BuiltSection> StackSections(const Node& plan, const Parts& parts,
                                                      const std::vector<FreeObject>& freeObjects,
                                                      const Workshop& shop);

} // namespace qbrpt::layout
