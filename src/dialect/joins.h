// Joins, turned into the shapes that run fast.
#pragma once

#include "dialect/tree.h"

namespace qbrpt::dialect {

/// Every RIGHT JOIN becomes a LEFT JOIN, a LEFT JOIN whose missing rows the WHERE throws away becomes an
/// inner one, and joins that lean to the right are turned to lean to the left where that gives the same
/// rows: an engine can then begin with the table that has the condition, in place of building the inner
/// join first.
void RewriteJoins(Select& select);

/// The tables under a join, from left to right.
[[nodiscard]] std::vector<const Source*> SourcesOf(const JoinNode& join);

/// The parts of a condition that must all be true.
[[nodiscard]] std::vector<const Node*> Conjuncts(const Node* condition);

/// Both conditions in one; either may be missing.
[[nodiscard]] NodePtr Both(NodePtr left, NodePtr right);

/// Whether `expression` is null wherever the columns of `source` are.
[[nodiscard]] bool IsNullWith(const Node& expression, const Source& source);

/// Whether `condition` can't be true in a row where all columns of `source` are null.
[[nodiscard]] bool RejectsNulls(const Node& condition, const Source& source);

} // namespace qbrpt::dialect
