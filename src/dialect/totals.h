// Aggregates that a statement asks for row by row, worked out in one pass.
#pragma once

#include "dialect/tree.h"

#include <memory>
#include <vector>

namespace qbrpt::dialect {

/// Finds sub-selects such as (SELECT Sum(x) FROM t WHERE t.key = outer.key AND ...) in the list of a select
/// that looks at all of a table, and turns them into look-ups in a table of totals by key. Those over the
/// same table and key share one pass, also where their other conditions differ. The values are the same, for
/// keys without rows too; an aggregate that sees the order of rows, or a condition that ties the two selects
/// in any other way, is left as it stands.
class TotalsBuilder {
public:
    TotalsBuilder();
    ~TotalsBuilder();
    TotalsBuilder(const TotalsBuilder&) = delete;
    TotalsBuilder& operator=(const TotalsBuilder&) = delete;

    /// Rewrites the list of `outer`, whose own sub-selects must be rewritten already.
    void TakeFrom(Select& outer);
    [[nodiscard]] std::vector<Totals> Build();

private:
    struct Candidate;
    struct Value;
    struct Pass;

    void TakeFromNode(NodePtr& slot, const Select& outer);
    [[nodiscard]] static bool Recognise(const Node& node, const Select& outer, Candidate& candidate);
    [[nodiscard]] Pass& PassFor(Select& inner, std::size_t key);
    void ReplaceAggregates(NodePtr& slot, Pass& pass, const std::vector<NodePtr>& conditions,
                           const Node& key);

    std::vector<std::unique_ptr<Pass>> mPasses;
};

} // namespace qbrpt::dialect
