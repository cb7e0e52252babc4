// Comparisons of texts, booleans and numbers, Between, In and the tests for null.
#include "dialect/builtins.h"
#include "dialect/emit_depth.h"
#include "dialect/emitter.h"
#include "dialect/kinds.h"

#include <utility>

namespace qbrpt::dialect {

namespace {

std::string_view SignOf(Operator op) {
    switch (op) {
    case Operator::Equal:
        return " = ";
    case Operator::NotEqual:
        return " <> ";
    case Operator::Less:
        return " < ";
    case Operator::LessOrEqual:
        return " <= ";
    case Operator::Greater:
        return " > ";
    default:
        return " >= ";
    }
}

Operator Mirrored(Operator op) {
    switch (op) {
    case Operator::Less:
        return Operator::Greater;
    case Operator::LessOrEqual:
        return Operator::GreaterOrEqual;
    case Operator::Greater:
        return Operator::Less;
    case Operator::GreaterOrEqual:
        return Operator::LessOrEqual;
    default:
        return op;
    }
}

bool IsEquality(Operator op) {
    return op == Operator::Equal || op == Operator::NotEqual;
}

} // namespace

void Emitter::EmitCompare(const Node& node, Level level) {
    EmitComparison(node.op, Meaning(*node.operands[0]), Meaning(*node.operands[1]), level);
}

void Emitter::EmitComparison(Operator op, const Node& left, const Node& right, Level level) {
    if (left.type == NodeType::Null || right.type == NodeType::Null) return Put("NULL");
    if (EmitDayCompare(op, left, right, level)) return;
    if (EmitDayCompare(Mirrored(op), right, left, level)) return;
    if (left.kind == ValueKind::Boolean || right.kind == ValueKind::Boolean)
        return EmitPlainCompare(op, left, right, level);
    if (IsDateLike(left) && !(LiteralNumber(left) && IsDateLike(right)))
        return EmitDateCompare(op, left, right, level);
    if (IsDateLike(right)) return EmitDateCompare(Mirrored(op), right, left, level);
    EmitPlainCompare(op, left, right, level);
}

void Emitter::EmitPlainCompare(Operator op, const Node& left, const Node& right, Level level) {
    const bool booleans = left.kind == ValueKind::Boolean || right.kind == ValueKind::Boolean;
    const Enclosed enclosed(*this, IsEquality(op) ? Equal : Relation, level);
    if (booleans && IsEquality(op)) { // -1 and 1 both mean true
        EmitBit(left, Relation);
        Put(SignOf(op));
        return EmitBit(right, Relation);
    }
    if (booleans) {
        EmitNumber(left, Bits);
        Put(SignOf(op));
        return EmitNumber(right, Bits);
    }
    // The collation of the left side is the one that counts, also over one that stands deeper in it.
    const bool texts = MayBeText(left.kind) && MayBeText(right.kind);
    EmitValue(left, texts ? Collate : Bits);
    if (texts) Put(" COLLATE QBRPT");
    Put(SignOf(op));
    EmitValue(right, Bits);
}

void Emitter::EmitBetween(const Node& node, Level level) {
    const Node& value = Meaning(*node.operands[0]);
    const Node* low = &Meaning(*node.operands[1]);
    const Node* high = &Meaning(*node.operands[2]);
    const std::optional<double> first = LiteralNumber(*low);
    const std::optional<double> second = LiteralNumber(*high);
    const bool literal = first && second;
    if (literal && *first > *second) std::swap(low, high);

    if (literal && ComparesDays(value, *low) && ComparesDays(value, *high)) {
        const Enclosed enclosed(*this, node.negated ? Not : And, level);
        if (node.negated) Put("NOT (");
        (void)EmitDayCompare(Operator::GreaterOrEqual, value, *low, Not);
        Put(" AND ");
        (void)EmitDayCompare(Operator::LessOrEqual, value, *high, Not);
        return Put(node.negated ? ")" : "");
    }
    const bool dates = IsDateLike(value) || IsDateLike(*low) || IsDateLike(*high);
    const bool texts = !dates && MayBeText(value.kind) && MayBeText(low->kind) && MayBeText(high->kind);
    const Enclosed enclosed(*this, Equal, level);
    if (dates)
        EmitDateBound(value, 0);
    else
        EmitNumberOrValue(value, texts ? Collate : Bits);
    if (texts) Put(" COLLATE QBRPT");
    Put(node.negated ? " NOT BETWEEN " : " BETWEEN ");
    if (literal && !dates) {
        EmitNumber(*low, Bits);
        Put(" AND ");
        return EmitNumber(*high, Bits);
    }
    if (literal) {
        EmitDateBound(*low, -1);
        Put(" AND ");
        return EmitDateBound(*high, 1);
    }
    EmitBetweenBounds(*low, *high, dates, texts);
}

// The bounds may come in either order.
void Emitter::EmitBetweenBounds(const Node& low, const Node& high, bool dates, bool texts) {
    const auto bound = [&](const Node& node) {
        if (dates)
            EmitDateBound(node, 0);
        else
            EmitNumberOrValue(node, Bits);
    };
    for (const bool lower : {true, false}) {
        Put(lower ? "min(" : " AND max(");
        bound(low);
        if (texts) Put(" COLLATE QBRPT");
        Put(", ");
        bound(high);
        Put(")");
        if (!dates) continue;
        Put(lower ? " - " : " + ");
        PutReal(HalfMillisecond);
    }
}

void Emitter::EmitNumberOrValue(const Node& node, Level level) {
    if (node.kind == ValueKind::Boolean)
        EmitNumber(node, level);
    else
        EmitValue(node, level);
}

void Emitter::EmitInList(const Node& node, Level level) {
    const Node& wanted = Meaning(*node.operands[0]);
    if (IsDateLike(wanted) || ComparesDays(wanted, *node.operands[1]) || wanted.kind == ValueKind::Boolean) {
        const Enclosed enclosed(*this, node.negated ? Not : Or, level);
        if (node.negated) Put("NOT (");
        for (std::size_t i = 1; i < node.operands.size(); ++i) {
            if (i > 1) Put(" OR ");
            EmitComparison(Operator::Equal, wanted, Meaning(*node.operands[i]), And);
        }
        return Put(node.negated ? ")" : "");
    }
    const Enclosed enclosed(*this, Equal, level);
    EmitValue(wanted, MayBeText(wanted.kind) ? Collate : Bits);
    if (MayBeText(wanted.kind)) Put(" COLLATE QBRPT");
    Put(node.negated ? " NOT IN (" : " IN (");
    for (std::size_t i = 1; i < node.operands.size(); ++i) {
        if (i > 1) Put(", ");
        EmitNumberOrValue(Meaning(*node.operands[i]), Or);
    }
    Put(")");
}

void Emitter::EmitNullTest(const Node& node, bool negated, Level level) {
    const Enclosed enclosed(*this, Equal, level);
    EmitValue(node, Bits);
    Put(negated ? " IS NOT NULL" : " IS NULL");
}

} // namespace qbrpt::dialect
