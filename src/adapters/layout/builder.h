// Turns a merged layout tree into a definition.
#pragma once

#include "adapters/layout/mistakes.h"
#include "adapters/layout/picture_shelf.h"
#include "adapters/layout/tree.h"
#include "base/fields.h"
#include "report/definition.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace qbrpt::layout {

struct NamedThing {
    std::string name;
    Place place;
};

/// A layout as built, with what code or a café's own file must find in it.
struct BuiltLayout {
    std::shared_ptr<report::Definition> definition;
    Place place;                     ///< of the layout as a whole
    Place widthPlace;                ///< of the page width
    std::vector<NamedThing> objects; ///< whose names the file gives
    std::vector<NamedThing> sections;
};

/// Builds a layout; what is wrong with it goes into `mistakes`.
[[nodiscard]] BuiltLayout BuildLayout(const std::string& name, const Node& layout,
                                      std::span<const Field> fields, const PictureShelf& pictures,
                                      Mistakes& mistakes);

/// A café's own layout stands in for a built-in one: it must have its width, sections and named objects.
void CheckStandIn(const BuiltLayout& own, const BuiltLayout& builtIn, Mistakes& mistakes);

} // namespace qbrpt::layout
