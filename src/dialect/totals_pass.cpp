#include "dialect/totals_pass.h"

#include "dialect/builtins.h"
#include "dialect/grouping.h"
#include "dialect/joins.h"
#include "dialect/kinds.h"

#include <algorithm>
#include <utility>

namespace qbrpt::dialect {

namespace {

bool Holds(const Conditions& conditions, const Node& wanted) {
    return std::any_of(conditions.begin(), conditions.end(),
                       [&wanted](const NodePtr& condition) { return SameExpression(*condition, wanted); });
}

bool SameConditions(const Conditions& left, const Conditions& right) {
    return left.size() == right.size() &&
           std::all_of(left.begin(), left.end(),
                       [&right](const NodePtr& node) { return Holds(right, *node); });
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

TotalsPass::TotalsPass(std::string name, std::unique_ptr<Source> source, std::size_t key)
    : mName(std::move(name)), mSource(std::move(source)), mKey(key) {}

bool TotalsPass::IsOver(const Source& source, std::size_t key) const {
    return mSource->table == source.table && mKey == key;
}

std::size_t TotalsPass::ColumnOf(NodePtr aggregate, const Conditions& conditions) {
    auto same = std::find_if(mValues.begin(), mValues.end(), [&](const Value& value) {
        return SameExpression(*value.aggregate, *aggregate) && SameConditions(value.conditions, conditions);
    });
    if (same == mValues.end()) {
        Value& value = mValues.emplace_back();
        value.aggregate = std::move(aggregate);
        for (const NodePtr& condition : conditions)
            value.conditions.push_back(CopyOf(*condition));
        same = mValues.end() - 1;
    }
    return static_cast<std::size_t>(same - mValues.begin()) + 1;
}

Conditions TotalsPass::CommonConditions() const {
    Conditions common;
    for (const NodePtr& condition : mValues.front().conditions) {
        const bool all = std::all_of(mValues.begin(), mValues.end(),
                                     [&](const Value& value) { return Holds(value.conditions, *condition); });
        if (all && !Holds(common, *condition)) common.push_back(CopyOf(*condition));
    }
    return common;
}

// Along an index that holds all that is read the rows come in the order of their keys; along any other one
// each would be fetched from another place of the table.
bool TotalsPass::LiesInAnIndex(const Select& select) const {
    const auto& columns = mSource->columns;
    const auto holds = [&](const std::vector<std::string>& index, const Node& expression) {
        bool all = true;
        VisitNodes(expression, [&](const Node& node) {
            all = all &&
                  (node.binding.source != mSource.get() ||
                   std::find(index.begin(), index.end(), columns[node.binding.index].name) != index.end());
            return all;
        });
        return all;
    };
    const auto& indexes = mSource->table->indexes;
    return std::any_of(indexes.begin(), indexes.end(), [&](const std::vector<std::string>& index) {
        return index.front() == columns[mKey].name && (!select.where || holds(index, *select.where)) &&
               std::all_of(select.items.begin(), select.items.end(),
                           [&](const SelectItem& item) { return holds(index, *item.expression); });
    });
}

Totals TotalsPass::Build() {
    auto select = std::make_unique<Select>();
    auto query = std::make_unique<Query>();
    const auto add = [&](NodePtr expression) {
        query->columns.push_back({"", expression->kind});
        select->items.emplace_back().expression = std::move(expression);
    };
    add(ColumnNode(*mSource, mKey));
    select->groupBy.push_back(ColumnNode(*mSource, mKey));
    select->aggregated = true;
    // Conditions that all values have in common choose the rows; the others each their value's own.
    Conditions common = CommonConditions();
    for (Value& value : mValues) {
        std::erase_if(value.conditions,
                      [&common](const NodePtr& condition) { return Holds(common, *condition); });
        add(Conditional(std::move(value.aggregate), std::move(value.conditions)));
    }
    for (NodePtr& condition : common)
        select->where = Both(std::move(select->where), std::move(condition));
    select->groupsApart = !LiesInAnIndex(*select);
    select->from = std::make_unique<JoinNode>();
    select->from->source = mSource.get();
    select->sources.push_back(std::move(mSource));
    query->parts.push_back(std::move(select));
    return {mName, std::move(query)};
}

TotalsPass& TotalsPasses::For(std::unique_ptr<Source>& source, std::size_t key) {
    const auto found = std::find_if(mPasses.begin(), mPasses.end(),
                                    [&](const auto& pass) { return pass->IsOver(*source, key); });
    if (found != mPasses.end()) return **found;
    // No table of a café is named so, and the blanks keep it away from those that might come.
    const std::string name = "qb totals " + std::to_string(mPasses.size() + 1);
    mPasses.push_back(std::make_unique<TotalsPass>(name, std::move(source), key));
    return *mPasses.back();
}

std::vector<Totals> TotalsPasses::Build() {
    std::vector<Totals> built;
    for (const auto& pass : mPasses)
        built.push_back(pass->Build());
    return built;
}

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

void Rebind(Node& node, const Source& from, Source& to) {
    if (node.binding.source == &from) node.binding.source = &to;
    for (const NodePtr& operand : node.operands)
        Rebind(*operand, from, to);
}

NodePtr ColumnNode(Source& source, std::size_t column) {
    auto node = std::make_unique<Node>();
    node->type = NodeType::Name;
    node->kind = source.columns[column].kind;
    node->text = source.columns[column].name;
    node->binding = {Binding::Target::Column, &source, nullptr, column};
    return node;
}

} // namespace qbrpt::dialect
