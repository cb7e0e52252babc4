#include "dialect/totals.h"

#include "dialect/builtins.h"
#include "dialect/grouping.h"
#include "dialect/joins.h"
#include "dialect/kinds.h"

#include <algorithm>
#include <utility>

namespace qbrpt::dialect {

/// One aggregate of a pass, over the rows that pass its conditions.
struct TotalsBuilder::Value {
    NodePtr aggregate;
    std::vector<NodePtr> conditions;
};

/// One walk over a table.
struct TotalsBuilder::Pass {
    std::string name;
    std::unique_ptr<Source> source;
    std::size_t key = 0; ///< column of the source
    std::vector<Value> values;
};

/// A sub-select that can be had from totals.
struct TotalsBuilder::Candidate {
    const Node* innerKey = nullptr;
    const Node* outerKey = nullptr;
    std::vector<const Node*> conditions; ///< all but the one that ties the keys
};

namespace {

using Conditions = std::vector<NodePtr>;

bool IsColumnOf(const Node& node, const Source& source) {
    return node.type == NodeType::Name && node.binding.source == &source;
}

bool IsColumnOf(const Node& node, const Select& select) {
    return std::any_of(select.sources.begin(), select.sources.end(),
                       [&node](const auto& source) { return IsColumnOf(node, *source); });
}

// Whether all columns in it are those of `source`, and no other query stands in it.
bool LooksOnlyAt(const Node& expression, const Source& source) {
    bool only = true;
    VisitNodes(expression, [&](const Node& node) {
        only = only && !node.query && node.type != NodeType::Lookup &&
               (node.binding.source == nullptr || node.binding.source == &source) &&
               node.binding.target != Binding::Target::Alias;
        return only;
    });
    return only;
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

bool Holds(const Conditions& conditions, const Node& wanted) {
    return std::any_of(conditions.begin(), conditions.end(),
                       [&wanted](const NodePtr& condition) { return SameExpression(*condition, wanted); });
}

bool SameConditions(const Conditions& left, const Conditions& right) {
    return left.size() == right.size() &&
           std::all_of(left.begin(), left.end(),
                       [&right](const NodePtr& node) { return Holds(right, *node); });
}

Conditions CopiesOf(const Conditions& conditions) {
    Conditions copies;
    for (const NodePtr& condition : conditions)
        copies.push_back(CopyOf(*condition));
    return copies;
}

void Rebind(Node& node, const Source& from, Source& to) {
    if (node.binding.source == &from) node.binding.source = &to;
    for (const NodePtr& operand : node.operands)
        Rebind(*operand, from, to);
}

// The aggregate over those rows only that pass the conditions: of all others it sees nulls.
NodePtr Conditional(NodePtr aggregate, Conditions conditions) {
    NodePtr condition;
    for (NodePtr& part : conditions)
        condition = Both(std::move(condition), std::move(part));
    if (!condition) return aggregate;
    auto choice = std::make_unique<Node>();
    choice->type = NodeType::Call;
    choice->builtin = FindBuiltin("IIf");
    auto one = std::make_unique<Node>();
    one->type = NodeType::Whole;
    one->kind = ValueKind::Whole;
    one->whole = 1;
    NodePtr value = aggregate->star ? std::move(one) : std::move(aggregate->operands.front());
    choice->kind = value->kind;
    choice->operands.push_back(std::move(condition));
    choice->operands.push_back(std::move(value));
    choice->operands.push_back(std::make_unique<Node>());
    aggregate->star = false;
    aggregate->operands.clear();
    aggregate->operands.push_back(std::move(choice));
    return aggregate;
}

} // namespace

TotalsBuilder::TotalsBuilder() = default;
TotalsBuilder::~TotalsBuilder() = default;

void TotalsBuilder::TakeFrom(Select& outer) {
    // With a condition on single rows the few look-ups that are left may be quicker than a whole pass.
    if (outer.groupBy.empty() && outer.where) return;
    for (SelectItem& item : outer.items)
        TakeFromNode(item.expression, outer);
}

void TotalsBuilder::TakeFromNode(NodePtr& slot, const Select& outer) {
    for (NodePtr& operand : slot->operands)
        TakeFromNode(operand, outer);
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
    Pass& pass = PassFor(inner, key);
    if (before != pass.source.get()) {
        Rebind(*value, *before, *pass.source);
        for (const NodePtr& condition : conditions)
            Rebind(*condition, *before, *pass.source);
    }
    ReplaceAggregates(value, pass, conditions, *outerKey);
    slot = std::move(value);
}

bool TotalsBuilder::Recognise(const Node& node, const Select& outer, Candidate& candidate) {
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

TotalsBuilder::Pass& TotalsBuilder::PassFor(Select& inner, std::size_t key) {
    const auto found = std::find_if(mPasses.begin(), mPasses.end(), [&](const auto& pass) {
        return pass->source->table == inner.sources.front()->table && pass->key == key;
    });
    if (found != mPasses.end()) return **found;
    auto pass = std::make_unique<Pass>();
    // No table of a café is named so, and the blanks keep it away from those that might come.
    pass->name = "qb totals " + std::to_string(mPasses.size() + 1);
    pass->source = std::move(inner.sources.front());
    pass->key = key;
    mPasses.push_back(std::move(pass));
    return *mPasses.back();
}

void TotalsBuilder::ReplaceAggregates(NodePtr& slot, Pass& pass, const Conditions& conditions,
                                      const Node& key) {
    if (slot->type != NodeType::Call || !IsAggregate(slot->builtin->form)) {
        for (NodePtr& operand : slot->operands)
            ReplaceAggregates(operand, pass, conditions, key);
        return;
    }
    auto lookup = std::make_unique<Node>();
    lookup->type = NodeType::Lookup;
    lookup->kind = slot->kind;
    lookup->text = pass.name;
    lookup->star = slot->builtin->form == Form::Count;
    lookup->operands.push_back(CopyOf(key));
    auto same = std::find_if(pass.values.begin(), pass.values.end(), [&](const Value& value) {
        return SameExpression(*value.aggregate, *slot) && SameConditions(value.conditions, conditions);
    });
    if (same == pass.values.end()) {
        pass.values.push_back({std::move(slot), CopiesOf(conditions)});
        same = pass.values.end() - 1;
    }
    lookup->whole = same - pass.values.begin() + 2; // the key is column 1
    slot = std::move(lookup);
}

std::vector<Totals> TotalsBuilder::Build() {
    std::vector<Totals> built;
    for (const auto& pass : mPasses) {
        auto select = std::make_unique<Select>();
        auto key = std::make_unique<Node>();
        key->type = NodeType::Name;
        key->kind = pass->source->columns[pass->key].kind;
        key->text = pass->source->columns[pass->key].name;
        key->binding = {Binding::Target::Column, pass->source.get(), nullptr, pass->key};
        select->groupBy.push_back(CopyOf(*key));
        select->aggregated = true;

        // Conditions that all values have in common choose the rows; the others each their value's own.
        Conditions common;
        for (const NodePtr& condition : pass->values.front().conditions) {
            const bool all = std::all_of(pass->values.begin(), pass->values.end(), [&](const Value& value) {
                return Holds(value.conditions, *condition);
            });
            if (all && !Holds(common, *condition)) common.push_back(CopyOf(*condition));
        }
        auto query = std::make_unique<Query>();
        const auto add = [&](NodePtr expression) {
            query->columns.push_back({"", expression->kind});
            select->items.emplace_back().expression = std::move(expression);
        };
        add(std::move(key));
        for (Value& value : pass->values) {
            std::erase_if(value.conditions,
                          [&common](const NodePtr& condition) { return Holds(common, *condition); });
            add(Conditional(std::move(value.aggregate), std::move(value.conditions)));
        }
        for (NodePtr& condition : common)
            select->where = Both(std::move(select->where), std::move(condition));
        select->from = std::make_unique<JoinNode>();
        select->from->source = pass->source.get();
        select->sources.push_back(std::move(pass->source));
        query->parts.push_back(std::move(select));
        built.push_back({pass->name, std::move(query)});
    }
    return built;
}

} // namespace qbrpt::dialect
