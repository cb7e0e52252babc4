// Literals, names, arithmetic and logic.
#include "base/calendar.h"
#include "base/numbers.h"
#include "dialect/builtins.h"
#include "dialect/emit_depth.h"
#include "dialect/emitter.h"
#include "dialect/kinds.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace qbrpt::dialect {

namespace {

constexpr std::size_t LongestResult = 8U << 20U; // bytes; aliases that name each other can grow very fast

bool IsPredicate(const Node& node) {
    switch (node.type) {
    case NodeType::Compare:
    case NodeType::Between:
    case NodeType::InList:
    case NodeType::InQuery:
    case NodeType::Like:
    case NodeType::IsNull:
    case NodeType::Exists:
        return true;
    case NodeType::And:
    case NodeType::Or:
    case NodeType::Xor:
    case NodeType::Equivalent:
    case NodeType::Implies:
    case NodeType::Not:
        return node.kind == ValueKind::Boolean;
    case NodeType::Call:
        return node.builtin->result == Result::Boolean;
    default:
        return false;
    }
}

} // namespace

void Emitter::Put(std::string_view text) {
    if (mOut.size() + text.size() > LongestResult)
        throw Failure(FailureNumber::SyntaxError,
                      "The statement is too complex: its columns name each other too often.");
    mOut += text;
}

void Emitter::PutName(std::string_view name) {
    Put("\"");
    for (const char c : name)
        Put(c == '"' ? std::string_view("\"\"") : std::string_view(&c, 1));
    Put("\"");
}

void Emitter::PutText(std::string_view text) {
    std::string quoted = "'";
    for (const char c : text) {
        quoted.push_back(c);
        if (c == '\'') quoted.push_back(c);
    }
    quoted.push_back('\'');
    Put(quoted);
}

void Emitter::PutReal(double value) {
    std::array<char, 40> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    std::string text(buffer.data(), end.ptr);
    if (text.find_first_of(".e") == std::string::npos) text += ".0";
    Put(text);
}

void Emitter::PutColumn(const Binding& binding) {
    PutName(binding.source->emittedName);
    Put(".");
    if (binding.source->table != nullptr)
        PutName(binding.source->columns[binding.index].name);
    else
        PutName("c" + std::to_string(binding.index + 1));
}

// "Gold" and "GOLD" are one group, and the engine would show either: the same one must show on every run.
bool Emitter::IsGroupedText(const Node& node) const {
    if (!mOfGroups || !MayBeText(node.kind) || node.binding.target != Binding::Target::Column) return false;
    return std::any_of(mSelect->groupBy.begin(), mSelect->groupBy.end(),
                       [&node](const NodePtr& term) { return SameExpression(*term, node); });
}

void Emitter::EmitValue(const Node& original, Level level) {
    const Deeper deeper(*this);
    const Node& node = Meaning(original);
    switch (node.type) {
    case NodeType::Null:
        return Put("NULL");
    case NodeType::Boolean:
    case NodeType::Whole:
        return Put(std::to_string(node.whole));
    case NodeType::Number:
        return PutReal(node.number);
    case NodeType::Text:
        return PutText(node.text);
    case NodeType::Date:
        return PutReal(SnapToMillisecond(node.number));
    case NodeType::Name:
        if (IsGroupedText(node)) {
            Put("min(");
            PutColumn(node.binding);
            return Put(" COLLATE BINARY)");
        }
        if (node.binding.target == Binding::Target::Column) return PutColumn(node.binding);
        return Put("?" + std::to_string(mBinder.PlaceOfParameter(node.binding.index) + 1));
    case NodeType::Negate: {
        const Enclosed enclosed(*this, Unary, level);
        Put("-");
        return EmitNumber(*node.operands[0], Primary);
    }
    case NodeType::Arithmetic:
        return EmitArithmetic(node, level);
    case NodeType::Join: {
        const Enclosed enclosed(*this, Join, level);
        EmitText(*node.operands[0], Join);
        Put(" || ");
        return EmitText(*node.operands[1], Collate);
    }
    case NodeType::Subquery:
        return EmitNested(node, level);
    case NodeType::Lookup:
        return EmitLookup(node);
    case NodeType::Call:
        return EmitCall(node, level);
    default:
        if (node.kind == ValueKind::Boolean) return EmitCondition(node, level);
        return EmitBitwise(node, level);
    }
}

void Emitter::EmitCondition(const Node& original, Level level) {
    const Deeper deeper(*this);
    const Node& node = Meaning(original);
    switch (node.type) {
    case NodeType::Compare:
        return EmitCompare(node, level);
    case NodeType::Between:
        return EmitBetween(node, level);
    case NodeType::InList:
        return EmitInList(node, level);
    case NodeType::IsNull:
        return EmitNullTest(*node.operands[0], node.negated, level);
    case NodeType::Like: {
        const Enclosed enclosed(*this, node.negated ? Not : Primary, level);
        Put(node.negated ? "NOT qb_like(" : "qb_like(");
        EmitArgument(*node.operands[0], 't');
        Put(", ");
        EmitArgument(*node.operands[1], 't');
        return Put(")");
    }
    case NodeType::InQuery:
    case NodeType::Exists:
        return EmitNested(node, level);
    case NodeType::And:
    case NodeType::Or:
    case NodeType::Xor:
    case NodeType::Equivalent:
    case NodeType::Implies:
    case NodeType::Not:
        return node.kind == ValueKind::Boolean ? EmitLogic(node, level) : EmitBitwise(node, level);
    default:
        break;
    }
    if (node.kind == ValueKind::Text) {
        Put("qb_cbool(");
        EmitValue(node, Or);
        return Put(")");
    }
    EmitValue(node, level);
}

// 1, 0 or null: a boolean column holds 1 or -1 for true.
void Emitter::EmitBit(const Node& original, Level level) {
    const Node& node = Meaning(original);
    if (IsPredicate(node) || node.type == NodeType::Boolean) return EmitCondition(node, level);
    if (const std::optional<double> literal = LiteralNumber(node)) return Put(*literal != 0 ? "1" : "0");
    const Enclosed enclosed(*this, Equal, level);
    EmitCondition(node, Relation);
    Put(" <> 0");
}

// A boolean counts as -1 or 0.
void Emitter::EmitNumber(const Node& original, Level level) {
    const Node& node = Meaning(original);
    if (node.type == NodeType::Boolean) return Put(node.whole != 0 ? "(-1)" : "0");
    if (node.kind == ValueKind::Boolean) {
        const Enclosed enclosed(*this, Unary, level);
        Put("-(");
        EmitBit(node, Or);
        return Put(")");
    }
    if (node.kind == ValueKind::Text) {
        Put("qb_cdbl(");
        EmitValue(node, Or);
        return Put(")");
    }
    EmitValue(node, level);
}

void Emitter::EmitWhole(const Node& original, Level level) {
    const Node& node = Meaning(original);
    const bool sure =
        node.type != NodeType::Name && (node.kind == ValueKind::Whole || node.kind == ValueKind::Boolean);
    if (sure) return EmitNumber(node, level);
    Put("qb_whole(");
    EmitNumber(node, Or);
    Put(")");
}

// As a piece of a text: null is empty, numbers as people write them.
void Emitter::EmitText(const Node& original, Level level) {
    const Node& node = Meaning(original);
    if (node.type == NodeType::Null) return Put("''");
    if (node.type == NodeType::Text || node.type == NodeType::Join ||
        (node.type == NodeType::Call && node.builtin->form == Form::Format))
        return EmitValue(node, level);
    if (node.kind == ValueKind::Text) {
        Put("COALESCE(");
        EmitValue(node, Or);
        return Put(", '')");
    }
    if (node.kind == ValueKind::Whole || node.kind == ValueKind::Boolean) {
        Put("COALESCE(");
        EmitNumber(node, Or);
        return Put(", '')");
    }
    Put(node.kind == ValueKind::Date ? "qb_date_text(" : "qb_text(");
    EmitValue(node, Or);
    Put(")");
}

void Emitter::EmitAs(const Node& node, ValueKind kind, Level level) {
    if (node.kind != ValueKind::Boolean) return EmitValue(node, level);
    if (kind == ValueKind::Boolean) return EmitBit(node, level);
    EmitNumber(node, level);
}

void Emitter::EmitOperands(const Node& node, std::string_view sign, Level level, bool wholes) {
    Level own = Product;
    if (wholes && sign.find_first_of("&|") != std::string_view::npos)
        own = Bits;
    else if (node.op == Operator::Add || node.op == Operator::Subtract)
        own = Sum;
    const Enclosed enclosed(*this, own, level);
    for (std::size_t i = 0; i < node.operands.size(); ++i) {
        if (i > 0) Put(sign);
        const Level asked = i == 0 ? own : static_cast<Level>(own + 1);
        if (wholes)
            EmitWhole(*node.operands[i], asked);
        else
            EmitNumber(*node.operands[i], asked);
    }
}

void Emitter::EmitArithmetic(const Node& node, Level level) {
    for (const NodePtr& operand : node.operands) {
        if (Meaning(*operand).type == NodeType::Null) return Put("NULL");
    }
    switch (node.op) {
    case Operator::Add:
        if (node.kind == ValueKind::Text) {
            const Enclosed enclosed(*this, Join, level);
            EmitValue(*node.operands[0], Join);
            Put(" || ");
            return EmitValue(*node.operands[1], Collate);
        }
        return EmitOperands(node, " + ", level, false);
    case Operator::Subtract:
        return EmitOperands(node, " - ", level, false);
    case Operator::Multiply:
        return EmitOperands(node, " * ", level, false);
    case Operator::Divide:
        return EmitOperands(node, " * 1.0 / ", level, false);
    case Operator::DivideWhole:
        return EmitOperands(node, " / ", level, true);
    case Operator::Remainder:
        return EmitOperands(node, " % ", level, true);
    default:
        Put("qb_power(");
        EmitNumber(*node.operands[0], Or);
        Put(", ");
        EmitNumber(*node.operands[1], Or);
        return Put(")");
    }
}

// What is not in the totals has no rows: a count of 0, null for all other aggregates.
void Emitter::EmitLookup(const Node& node) {
    if (node.star) Put("COALESCE(");
    Put("(SELECT \"c" + std::to_string(node.whole + 1) + "\" FROM ");
    PutName(node.text);
    Put(" WHERE \"c1\" = ");
    EmitValue(*node.operands[0], Bits);
    Put(node.star ? "), 0)" : ")");
}

void Emitter::EmitNested(const Node& node, Level level) {
    const Enclosed enclosed(*this, node.type == NodeType::InQuery ? Equal : Primary, level);
    if (node.type == NodeType::Exists) Put("EXISTS ");
    if (node.type == NodeType::InQuery) {
        const Node& wanted = *node.operands[0];
        EmitValue(wanted, MayBeText(wanted.kind) ? Collate : Bits);
        if (MayBeText(wanted.kind)) Put(" COLLATE QBRPT");
        Put(node.negated ? " NOT IN " : " IN ");
    }
    Put("(");
    EmitQuery(*node.query, Naming::None);
    Put(")");
}

} // namespace qbrpt::dialect
