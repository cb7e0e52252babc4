#include "dialect/date_uses.h"

#include "dialect/grouping.h"
#include "dialect/kinds.h"

#include <algorithm>

namespace qbrpt::dialect {

namespace {

bool IsDateOfATable(const Node& node) {
    return node.binding.target == Binding::Target::Column && node.binding.source->table != nullptr &&
           node.binding.source->columns[node.binding.index].kind == ValueKind::Date;
}

/// Collects the columns from expressions and queries.
class Uses {
public:
    bool operator()(const Node& original) {
        const Node& node = Meaning(original);
        if (node.type == NodeType::IsNull && Meaning(*node.operands[0]).type == NodeType::Name) return false;
        if (!IsDateOfATable(node)) return true;
        DateColumn column{node.binding.source->table->name,
                          node.binding.source->columns[node.binding.index].name};
        const bool known = std::any_of(mFound.begin(), mFound.end(), [&column](const DateColumn& each) {
            return each.table == column.table && each.column == column.column;
        });
        if (!known) mFound.push_back(std::move(column));
        return true;
    }
    [[nodiscard]] std::vector<DateColumn> Take() { return std::move(mFound); }

private:
    std::vector<DateColumn> mFound;
};

// Whether the reader of the rows sees every value of the column, and that it is a date.
bool ComesOut(const Query& query, const Node& node) {
    const Select& select = *query.parts.front();
    for (std::size_t i = 0; i < select.items.size(); ++i) {
        if (query.columns[i].kind == ValueKind::Date && SameExpression(*select.items[i].expression, node))
            return true;
    }
    return false;
}

} // namespace

std::vector<DateColumn> DatesLookedAt(const Statement& statement) {
    Uses uses;
    for (const Assignment& assignment : statement.assignments)
        if (assignment.value) VisitNodes(*assignment.value, uses);
    if (statement.target && statement.target->where) VisitNodes(*statement.target->where, uses);
    if (!statement.query) return uses.Take();
    for (const Totals& totals : statement.totals)
        VisitQueryNodes(*totals.query, uses);
    const Query& query = *statement.query;
    const Select& select = *query.parts.front();
    // What is stored, put together or cut off is not seen.
    if (statement.kind != StatementKind::Select || query.parts.size() > 1 || select.top) {
        VisitQueryNodes(query, uses);
        return uses.Take();
    }
    const auto visit = [&](const Node& node) {
        if (!IsDateOfATable(Meaning(node)) || !ComesOut(query, node)) VisitNodes(node, uses);
    };
    for (const SelectItem& item : select.items)
        visit(*item.expression);
    for (const OrderTerm& term : query.order)
        visit(*term.expression);
    if (select.from) VisitJoinNodes(*select.from, uses);
    for (const auto& source : select.sources)
        if (source->query) VisitQueryNodes(*source->query, uses);
    if (select.where) VisitNodes(*select.where, uses);
    for (const NodePtr& term : select.groupBy)
        VisitNodes(*term, uses);
    if (select.having) VisitNodes(*select.having, uses);
    return uses.Take();
}

} // namespace qbrpt::dialect
