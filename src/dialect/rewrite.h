// The rewrites that make a statement fast, over all queries of its tree.
#pragma once

#include "dialect/tree.h"

namespace qbrpt::dialect {

/// The tree must be bound. What comes out gives the same rows.
void Rewrite(Statement& statement);

} // namespace qbrpt::dialect
