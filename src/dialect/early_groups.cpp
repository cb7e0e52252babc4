#include "dialect/early_groups.h"

#include "dialect/builtins.h"
#include "dialect/grouping.h"
#include "dialect/joins.h"
#include "dialect/kinds.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace qbrpt::dialect {

namespace {

bool IsAggregateCall(const Node& node) {
    return node.type == NodeType::Call && IsAggregate(node.builtin->form);
}

// What is added up of totals by key must be the same as if it were added up of the rows.
bool CanBeAddedUp(const Node& aggregate, const Source& summed) {
    if (!aggregate.star && !LooksOnlyAt(*aggregate.operands[0], summed)) return false;
    switch (aggregate.builtin->form) {
    case Form::Count:
    case Form::Sum:
        return true;
    case Form::Min:
    case Form::Max: // of texts that differ in case only, the first one met would show
        return !MayBeText(aggregate.kind);
    default:
        return false;
    }
}

/// The column that ties `source` to the other table of a join by one equality of numbers.
std::optional<std::size_t> KeyOf(const JoinNode& join, const Source& source) {
    const Node* tie = join.condition.get();
    if (tie == nullptr || tie->type != NodeType::Compare || tie->op != Operator::Equal) return std::nullopt;
    for (const std::size_t side : {0U, 1U}) {
        const Node& own = *tie->operands[side];
        const Node& other = *tie->operands[1 - side];
        if (own.type == NodeType::Name && own.binding.source == &source && other.type == NodeType::Name &&
            other.binding.target == Binding::Target::Column && other.binding.source != &source &&
            IsNumeric(own.kind) && IsNumeric(other.kind))
            return own.binding.index;
    }
    return std::nullopt;
}

/// One grouped select, whose `summed` table can give way to its totals by `key`.
class EarlyGroups {
public:
    EarlyGroups(Query& query, Source& summed, std::size_t key)
        : mQuery(query), mSelect(*query.parts.front()), mSummed(summed), mKey(key) {}

    [[nodiscard]] bool Possible() {
        const std::vector<const Node*> conditions = Conjuncts(mSelect.where.get());
        bool possible = mSummed.table != nullptr &&
                        std::all_of(conditions.begin(), conditions.end(), [this](const Node* condition) {
                            return LooksOnlyAt(*condition, mSummed);
                        });
        bool any = false;
        ForEachExpression([&](const NodePtr& expression) {
            VisitNodes(*expression, [&](const Node& node) {
                if (IsAggregateCall(node)) {
                    any = true;
                    possible = possible && CanBeAddedUp(node, mSummed);
                    return false;
                }
                if (node.query && Mentions(*node.query)) possible = false;
                if (node.binding.source == &mSummed && node.binding.index != mKey) possible = false;
                return possible && !node.query;
            });
        });
        return possible && any;
    }

    void Make(TotalsPasses& passes) {
        const auto place = std::find_if(mSelect.sources.begin(), mSelect.sources.end(),
                                        [this](const auto& source) { return source.get() == &mSummed; });
        auto totals = std::make_unique<Source>();
        totals->alias = mSummed.alias;
        totals->emittedName = mSummed.emittedName;
        mTotals = totals.get();
        std::unique_ptr<Source> summed = std::exchange(*place, std::move(totals));
        mPass = &passes.For(summed, mKey);
        mTotals->totals = mPass->Name();

        for (const Node* condition : Conjuncts(mSelect.where.get())) {
            mConditions.push_back(CopyOf(*condition));
            Rebind(*mConditions.back(), mSummed, mPass->Over());
        }
        ForEachExpression([this](NodePtr& expression) { Replace(expression); });
        Replace(mSelect.from->condition);
        for (const auto& side : {mSelect.from->left.get(), mSelect.from->right.get()})
            if (side->source == &mSummed) side->source = mTotals;
        mSelect.where = AnyRow();
    }

private:
    template <class Visit>
    void ForEachExpression(const Visit& visit) {
        for (SelectItem& item : mSelect.items)
            visit(item.expression);
        for (NodePtr& term : mSelect.groupBy)
            visit(term);
        if (mSelect.having) visit(mSelect.having);
        for (OrderTerm& term : mQuery.order)
            visit(term.expression);
    }

    [[nodiscard]] bool Mentions(const Query& query) const {
        bool found = false;
        VisitQueryNodes(query, [&](const Node& node) {
            found = found || node.binding.source == &mSummed;
            return !found;
        });
        return found;
    }

    void Replace(NodePtr& slot) {
        if (IsAggregateCall(*slot)) {
            slot = AddedUp(std::move(slot));
            return;
        }
        if (slot->binding.source == &mSummed) {
            slot->binding.source = mTotals;
            slot->binding.index = 0;
        }
        for (NodePtr& operand : slot->operands)
            Replace(operand);
    }

    // A column of the totals.
    [[nodiscard]] NodePtr Total(NodePtr aggregate) {
        const ValueKind kind = aggregate->kind;
        if (!aggregate->star) Rebind(*aggregate, mSummed, mPass->Over());
        const std::size_t column = mPass->ColumnOf(std::move(aggregate), mConditions);
        auto total = std::make_unique<Node>();
        total->type = NodeType::Name;
        total->kind = kind;
        total->binding = {Binding::Target::Column, mTotals, nullptr, column};
        return total;
    }

    [[nodiscard]] NodePtr AddedUp(NodePtr aggregate) {
        auto sum = std::make_unique<Node>();
        sum->type = NodeType::Call;
        sum->kind = aggregate->kind;
        const bool counts = aggregate->builtin->form == Form::Count;
        sum->builtin = counts ? FindBuiltin("Sum") : aggregate->builtin;
        sum->operands.push_back(Total(std::move(aggregate)));
        return sum;
    }

    // The pass may hold totals of other conditions, and so keys that have no row here.
    [[nodiscard]] NodePtr AnyRow() {
        auto count = std::make_unique<Node>();
        count->type = NodeType::Call;
        count->kind = ValueKind::Whole;
        count->builtin = FindBuiltin("Count");
        count->star = true;
        auto test = std::make_unique<Node>();
        test->type = NodeType::Compare;
        test->op = Operator::Greater;
        test->kind = ValueKind::Boolean;
        test->operands.push_back(Total(std::move(count)));
        test->operands.push_back(std::make_unique<Node>());
        test->operands.back()->type = NodeType::Whole;
        test->operands.back()->kind = ValueKind::Whole;
        return test;
    }

    Query& mQuery;
    Select& mSelect;
    Source& mSummed; ///< only compared with, once the totals stand in its place
    std::size_t mKey;
    Source* mTotals = nullptr;
    TotalsPass* mPass = nullptr;
    Conditions mConditions;
};

} // namespace

void GroupEarly(Query& query, TotalsPasses& passes) {
    if (query.parts.size() != 1) return;
    const Select& select = *query.parts.front();
    if (select.groupBy.empty() || select.sources.size() != 2 || select.from->type != JoinNode::Type::Inner)
        return;
    for (const auto& source : select.sources) {
        const std::optional<std::size_t> key = KeyOf(*select.from, *source);
        if (!key) continue;
        EarlyGroups groups(query, *source, *key);
        if (!groups.Possible()) continue;
        groups.Make(passes);
        return;
    }
}

} // namespace qbrpt::dialect
