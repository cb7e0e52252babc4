// Comparisons with dates. The text of a number has 15 digits and lies a hair beside the stored moment on
// half of all seconds, so moments within half a millisecond are one. The bounds are moved, never the column:
// an index on it keeps its use.
#include "dialect/builtins.h"
#include "dialect/date_text.h"
#include "dialect/emit_depth.h"
#include "dialect/emitter.h"
#include "dialect/kinds.h"

#include <cmath>

namespace qbrpt::dialect {

namespace {

constexpr double MillisecondsADay = 86'400'000;
constexpr double FarthestDay = 1e7; // beyond the year 9999 there is nothing to snap to

// The number of a literal on either side of a date, texts included.
std::optional<double> LiteralDay(const Node& node) {
    if (node.type == NodeType::Text) return ParseDateText(node.text, DateOrder::DayFirst);
    return LiteralNumber(node);
}

bool IsCheap(const Node& node) {
    return node.type == NodeType::Name || LiteralDay(node).has_value();
}

} // namespace

void Emitter::PutSnapped(double dayNumber, double shift) {
    const bool near = std::fabs(dayNumber) < FarthestDay;
    PutReal((near ? std::round(dayNumber * MillisecondsADay) / MillisecondsADay : dayNumber) + shift);
}

// `side` is -1 for a lower bound, 1 for an upper one, 0 for the moment itself.
void Emitter::EmitDateBound(const Node& bound, int side) {
    if (const std::optional<double> day = LiteralDay(bound)) return PutSnapped(*day, side * HalfMillisecond);
    if (bound.kind == ValueKind::Text) {
        Put("qb_cdate(");
        EmitValue(bound, Or);
        Put(")");
    } else {
        EmitNumber(bound, Sum);
    }
    if (side == 0) return;
    Put(side < 0 ? " - " : " + ");
    PutReal(HalfMillisecond);
}

void Emitter::EmitDateCompare(Operator op, const Node& date, const Node& other, Level level) {
    const bool equal = op == Operator::Equal;
    if (equal || op == Operator::NotEqual) {
        const Enclosed enclosed(*this, Equal, level);
        if (IsCheap(other)) {
            EmitValue(date, Bits);
            Put(equal ? " BETWEEN " : " NOT BETWEEN ");
            EmitDateBound(other, -1);
            Put(" AND ");
            return EmitDateBound(other, 1);
        }
        Put("abs(");
        EmitValue(date, Sum);
        Put(" - (");
        EmitDateBound(other, 0);
        Put(equal ? ")) <= " : ")) > ");
        return PutReal(HalfMillisecond);
    }
    const Enclosed enclosed(*this, Relation, level);
    EmitValue(date, Bits);
    switch (op) {
    case Operator::Less:
        Put(" < ");
        return EmitDateBound(other, -1);
    case Operator::GreaterOrEqual:
        Put(" >= ");
        return EmitDateBound(other, -1);
    case Operator::LessOrEqual:
        Put(" <= ");
        return EmitDateBound(other, 1);
    default:
        Put(" > ");
        return EmitDateBound(other, 1);
    }
}

// Whether one side is CLng(date) and the other a whole number.
bool Emitter::ComparesDays(const Node& call, const Node& other) {
    const std::optional<double> day = LiteralNumber(other);
    return call.type == NodeType::Call && call.builtin->form == Form::ToWhole &&
           call.builtin->emitted == "qb_clng" && IsDateLike(*call.operands[0]) && day &&
           *day == std::nearbyint(*day) && std::fabs(*day) <= FarthestDay;
}

// The moments that round to a day are a range, which ends in the middle of a day and holds that end where the
// day is even.
bool Emitter::EmitDayCompare(Operator op, const Node& call, const Node& other, Level level) {
    if (!ComparesDays(call, other)) return false;
    const Node& date = Meaning(*call.operands[0]);
    const double day = *LiteralNumber(other);
    switch (op) {
    case Operator::GreaterOrEqual:
    case Operator::Less: {
        const Enclosed enclosed(*this, Relation, level);
        EmitDayBound(date, day, true, op == Operator::GreaterOrEqual);
        return true;
    }
    case Operator::LessOrEqual:
    case Operator::Greater: {
        const Enclosed enclosed(*this, Relation, level);
        EmitDayBound(date, day, false, op == Operator::LessOrEqual);
        return true;
    }
    default:
        break;
    }
    const bool equal = op == Operator::Equal;
    const Enclosed enclosed(*this, equal ? And : Or, level);
    EmitDayBound(date, day, true, equal);
    Put(equal ? " AND " : " OR ");
    EmitDayBound(date, day, false, equal);
    return true;
}

// One end of the moments that round to `day`: at it and inside of it, or outside.
void Emitter::EmitDayBound(const Node& date, double day, bool lower, bool inside) {
    const bool holdsEnd = std::fmod(day, 2) == 0;
    EmitValue(date, Bits);
    const double shift = holdsEnd == lower ? -HalfMillisecond : HalfMillisecond;
    if (lower)
        Put(inside ? " >= " : " < ");
    else
        Put(inside ? " <= " : " > ");
    PutReal(day + (lower ? -0.5 : 0.5) + shift);
}

} // namespace qbrpt::dialect
