// The kinds of expressions.
#pragma once

#include "dialect/tree.h"

namespace qbrpt::dialect {

/// The kind of a node whose operands have theirs.
[[nodiscard]] ValueKind InferKind(const Node& node);

/// What two possible values of one column have in common; Null where any kind may come.
[[nodiscard]] ValueKind CommonKind(ValueKind left, ValueKind right);

/// A date, or the number of a date as CDbl gives it: compared to the millisecond.
[[nodiscard]] bool IsDateLike(const Node& node);

[[nodiscard]] constexpr bool IsNumeric(ValueKind kind) {
    return kind == ValueKind::Whole || kind == ValueKind::Number;
}
/// True where a text may come, so that comparing and sorting need the collation.
[[nodiscard]] constexpr bool MayBeText(ValueKind kind) {
    return kind == ValueKind::Text || kind == ValueKind::Null;
}

/// The node itself, or what the alias stands for that it names.
[[nodiscard]] const Node& Meaning(const Node& node);

/// The number of a literal, with its sign; nothing for any other expression.
[[nodiscard]] std::optional<double> LiteralNumber(const Node& node);

/// A copy of an expression that holds no query.
[[nodiscard]] NodePtr CopyOf(const Node& node);

/// Whether both mean the same value in the same row.
[[nodiscard]] bool SameExpression(const Node& left, const Node& right);

} // namespace qbrpt::dialect
