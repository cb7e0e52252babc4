#include "dialect/grouping.h"

#include "dialect/builtins.h"
#include "dialect/kinds.h"

#include <algorithm>

namespace qbrpt::dialect {

namespace {

bool IsGrouped(const Select& select, const Node& node) {
    return std::any_of(select.groupBy.begin(), select.groupBy.end(),
                       [&node](const NodePtr& term) { return SameExpression(*term, node); });
}

void CheckExpression(const Select& select, const Node& expression, const Diagnostics& diagnostics) {
    VisitNodes(expression, [&](const Node& node) {
        if (node.type == NodeType::Call && IsAggregate(node.builtin->form)) return false;
        // What an alias stands for is checked in its own place of the list.
        if (node.binding.target == Binding::Target::Alias) return false;
        if (IsGrouped(select, node)) return false;
        const bool own =
            node.binding.target == Binding::Target::Column &&
            std::any_of(select.sources.begin(), select.sources.end(),
                        [&node](const auto& source) { return source.get() == node.binding.source; });
        if (own)
            diagnostics.Raise(FailureNumber::SyntaxError, node.offset, node.word,
                              "\"" + node.text + "\" stands beside an aggregate; name it in GROUP BY too");
        return true;
    });
}

} // namespace

void CheckGrouping(const Select& select, const std::vector<OrderTerm>* order,
                   const Diagnostics& diagnostics) {
    if (!select.aggregated && select.groupBy.empty()) return;
    for (const SelectItem& item : select.items)
        CheckExpression(select, *item.expression, diagnostics);
    if (select.having) CheckExpression(select, *select.having, diagnostics);
    if (order == nullptr) return;
    for (const OrderTerm& term : *order) {
        if (!term.item) CheckExpression(select, *term.expression, diagnostics);
    }
}

} // namespace qbrpt::dialect
