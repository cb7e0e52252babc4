// SELECT, its unions, its order and its TOP.
#include "dialect/emit_depth.h"
#include "dialect/emitter.h"
#include "dialect/functions.h"
#include "dialect/kinds.h"

#include <utility>

namespace qbrpt::dialect {

namespace {

std::string InternalName(std::size_t index) {
    return "\"c" + std::to_string(index + 1) + "\"";
}

bool IsConstant(const Node& node) {
    return LiteralNumber(node).has_value() || node.type == NodeType::Text || node.type == NodeType::Null ||
           node.type == NodeType::Boolean;
}

} // namespace

void Emitter::EmitQuery(const Query& query, Naming naming) {
    const Deeper deeper(*this);
    const Select* outer = mSelect;
    const bool outerGroups = std::exchange(mOfGroups, false);
    if (query.parts.size() > 1) {
        EmitUnion(query, naming);
    } else if (query.parts.front()->top) {
        EmitTop(query, naming);
    } else {
        EmitSelect(*query.parts.front(), query, naming, false);
        mSelect = query.parts.front().get();
        mOfGroups = !mSelect->groupBy.empty();
        EmitOrder(query);
    }
    mSelect = outer;
    mOfGroups = outerGroups;
}

void Emitter::EmitUnion(const Query& query, Naming naming) {
    for (std::size_t i = 0; i < query.parts.size(); ++i) {
        if (i > 0) Put(query.all[i - 1] ? " UNION ALL " : " UNION ");
        const Select& part = *query.parts[i];
        if (!part.top) {
            EmitSelect(part, query, naming, true);
            continue;
        }
        Put("SELECT * FROM (");
        EmitSelect(part, query, naming, true);
        Put(" LIMIT " + std::to_string(*part.top) + ")");
    }
    bool first = true;
    for (const OrderTerm& term : query.order) {
        Put(first ? " ORDER BY " : ", ");
        first = false;
        Put(std::to_string(*term.item + 1));
        const ValueKind kind = query.columns[*term.item].kind;
        if (kind == ValueKind::Boolean) {
            PutBooleanOrder(term);
            continue;
        }
        if (MayBeText(kind)) Put(" COLLATE QBRPT");
        if (term.descending) Put(" DESC");
    }
}

// True comes first; a column of the result shows it as 1.
void Emitter::PutBooleanOrder(const OrderTerm& term) {
    Put(term.descending ? " ASC NULLS LAST" : " DESC NULLS FIRST");
}

// TOP n takes n rows, and those that are equal to the last of them in all that ORDER BY looks at.
void Emitter::EmitTop(const Query& query, Naming naming) {
    const Select& select = *query.parts.front();
    Put("SELECT ");
    for (std::size_t i = 0; i < query.columns.size(); ++i) {
        if (i > 0) Put(", ");
        Put(InternalName(i));
        EmitItemName(query, i, naming);
    }
    Put(query.order.empty() ? " FROM (SELECT *, row_number() OVER (" : " FROM (SELECT *, rank() OVER (");
    EmitTopKeys(query, false);
    Put(") AS \"place\"");
    if (select.percent) Put(", count(*) OVER () AS \"all\"");
    Put(" FROM (");
    EmitSelect(select, query, Naming::Internal, false);
    Put(")) WHERE \"place\" <= ");
    const std::string top = std::to_string(*select.top);
    Put(select.percent ? "(\"all\" * " + top + " + 99) / 100" : top);
    EmitTopKeys(query, true);
}

void Emitter::EmitTopKeys(const Query& query, bool beside) {
    bool first = true;
    for (std::size_t i = 0; i < query.order.size(); ++i) {
        const OrderTerm& term = query.order[i];
        Put(first ? (beside ? " ORDER BY " : "ORDER BY ") : ", ");
        first = false;
        const std::string key = term.item ? InternalName(*term.item) : "\"k" + std::to_string(i + 1) + "\"";
        const bool boolean = term.expression->kind == ValueKind::Boolean ||
                             (term.item && query.columns[*term.item].kind == ValueKind::Boolean);
        const ValueKind kind = term.item ? query.columns[*term.item].kind : term.expression->kind;
        Put(boolean && term.item ? "-(" + key + " <> 0)" : key);
        if (MayBeText(kind)) Put(" COLLATE QBRPT");
        if (term.descending) Put(" DESC");
    }
    if (beside && first) Put(" ORDER BY \"place\"");
}

// `combined`: a part of a union, whose columns must agree with those of the others.
void Emitter::EmitSelect(const Select& select, const Query& query, Naming naming, bool combined) {
    const Deeper deeper(*this);
    const Select* outer = std::exchange(mSelect, &select);
    mOfGroups = !select.groupBy.empty();
    Put(select.distinct ? "SELECT DISTINCT " : "SELECT ");
    for (std::size_t i = 0; i < select.items.size(); ++i) {
        if (i > 0) Put(", ");
        EmitItem(select, i, query, combined);
        EmitItemName(query, i, naming);
    }
    if (select.top && !combined) {
        for (std::size_t i = 0; i < query.order.size(); ++i) {
            const OrderTerm& term = query.order[i];
            if (term.item) continue;
            Put(", ");
            EmitNumberOrValue(*term.expression, Or);
            Put(" AS \"k" + std::to_string(i + 1) + "\"");
        }
    }
    mOfGroups = false;
    EmitFromWhere(select);
    EmitGroupBy(select);
    if (select.having) {
        mOfGroups = !select.groupBy.empty();
        Put(" HAVING ");
        EmitCondition(*select.having, Or);
        mOfGroups = false;
    }
    mSelect = outer;
}

void Emitter::EmitFromWhere(const Select& select) {
    if (select.from) {
        Put(" FROM ");
        EmitFrom(*select.from);
    }
    if (!select.where) return;
    Put(" WHERE ");
    EmitCondition(*select.where, Or);
}

void Emitter::EmitItem(const Select& select, std::size_t index, const Query& query, bool combined) {
    const Node& node = *select.items[index].expression;
    const ValueKind kind = query.columns[index].kind;
    if (!combined && !select.distinct) return EmitAs(node, kind, Or);
    // Rows that are equal without regard to case are one row.
    const bool text = MayBeText(node.kind) && node.type != NodeType::Null;
    EmitAs(node, kind, text ? Collate : Or);
    if (text) Put(" COLLATE QBRPT");
}

void Emitter::EmitItemName(const Query& query, std::size_t index, Naming naming) {
    if (naming == Naming::None) return;
    Put(" AS ");
    if (naming == Naming::Internal)
        Put(InternalName(index));
    else
        PutName(query.columns[index].name);
}

void Emitter::EmitFrom(const JoinNode& join) {
    if (join.type == JoinNode::Type::Leaf) return EmitSource(*join.source);
    EmitFrom(*join.left);
    Put(join.type == JoinNode::Type::Left ? " LEFT JOIN " : " JOIN ");
    const bool nested = join.right->type != JoinNode::Type::Leaf;
    if (nested) Put("(");
    EmitFrom(*join.right);
    if (nested) Put(")");
    if (!join.condition) return;
    Put(" ON ");
    EmitCondition(*join.condition, Or);
}

void Emitter::EmitSource(const Source& source) {
    if (source.table != nullptr) {
        PutName(source.table->name);
    } else if (!source.totals.empty()) {
        PutName(source.totals);
    } else {
        Put("(");
        EmitQuery(*source.query, Naming::Internal);
        Put(")");
    }
    Put(" AS ");
    PutName(source.emittedName);
}

void Emitter::EmitGroupBy(const Select& select) {
    bool first = true;
    for (const NodePtr& term : select.groupBy) {
        const Node& node = Meaning(*term);
        Put(first ? " GROUP BY " : ", ");
        first = false;
        if (IsConstant(node)) { // the engine would take a number for the place of a column
            Put("''");
            continue;
        }
        if (select.groupsApart) Put("+");
        if (EmitOrderKey(node)) continue;
        EmitAs(node, node.kind, Collate);
        if (MayBeText(node.kind)) Put(" COLLATE QBRPT");
    }
}

// Keys of columns only: any other text might be dear to work out a second time.
bool Emitter::EmitOrderKey(const Node& original) {
    const Node& node = Meaning(original);
    if (!MayBeText(node.kind) || node.binding.target != Binding::Target::Column) return false;
    Put(OrderFunctionName);
    Put("(");
    EmitValue(node, Or);
    Put(")");
    return true;
}

void Emitter::EmitOrder(const Query& query) {
    const Select& select = *query.parts.front();
    bool first = true;
    for (const OrderTerm& term : query.order) {
        const Node& node = term.item ? *select.items[*term.item].expression : Meaning(*term.expression);
        if (IsConstant(node)) continue;
        Put(first ? " ORDER BY " : ", ");
        first = false;
        // Of rows that are made one, those columns are sorted that show.
        if (select.distinct || !EmitOrderKey(node)) {
            if (term.item && node.kind != ValueKind::Boolean)
                Put(std::to_string(*term.item + 1));
            else
                EmitNumberOrValue(Meaning(node), Collate);
            if (MayBeText(node.kind)) Put(" COLLATE QBRPT");
        }
        if (term.descending) Put(" DESC");
    }
}

} // namespace qbrpt::dialect
