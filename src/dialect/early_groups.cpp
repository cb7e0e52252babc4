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

// The same where an outer join has a row of nulls in place of totals: a null there, and a null here.
bool CanBeAddedUpOfNothing(const Node& aggregate, const Source& summed) {
    return aggregate.builtin->form != Form::Count && IsNullWith(*aggregate.operands[0], summed);
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
        : mQuery(query), mSelect(*query.parts.front()), mOuter(mSelect.from->type != JoinNode::Type::Inner),
          mSummed(summed), mKey(key) {}

    [[nodiscard]] bool Possible() {
        const std::vector<const Node*> conditions = Conjuncts(mSelect.where.get());
        bool possible = mSummed.table != nullptr && (!mOuter || conditions.empty()) &&
                        std::all_of(conditions.begin(), conditions.end(), [this](const Node* condition) {
                            return LooksOnlyAt(*condition, mSummed);
                        });
        bool any = false;
        ForEachExpression([&](const NodePtr& expression) {
            VisitNodes(*expression, [&](const Node& node) {
                if (IsAggregateCall(node)) {
                    any = true;
                    possible = possible && CanBeAddedUp(node, mSummed) &&
                               (!mOuter || CanBeAddedUpOfNothing(node, mSummed));
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
        mKeyKind = summed->columns[mKey].kind;
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
        for (SelectItem& item : mSelect.items)
            JoinLookups(item.expression);
        // Without any condition all keys of the pass have rows, and keys without totals must stay.
        if (!mOuter) mSelect.where = AnyRow();
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
        return TotalsColumn(*mTotals, mPass->ColumnOf(std::move(aggregate), mConditions), kind);
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

    // What was looked up by the key for each group: a join finds it by an index, where a look-up goes through
    // all totals again and again. A count is left to its look-up, which knows that nothing is 0.
    void JoinLookups(NodePtr& slot) {
        for (NodePtr& operand : slot->operands)
            JoinLookups(operand);
        if (slot->type != NodeType::Lookup || slot->star || slot->operands[0]->binding.source != mTotals)
            return;
        auto largest = std::make_unique<Node>();
        largest->type = NodeType::Call;
        largest->kind = slot->kind;
        largest->builtin = FindBuiltin("Max"); // of equal values
        largest->operands.push_back(
            TotalsColumn(Joined(slot->text), static_cast<std::size_t>(slot->whole), slot->kind));
        slot = std::move(largest);
    }

    // The totals `name`, joined by the key of those that stand in for the summed table.
    Source& Joined(const std::string& name) {
        for (const auto& source : mSelect.sources)
            if (source.get() != mTotals && source->totals == name) return *source;
        Source& source = *mSelect.sources.emplace_back(std::make_unique<Source>());
        source.totals = name;
        source.emittedName = mTotals->emittedName + " " + name;
        auto equality = std::make_unique<Node>();
        equality->type = NodeType::Compare;
        equality->op = Operator::Equal;
        equality->kind = ValueKind::Boolean;
        equality->operands.push_back(TotalsColumn(source, 0, mKeyKind));
        equality->operands.push_back(TotalsColumn(*mTotals, 0, mKeyKind));
        auto join = std::make_unique<JoinNode>();
        join->type = JoinNode::Type::Left;
        join->left = std::move(mSelect.from);
        join->right = std::make_unique<JoinNode>();
        join->right->source = &source;
        join->condition = std::move(equality);
        mSelect.from = std::move(join);
        return source;
    }

    [[nodiscard]] static NodePtr TotalsColumn(Source& totals, std::size_t column, ValueKind kind) {
        auto node = std::make_unique<Node>();
        node->type = NodeType::Name;
        node->kind = kind;
        node->binding = {Binding::Target::Column, &totals, nullptr, column};
        return node;
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
    bool mOuter;     ///< rows of the other table stand without totals too
    Source& mSummed; ///< only compared with, once the totals stand in its place
    std::size_t mKey;
    ValueKind mKeyKind = ValueKind::Null;
    Source* mTotals = nullptr;
    TotalsPass* mPass = nullptr;
    Conditions mConditions;
};

} // namespace

void GroupEarly(Query& query, TotalsPasses& passes) {
    if (query.parts.size() != 1) return;
    const Select& select = *query.parts.front();
    if (select.groupBy.empty() || select.sources.size() != 2) return;
    const bool outer = select.from->type != JoinNode::Type::Inner;
    for (const auto& source : select.sources) {
        if (outer && select.from->right->source != source.get()) continue;
        const std::optional<std::size_t> key = KeyOf(*select.from, *source);
        if (!key) continue;
        EarlyGroups groups(query, *source, *key);
        if (!groups.Possible()) continue;
        groups.Make(passes);
        return;
    }
}

} // namespace qbrpt::dialect
