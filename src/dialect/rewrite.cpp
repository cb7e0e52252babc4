#include "dialect/rewrite.h"

#include "dialect/joins.h"

namespace qbrpt::dialect {

namespace {

void RewriteQuery(Query& query);

void RewriteNode(Node* node) {
    if (node == nullptr) return;
    for (const NodePtr& operand : node->operands)
        RewriteNode(operand.get());
    if (node->query) RewriteQuery(*node->query);
}

void RewriteConditions(JoinNode& join) {
    if (join.left) RewriteConditions(*join.left);
    if (join.right) RewriteConditions(*join.right);
    RewriteNode(join.condition.get());
}

void RewriteQuery(Query& query) {
    for (const auto& part : query.parts) {
        for (const auto& source : part->sources) {
            if (source->query) RewriteQuery(*source->query);
        }
        for (const SelectItem& item : part->items)
            RewriteNode(item.expression.get());
        RewriteNode(part->where.get());
        RewriteNode(part->having.get());
        if (part->from) RewriteConditions(*part->from);
        RewriteJoins(*part);
    }
}

} // namespace

void Rewrite(Statement& statement) {
    if (statement.query) RewriteQuery(*statement.query);
    for (const Assignment& assignment : statement.assignments)
        RewriteNode(assignment.value.get());
    if (statement.target) RewriteNode(statement.target->where.get());
}

} // namespace qbrpt::dialect
