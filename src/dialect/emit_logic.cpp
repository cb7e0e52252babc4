// And, Or, Not and their kin, on truths and on bits.
#include "dialect/builtins.h"
#include "dialect/emitter.h"
#include "dialect/kinds.h"

#include <algorithm>

namespace qbrpt::dialect {

void Emitter::EmitLogic(const Node& node, Level level) {
    if (node.type == NodeType::Not) return EmitNot(node, level);
    if (node.type == NodeType::And || node.type == NodeType::Or)
        return EmitChain(node, 0, node.operands.size(), level);
    const bool implies = node.type == NodeType::Implies;
    const Enclosed enclosed(*this, implies ? Or : Equal, level);
    if (implies) Put("NOT ");
    if (implies)
        EmitCondition(*node.operands[0], Equal);
    else
        EmitBit(*node.operands[0], Relation);
    Put(implies ? " OR " : node.type == NodeType::Xor ? " <> " : " = ");
    if (implies)
        EmitCondition(*node.operands[1], And);
    else
        EmitBit(*node.operands[1], Relation);
}

// A long row is cut into a tree of short ones, since the engine bears only so many operators in a row.
void Emitter::EmitChain(const Node& node, std::size_t begin, std::size_t end, Level level) {
    constexpr std::size_t LongestRow = 64;
    const bool both = node.type == NodeType::And;
    const Enclosed enclosed(*this, both ? And : Or, level);
    const std::size_t step = std::max<std::size_t>((end - begin + LongestRow - 1) / LongestRow, 1);
    for (std::size_t i = begin; i < end; i += step) {
        if (i > begin) Put(both ? " AND " : " OR ");
        if (step == 1)
            EmitCondition(*node.operands[i], both ? Not : And);
        else
            EmitChain(node, i, std::min(i + step, end), Primary);
    }
}

void Emitter::EmitNot(const Node& node, Level level) {
    const Node& inner = Meaning(*node.operands[0]);
    if (inner.type == NodeType::IsNull) return EmitNullTest(*inner.operands[0], !inner.negated, level);
    if (inner.type == NodeType::Call && inner.builtin->form == Form::IsNull)
        return EmitNullTest(*inner.operands[0], true, level);
    const Enclosed enclosed(*this, Not, level);
    Put("NOT ");
    EmitCondition(inner, Equal);
}

// And, Or and Not of whole numbers work on their bits.
void Emitter::EmitBitwise(const Node& node, Level level) {
    if (node.type == NodeType::Not) {
        const Enclosed enclosed(*this, Unary, level);
        Put("~");
        return EmitWhole(*node.operands[0], Primary);
    }
    if (node.type == NodeType::And || node.type == NodeType::Or)
        return EmitOperands(node, node.type == NodeType::And ? " & " : " | ", level, true);
    const bool implies = node.type == NodeType::Implies;
    if (node.type == NodeType::Equivalent) Put("~");
    Put(implies ? "qb_implies(" : "qb_xor(");
    EmitWhole(*node.operands[0], Or);
    Put(", ");
    EmitWhole(*node.operands[1], Or);
    Put(")");
}

} // namespace qbrpt::dialect
