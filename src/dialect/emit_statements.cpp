// Whole statements.
#include "base/calendar.h"
#include "dialect/date_text.h"
#include "dialect/emitter.h"
#include "dialect/kinds.h"

namespace qbrpt::dialect {

std::string Emitter::Emit(const Statement& statement) {
    mOut.clear();
    switch (statement.kind) {
    case StatementKind::Select:
        EmitTotals(statement);
        EmitQuery(*statement.query, Naming::Output);
        break;
    case StatementKind::Insert:
        EmitInsert(statement);
        break;
    case StatementKind::Update:
        EmitUpdate(statement);
        break;
    case StatementKind::Delete:
        EmitDelete(statement);
        break;
    }
    return std::move(mOut);
}

void Emitter::EmitTotals(const Statement& statement) {
    for (std::size_t i = 0; i < statement.totals.size(); ++i) {
        Put(i == 0 ? "WITH " : ", ");
        PutName(statement.totals[i].name);
        Put(" AS MATERIALIZED (");
        EmitQuery(*statement.totals[i].query, Naming::Internal);
        Put(")");
    }
    if (!statement.totals.empty()) Put(" ");
}

void Emitter::EmitInsert(const Statement& statement) {
    Put("INSERT INTO ");
    PutName(statement.target->sources.front()->table->name);
    Put(" (");
    for (std::size_t i = 0; i < statement.assignments.size(); ++i) {
        if (i > 0) Put(", ");
        PutName(statement.assignments[i].emittedColumn);
    }
    Put(")");
    if (statement.query) return EmitStoredQuery(statement);
    Put(" VALUES (");
    for (std::size_t i = 0; i < statement.assignments.size(); ++i) {
        if (i > 0) Put(", ");
        EmitStored(*statement.assignments[i].value, statement.assignments[i].kind);
    }
    Put(")");
}

void Emitter::EmitStoredQuery(const Statement& statement) {
    Put(" SELECT ");
    for (std::size_t i = 0; i < statement.assignments.size(); ++i) {
        if (i > 0) Put(", ");
        const bool date = statement.assignments[i].kind == ValueKind::Date;
        const bool truth = statement.query->columns[i].kind == ValueKind::Boolean;
        const std::string column = "\"c" + std::to_string(i + 1) + "\"";
        if (date)
            Put("qb_snap(" + column + ")");
        else if (truth)
            Put((statement.assignments[i].kind == ValueKind::Boolean ? "(" : "-(") + column + " <> 0)");
        else
            Put(column);
    }
    Put(" FROM (");
    EmitQuery(*statement.query, Naming::Internal);
    Put(")");
}

void Emitter::EmitUpdate(const Statement& statement) {
    const Source& source = *statement.target->sources.front();
    Put("UPDATE ");
    PutName(source.table->name);
    Put(" AS ");
    PutName(source.emittedName);
    Put(" SET ");
    for (std::size_t i = 0; i < statement.assignments.size(); ++i) {
        if (i > 0) Put(", ");
        PutName(statement.assignments[i].emittedColumn);
        Put(" = ");
        EmitStored(*statement.assignments[i].value, statement.assignments[i].kind);
    }
    if (!statement.target->where) return;
    Put(" WHERE ");
    EmitCondition(*statement.target->where, Or);
}

void Emitter::EmitDelete(const Statement& statement) {
    const Source& source = *statement.target->sources.front();
    Put("DELETE FROM ");
    PutName(source.table->name);
    Put(" AS ");
    PutName(source.emittedName);
    if (!statement.target->where) return;
    Put(" WHERE ");
    EmitCondition(*statement.target->where, Or);
}

// A value on its way into a column takes the column's kind.
void Emitter::EmitStored(const Node& original, ValueKind kind) {
    const Node& node = Meaning(original);
    if (node.type == NodeType::Null) return Put("NULL");
    switch (kind) {
    case ValueKind::Date: {
        const std::optional<double> day = LiteralNumber(node);
        if (day) return PutReal(SnapToMillisecond(*day));
        Put("qb_snap(");
        EmitNumberOrValue(node, Or);
        return Put(")");
    }
    case ValueKind::Boolean:
        if (node.kind == ValueKind::Boolean || IsNumeric(node.kind)) return EmitBit(node, Or);
        Put("qb_cbool(");
        EmitValue(node, Or);
        return Put(")");
    case ValueKind::Whole:
        if (node.kind == ValueKind::Number || node.kind == ValueKind::Date) {
            Put("qb_whole(");
            EmitValue(node, Or);
            return Put(")");
        }
        return EmitNumberOrValue(node, Or);
    case ValueKind::Text:
        if (node.kind == ValueKind::Text) return EmitValue(node, Or);
        Put(node.kind == ValueKind::Date ? "qb_cstr_date(" : "qb_cstr(");
        EmitNumberOrValue(node, Or);
        return Put(")");
    default:
        return EmitNumberOrValue(node, Or);
    }
}

} // namespace qbrpt::dialect
