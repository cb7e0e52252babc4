#include "dialect/lookups.h"

#include "dialect/builtins.h"
#include "dialect/grouping.h"
#include "dialect/joins.h"
#include "dialect/kinds.h"

#include <algorithm>
#include <utility>

namespace qbrpt::dialect {

namespace {

/// A sub-select that can be had from totals.
struct Candidate {
    const Node* innerKey = nullptr;
    const Node* outerKey = nullptr;
    std::vector<const Node*> conditions; ///< all but the one that ties the keys
};

bool IsColumnOf(const Node& node, const Source& source) {
    return node.type == NodeType::Name && node.binding.source == &source;
}

bool IsColumnOf(const Node& node, const Select& select) {
    return std::any_of(select.sources.begin(), select.sources.end(),
                       [&node](const auto& source) { return IsColumnOf(node, *source); });
}

// Count, Sum, Avg, Min and Max pass over nulls and don't see the order of rows.
bool AggregatesAllow(const Node& expression) {
    bool allow = true;
    VisitNodes(expression, [&allow](const Node& node) {
        if (node.type != NodeType::Call || !IsAggregate(node.builtin->form)) return true;
        allow = allow && node.builtin->form != Form::First && node.builtin->form != Form::Last;
        return false;
    });
    return allow;
}

bool IsPlain(const Select& select) {
    return select.sources.size() == 1 && select.sources.front()->table != nullptr && !select.distinct &&
           !select.top && select.groupBy.empty() && !select.having && select.items.size() == 1 &&
           select.aggregated;
}

bool Recognise(const Node& node, const Select& outer, Candidate& candidate) {
    if (node.type != NodeType::Subquery || node.query->parts.size() != 1 || !node.query->order.empty())
        return false;
    const Select& inner = *node.query->parts.front();
    if (!IsPlain(inner)) return false;
    const Source& source = *inner.sources.front();
    const Node& value = *inner.items.front().expression;
    if (!LooksOnlyAt(value, source) || !AggregatesAllow(value)) return false;
    for (const Node* condition : Conjuncts(inner.where.get())) {
        if (LooksOnlyAt(*condition, source)) {
            candidate.conditions.push_back(condition);
            continue;
        }
        if (candidate.innerKey != nullptr || condition->type != NodeType::Compare ||
            condition->op != Operator::Equal)
            return false;
        const Node& left = *condition->operands[0];
        const Node& right = *condition->operands[1];
        const bool forward = IsColumnOf(left, source) && IsColumnOf(right, outer);
        const bool backward = IsColumnOf(right, source) && IsColumnOf(left, outer);
        if (!forward && !backward) return false;
        candidate.innerKey = forward ? &left : &right;
        candidate.outerKey = forward ? &right : &left;
    }
    return candidate.innerKey != nullptr && IsNumeric(candidate.innerKey->kind) &&
           IsNumeric(candidate.outerKey->kind);
}

void ReplaceAggregates(NodePtr& slot, TotalsPass& pass, const Conditions& conditions, const Node& key) {
    if (slot->type != NodeType::Call || !IsAggregate(slot->builtin->form)) {
        for (NodePtr& operand : slot->operands)
            ReplaceAggregates(operand, pass, conditions, key);
        return;
    }
    auto lookup = std::make_unique<Node>();
    lookup->type = NodeType::Lookup;
    lookup->kind = slot->kind;
    lookup->text = pass.Name();
    lookup->star = slot->builtin->form == Form::Count;
    lookup->operands.push_back(CopyOf(key));
    lookup->whole = static_cast<std::int64_t>(pass.ColumnOf(std::move(slot), conditions));
    slot = std::move(lookup);
}

void TakeFromNode(NodePtr& slot, const Select& outer, TotalsPasses& passes) {
    for (NodePtr& operand : slot->operands)
        TakeFromNode(operand, outer, passes);
    Candidate candidate;
    if (!Recognise(*slot, outer, candidate)) return;
    Select& inner = *slot->query->parts.front();
    Conditions conditions;
    for (const Node* condition : candidate.conditions)
        conditions.push_back(CopyOf(*condition));
    // What the outer select says about its key holds for the inner one too.
    for (const Node* condition : Conjuncts(outer.where.get())) {
        if (condition->type != NodeType::Compare || condition->op != Operator::Equal) continue;
        const bool tied = SameExpression(*condition->operands[0], *candidate.outerKey) &&
                          LiteralNumber(*condition->operands[1]).has_value();
        if (!tied) continue;
        NodePtr bound = CopyOf(*condition);
        bound->operands[0] = CopyOf(*candidate.innerKey);
        conditions.push_back(std::move(bound));
    }
    const NodePtr outerKey = CopyOf(*candidate.outerKey);
    const std::size_t key = candidate.innerKey->binding.index;
    NodePtr value = std::move(inner.items.front().expression);
    const Source* before = inner.sources.front().get();
    TotalsPass& pass = passes.For(inner.sources.front(), key);
    if (before != &pass.Over()) {
        Rebind(*value, *before, pass.Over());
        for (const NodePtr& condition : conditions)
            Rebind(*condition, *before, pass.Over());
    }
    ReplaceAggregates(value, pass, conditions, *outerKey);
    slot = std::move(value);
}

} // namespace

void TakeLookups(Select& outer, TotalsPasses& passes) {
    // With a condition on single rows the few look-ups that are left may be quicker than a whole pass.
    if (outer.groupBy.empty() && outer.where) return;
    for (SelectItem& item : outer.items)
        TakeFromNode(item.expression, outer, passes);
}

} // namespace qbrpt::dialect
