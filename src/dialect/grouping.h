// What may stand beside an aggregate.
#pragma once

#include "dialect/tree.h"

namespace qbrpt::dialect {

/// Raises SyntaxError where a grouped select shows a column that is neither grouped nor inside an
/// aggregate: any row's value would do there, and so none would be right.
void CheckGrouping(const Select& select, const std::vector<OrderTerm>* order, const Diagnostics& diagnostics);

/// Calls `visit` for every node of an expression, those of sub-selects included; where it returns false,
/// the nodes below are left out.
template <class Visit>
void VisitNodes(const Node& node, Visit&& visit);
template <class Visit>
void VisitQueryNodes(const Query& query, Visit&& visit);

template <class Visit>
void VisitJoinNodes(const JoinNode& join, Visit&& visit) {
    if (join.left) VisitJoinNodes(*join.left, visit);
    if (join.right) VisitJoinNodes(*join.right, visit);
    if (join.condition) VisitNodes(*join.condition, visit);
}

template <class Visit>
void VisitNodes(const Node& node, Visit&& visit) {
    if (!visit(node)) return;
    for (const NodePtr& operand : node.operands)
        VisitNodes(*operand, visit);
    if (node.query) VisitQueryNodes(*node.query, visit);
}

template <class Visit>
void VisitQueryNodes(const Query& query, Visit&& visit) {
    for (const auto& part : query.parts) {
        for (const SelectItem& item : part->items)
            VisitNodes(*item.expression, visit);
        if (part->from) VisitJoinNodes(*part->from, visit);
        for (const auto& source : part->sources) {
            if (source->query) VisitQueryNodes(*source->query, visit);
        }
        if (part->where) VisitNodes(*part->where, visit);
        for (const NodePtr& term : part->groupBy)
            VisitNodes(*term, visit);
        if (part->having) VisitNodes(*part->having, visit);
    }
    for (const OrderTerm& term : query.order)
        VisitNodes(*term.expression, visit);
}

} // namespace qbrpt::dialect
