// The parts of a page that `columns` and what belongs to them make.
#pragma once

#include "adapters/layout/sections.h"

namespace qbrpt::layout {

/// Reads `columns`, `[total]`, `[average]`, `[[group]]`, `[list]`, `[[note]]` and `[captions]`: puts their
/// bands into `parts`, and what they say of rows into `definition`.
void BuildTableParts(TableReader& layout, const Node& metrics, const Workshop& shop, Parts& parts,
                     report::Definition& definition);

} // namespace qbrpt::layout
