#include "dialect/rewrite.h"

#include "dialect/joins.h"
#include "dialect/totals.h"

namespace qbrpt::dialect {

namespace {

void RewriteQuery(Query& query, TotalsBuilder* totals);

void RewriteNode(Node* node, TotalsBuilder* totals) {
    if (node == nullptr) return;
    for (const NodePtr& operand : node->operands)
        RewriteNode(operand.get(), totals);
    if (node->query) RewriteQuery(*node->query, totals);
}

void RewriteConditions(JoinNode& join, TotalsBuilder* totals) {
    if (join.left) RewriteConditions(*join.left, totals);
    if (join.right) RewriteConditions(*join.right, totals);
    RewriteNode(join.condition.get(), totals);
}

void RewriteQuery(Query& query, TotalsBuilder* totals) {
    for (const auto& part : query.parts) {
        for (const auto& source : part->sources) {
            if (source->query) RewriteQuery(*source->query, totals);
        }
        for (const SelectItem& item : part->items)
            RewriteNode(item.expression.get(), totals);
        RewriteNode(part->where.get(), totals);
        RewriteNode(part->having.get(), totals);
        if (part->from) RewriteConditions(*part->from, totals);
        if (totals != nullptr) totals->TakeFrom(*part);
        RewriteJoins(*part);
    }
}

} // namespace

void Rewrite(Statement& statement) {
    TotalsBuilder totals;
    const bool reads = statement.kind == StatementKind::Select;
    if (statement.query) RewriteQuery(*statement.query, reads ? &totals : nullptr);
    for (const Assignment& assignment : statement.assignments)
        RewriteNode(assignment.value.get(), nullptr);
    if (statement.target) RewriteNode(statement.target->where.get(), nullptr);
    statement.totals = totals.Build();
}

} // namespace qbrpt::dialect
