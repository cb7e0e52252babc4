#include "dialect/rewrite.h"

#include "dialect/builtins.h"
#include "dialect/early_groups.h"
#include "dialect/joins.h"
#include "dialect/lookups.h"

#include <utility>

namespace qbrpt::dialect {

namespace {

bool IsNullTest(const Node& node) {
    return node.type == NodeType::IsNull ||
           (node.type == NodeType::Call && node.builtin->form == Form::IsNull);
}

// IsNull(x), Not x Is Null, IsNull(x) = False and the like all become x Is [Not] Null: the engine plans that
// better, and conditions that say the same look the same.
void SimplifyNullTest(NodePtr& slot) {
    const bool contrary = slot->type == NodeType::Not;
    const bool compared = slot->type == NodeType::Compare &&
                          (slot->op == Operator::Equal || slot->op == Operator::NotEqual) &&
                          slot->operands[1]->type == NodeType::Boolean;
    if ((contrary || compared) && IsNullTest(*slot->operands[0])) {
        const bool wanted = !contrary && (slot->operands[1]->whole != 0) == (slot->op == Operator::Equal);
        NodePtr test = std::move(slot->operands[0]);
        test->negated = test->negated == wanted;
        test->kind = ValueKind::Boolean;
        slot = std::move(test);
    }
    if (IsNullTest(*slot)) slot->type = NodeType::IsNull;
}

/// Goes over all queries of a statement. Without passes, which only a statement that reads can have, nothing
/// is worked out ahead.
class Rewriter {
public:
    explicit Rewriter(TotalsPasses* passes) : mPasses(passes) {}

    void InQuery(Query& query) {
        for (const auto& part : query.parts)
            InSelect(*part);
        for (OrderTerm& term : query.order)
            InNode(term.expression);
        if (mPasses != nullptr) GroupEarly(query, *mPasses);
    }

    void InNode(NodePtr& slot) {
        if (slot == nullptr) return;
        for (NodePtr& operand : slot->operands)
            InNode(operand);
        if (slot->query) InQuery(*slot->query);
        SimplifyNullTest(slot);
    }

private:
    void InSelect(Select& select) {
        for (const auto& source : select.sources) {
            if (source->query) InQuery(*source->query);
        }
        for (SelectItem& item : select.items)
            InNode(item.expression);
        InNode(select.where);
        for (NodePtr& term : select.groupBy)
            InNode(term);
        InNode(select.having);
        if (select.from) InConditions(*select.from);
        if (mPasses != nullptr) TakeLookups(select, *mPasses);
        RewriteJoins(select);
    }

    void InConditions(JoinNode& join) {
        if (join.left) InConditions(*join.left);
        if (join.right) InConditions(*join.right);
        InNode(join.condition);
    }

    TotalsPasses* mPasses;
};

} // namespace

void Rewrite(Statement& statement) {
    TotalsPasses passes;
    const bool reads = statement.kind == StatementKind::Select;
    Rewriter rewriter(reads ? &passes : nullptr);
    if (statement.query) rewriter.InQuery(*statement.query);
    for (Assignment& assignment : statement.assignments)
        rewriter.InNode(assignment.value);
    if (statement.target) rewriter.InNode(statement.target->where);
    statement.totals = passes.Build();
}

} // namespace qbrpt::dialect
