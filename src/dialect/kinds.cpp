#include "dialect/kinds.h"

#include "dialect/builtins.h"
#include "dialect/words.h"

#include <algorithm>

namespace qbrpt::dialect {

namespace {

ValueKind ArithmeticKind(const Node& node) {
    const ValueKind left = node.operands[0]->kind;
    const ValueKind right = node.operands[1]->kind;
    const bool leftDate = left == ValueKind::Date;
    const bool rightDate = right == ValueKind::Date;
    switch (node.op) {
    case Operator::DivideWhole:
    case Operator::Remainder:
        return ValueKind::Whole;
    case Operator::Divide:
    case Operator::Power:
        return ValueKind::Number;
    case Operator::Add:
        if (left == ValueKind::Text && right == ValueKind::Text) return ValueKind::Text;
        if (leftDate || rightDate) return ValueKind::Date;
        break;
    case Operator::Subtract:
        if (leftDate && rightDate) return ValueKind::Number;
        if (leftDate) return ValueKind::Date;
        break;
    default:
        break;
    }
    if (left == ValueKind::Null || right == ValueKind::Null) return ValueKind::Null;
    const auto whole = [](ValueKind kind) { return kind == ValueKind::Whole || kind == ValueKind::Boolean; };
    return whole(left) && whole(right) ? ValueKind::Whole : ValueKind::Number;
}

ValueKind ChoiceKind(const Node& call) {
    const std::size_t first = call.builtin->form == Form::Nz ? 0 : 1;
    const std::size_t step = call.builtin->form == Form::Switch ? 2 : 1;
    bool any = false;
    ValueKind common = ValueKind::Null;
    for (std::size_t i = first; i < call.operands.size(); i += step) {
        if (call.operands[i]->type == NodeType::Null) continue;
        const ValueKind kind = call.operands[i]->kind;
        common = any ? CommonKind(common, kind) : kind;
        any = true;
    }
    return common;
}

ValueKind CallKind(const Node& call) {
    const auto argument = [&call] { return call.operands[0]->kind; };
    switch (call.builtin->result) {
    case Result::Boolean:
        return ValueKind::Boolean;
    case Result::Whole:
        return ValueKind::Whole;
    case Result::Number:
        return ValueKind::Number;
    case Result::Date:
        return ValueKind::Date;
    case Result::Text:
        return ValueKind::Text;
    case Result::Argument:
        return argument() == ValueKind::Boolean && call.builtin->form != Form::First &&
                       call.builtin->form != Form::Last
                   ? ValueKind::Whole
                   : argument();
    case Result::Numeric:
        if (argument() == ValueKind::Boolean) return ValueKind::Whole;
        if (argument() == ValueKind::Date && call.builtin->form == Form::Sum) return ValueKind::Number;
        return argument() == ValueKind::Text ? ValueKind::Number : argument();
    case Result::Choice:
        return ChoiceKind(call);
    }
    return ValueKind::Null;
}

ValueKind LogicKind(const Node& node) {
    const bool bits = std::all_of(node.operands.begin(), node.operands.end(),
                                  [](const NodePtr& operand) { return IsNumeric(operand->kind); });
    return bits ? ValueKind::Whole : ValueKind::Boolean;
}

ValueKind NameKind(const Node& node) {
    switch (node.binding.target) {
    case Binding::Target::Column:
        return node.binding.source->columns[node.binding.index].kind;
    case Binding::Target::Alias:
        return node.binding.select->items[node.binding.index].expression->kind;
    default:
        return node.kind;
    }
}

constexpr int SameExpressionBudget = 20'000; // nodes; an alias may stand for many of them

bool Same(const Node& leftNode, const Node& rightNode, int& budget) {
    const Node& left = Meaning(leftNode);
    const Node& right = Meaning(rightNode);
    if (&left == &right) return true;
    if (--budget < 0 || left.type != right.type || left.op != right.op || left.negated != right.negated ||
        left.star != right.star || left.operands.size() != right.operands.size() || left.query || right.query)
        return false;
    if (left.type == NodeType::Name) {
        return left.binding.target == right.binding.target && left.binding.source == right.binding.source &&
               left.binding.select == right.binding.select && left.binding.index == right.binding.index;
    }
    if (left.type == NodeType::Call && left.builtin != right.builtin) return false;
    const bool texts = left.type == NodeType::Text || left.type == NodeType::Lookup;
    if (texts && left.text != right.text) return false;
    if (left.whole != right.whole || left.number != right.number) return false;
    for (std::size_t i = 0; i < left.operands.size(); ++i) {
        if (!Same(*left.operands[i], *right.operands[i], budget)) return false;
    }
    return true;
}

} // namespace

const Node& Meaning(const Node& node) {
    const Node* meaning = &node;
    while (meaning->type == NodeType::Name && meaning->binding.target == Binding::Target::Alias)
        meaning = meaning->binding.select->items[meaning->binding.index].expression.get();
    return *meaning;
}

NodePtr CopyOf(const Node& node) {
    auto copy = std::make_unique<Node>();
    copy->type = node.type;
    copy->op = node.op;
    copy->negated = node.negated;
    copy->star = node.star;
    copy->offset = node.offset;
    copy->word = node.word;
    copy->qualifier = node.qualifier;
    copy->text = node.text;
    copy->whole = node.whole;
    copy->number = node.number;
    copy->height = node.height;
    copy->kind = node.kind;
    copy->binding = node.binding;
    copy->builtin = node.builtin;
    for (const NodePtr& operand : node.operands)
        copy->operands.push_back(CopyOf(*operand));
    return copy;
}

bool SameExpression(const Node& left, const Node& right) {
    int budget = SameExpressionBudget;
    return Same(left, right, budget);
}

ValueKind CommonKind(ValueKind left, ValueKind right) {
    if (left == right) return left;
    const auto among = [&](ValueKind kind) { return left == kind || right == kind; };
    if (among(ValueKind::Null) || among(ValueKind::Text)) return ValueKind::Null;
    if (among(ValueKind::Date)) return among(ValueKind::Boolean) ? ValueKind::Null : ValueKind::Date;
    return among(ValueKind::Number) ? ValueKind::Number : ValueKind::Whole;
}

ValueKind InferKind(const Node& node) {
    switch (node.type) {
    case NodeType::Null:
        return ValueKind::Null;
    case NodeType::Whole:
        return ValueKind::Whole;
    case NodeType::Number:
        return ValueKind::Number;
    case NodeType::Text:
    case NodeType::Join:
        return ValueKind::Text;
    case NodeType::Date:
        return ValueKind::Date;
    case NodeType::Name:
        return NameKind(node);
    case NodeType::Negate: {
        const ValueKind kind = node.operands[0]->kind;
        if (kind == ValueKind::Boolean) return ValueKind::Whole;
        return kind == ValueKind::Text ? ValueKind::Number : kind;
    }
    case NodeType::Arithmetic:
        return ArithmeticKind(node);
    case NodeType::And:
    case NodeType::Or:
    case NodeType::Xor:
    case NodeType::Equivalent:
    case NodeType::Implies:
    case NodeType::Not:
        return LogicKind(node);
    case NodeType::Subquery:
        return node.query->columns.empty() ? ValueKind::Null : node.query->columns[0].kind;
    case NodeType::Call:
        return CallKind(node);
    default:
        return ValueKind::Boolean;
    }
}

bool IsDateLike(const Node& original) {
    const Node& node = Meaning(original);
    if (node.kind == ValueKind::Date) return true;
    return node.type == NodeType::Call && node.builtin->form == Form::ToNumber &&
           IsDateLike(*node.operands[0]);
}

std::optional<double> LiteralNumber(const Node& node) {
    switch (node.type) {
    case NodeType::Whole:
        return static_cast<double>(node.whole);
    case NodeType::Number:
    case NodeType::Date:
        return node.number;
    case NodeType::Negate: {
        const std::optional<double> inner = LiteralNumber(*node.operands[0]);
        return inner ? std::optional(-*inner) : std::nullopt;
    }
    default:
        return std::nullopt;
    }
}

} // namespace qbrpt::dialect
