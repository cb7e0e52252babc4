// What a finished layout must hold: room, names, placeholders.
#pragma once

#include "adapters/layout/sections.h"
#include "report/definition.h"

#include <string>
#include <vector>

namespace qbrpt::layout {

/// Names that the file gives must differ; names that were made up are made different.
void SettleNames(std::vector<BuiltSection>& sections, Mistakes& mistakes);

/// No object near the template's edges or outside its section, no two texts on one spot.
void CheckPlaces(const std::vector<BuiltSection>& sections, const Workshop& shop);

/// Every placeholder of a text names something that is there.
void CheckPlaceholders(const std::vector<BuiltSection>& sections, const report::Definition& definition,
                       Mistakes& mistakes);

} // namespace qbrpt::layout
