// Calls of functions and aggregates.
#include "dialect/builtins.h"
#include "dialect/emit_depth.h"
#include "dialect/emitter.h"
#include "dialect/grouping.h"
#include "dialect/kinds.h"
#include "dialect/words.h"

#include <algorithm>
#include <array>
#include <utility>

namespace qbrpt::dialect {

void Emitter::EmitCall(const Node& node, Level level) {
    const Builtin& builtin = *node.builtin;
    if (IsAggregate(builtin.form)) return EmitAggregate(node);
    switch (builtin.form) {
    case Form::IIf:
        return EmitIIf(node);
    case Form::Switch:
        return EmitSwitch(node);
    case Form::Choose:
        return EmitChoose(node);
    case Form::Format:
        return EmitFormat(node);
    case Form::IsNull:
        return EmitNullTest(*node.operands[0], false, level);
    case Form::Nz:
        Put("COALESCE(");
        EmitAs(*node.operands[0], node.kind, Or);
        Put(", ");
        if (node.operands.size() > 1)
            EmitAs(*node.operands[1], node.kind, Or);
        else
            Put(MayBeText(node.kind) ? "''" : "0");
        return Put(")");
    case Form::Abs:
        Put("abs(");
        EmitNumber(*node.operands[0], Or);
        return Put(")");
    case Form::Int:
        return EmitRounded(node, "floor");
    case Form::Fix:
        return EmitRounded(node, "trunc");
    case Form::Sgn:
        Put("sign(");
        EmitNumber(*node.operands[0], Or);
        return Put(")");
    case Form::ToText:
    case Form::ToWhole:
    case Form::ToNumber:
    case Form::ToBoolean:
    case Form::ToDate:
        return EmitConversion(node, level);
    default:
        if (!EmitNativeText(node)) EmitFunction(node, builtin.emitted);
    }
}

void Emitter::EmitFunction(const Node& node, std::string_view emitted) {
    Put(emitted);
    Put("(");
    for (std::size_t i = 0; i < node.operands.size(); ++i) {
        if (i > 0) Put(", ");
        const std::string_view how = node.builtin->arguments;
        EmitArgument(*node.operands[i], how[std::min(i, how.size() - 1)]);
    }
    Put(")");
}

void Emitter::EmitArgument(const Node& node, char how) {
    if (how == 't' && node.kind == ValueKind::Date) {
        Put("qb_cstr_date(");
        EmitValue(node, Or);
        return Put(")");
    }
    EmitNumberOrValue(Meaning(node), Or);
}

// Where the engine's own function does the very same on a text, it is much faster than a call of ours.
bool Emitter::EmitNativeText(const Node& node) {
    if (node.operands.empty() || node.operands[0]->kind != ValueKind::Text) return false;
    const auto count = [&node](std::size_t index, std::int64_t least) {
        const Node& operand = *node.operands[index];
        return operand.type == NodeType::Whole && operand.whole >= least && operand.whole < 1'000'000'000;
    };
    const auto call = [this, &node](std::string_view name, std::string_view before) {
        Put(name);
        EmitValue(*node.operands[0], Or);
        Put(before);
    };
    switch (node.builtin->form) {
    case Form::Length:
        call("length(", ")");
        return true;
    case Form::Trim:
        call("trim(", ")");
        return true;
    case Form::LTrim:
        call("ltrim(", ")");
        return true;
    case Form::RTrim:
        call("rtrim(", ")");
        return true;
    case Form::Left:
        if (!count(1, 0)) return false;
        call("substr(", ", 1, ");
        Put(std::to_string(node.operands[1]->whole) + ")");
        return true;
    case Form::Right:
        if (!count(1, 1)) return false;
        call("substr(", ", -");
        Put(std::to_string(node.operands[1]->whole) + ")");
        return true;
    case Form::Mid:
        if (!count(1, 1) || (node.operands.size() > 2 && !count(2, 0))) return false;
        call("substr(", ", ");
        Put(std::to_string(node.operands[1]->whole));
        if (node.operands.size() > 2) Put(", " + std::to_string(node.operands[2]->whole));
        Put(")");
        return true;
    default:
        return false;
    }
}

void Emitter::EmitRounded(const Node& node, std::string_view function) {
    const Node& value = *node.operands[0];
    if (value.kind == ValueKind::Whole || value.kind == ValueKind::Boolean) return EmitWhole(value, Primary);
    Put(function);
    Put("(");
    EmitNumber(value, Sum);
    if (value.kind == ValueKind::Date && node.builtin->form == Form::Int) {
        Put(" + "); // a hair under midnight is midnight
        PutReal(HalfMillisecond);
    }
    Put(")");
}

void Emitter::EmitConversion(const Node& node, Level level) {
    const Node& value = Meaning(*node.operands[0]);
    switch (node.builtin->form) {
    case Form::ToText:
        Put(value.kind == ValueKind::Date      ? "qb_cstr_date("
            : value.kind == ValueKind::Boolean ? "qb_boolname("
                                               : "qb_cstr(");
        if (value.kind == ValueKind::Boolean)
            EmitBit(value, Or);
        else
            EmitValue(value, Or);
        return Put(")");
    case Form::ToNumber:
        if (value.kind == ValueKind::Date || value.kind == ValueKind::Number) return EmitValue(value, level);
        return EmitFunction(node, node.builtin->emitted);
    case Form::ToBoolean:
        if (value.kind == ValueKind::Boolean) return EmitBit(value, level);
        if (!MayBeText(value.kind)) {
            const Enclosed enclosed(*this, Equal, level);
            EmitValue(value, Relation);
            return Put(" <> 0");
        }
        return EmitFunction(node, node.builtin->emitted);
    case Form::ToDate:
        if (!MayBeText(value.kind)) return EmitNumber(value, level);
        return EmitFunction(node, node.builtin->emitted);
    default:
        return EmitFunction(node, IsDateLike(value) ? "qb_cday" : node.builtin->emitted);
    }
}

void Emitter::EmitFormat(const Node& node) {
    const Node& value = Meaning(*node.operands[0]);
    if (node.operands.size() == 1)
        return value.type == NodeType::Text ? EmitValue(value, Primary) : EmitText(value, Primary);
    Put("qb_format(");
    EmitNumberOrValue(value, Or);
    Put(", ");
    EmitArgument(*node.operands[1], 't');
    Put(")");
}

// A row of IIf in the last place is one CASE, however long.
void Emitter::EmitIIf(const Node& node) {
    Put("CASE");
    const Node* choice = &node;
    while (true) {
        Put(" WHEN ");
        EmitCondition(*choice->operands[0], Or);
        Put(" THEN ");
        EmitAs(*choice->operands[1], node.kind, Or);
        const Node& last = Meaning(*choice->operands[2]);
        if (last.type != NodeType::Call || last.builtin->form != Form::IIf) break;
        choice = &last;
    }
    Put(" ELSE ");
    EmitAs(*choice->operands[2], node.kind, Or);
    Put(" END");
}

void Emitter::EmitSwitch(const Node& node) {
    Put("CASE");
    for (std::size_t i = 0; i + 1 < node.operands.size(); i += 2) {
        Put(" WHEN ");
        EmitCondition(*node.operands[i], Or);
        Put(" THEN ");
        EmitAs(*node.operands[i + 1], node.kind, Or);
    }
    Put(" END");
}

void Emitter::EmitChoose(const Node& node) {
    Put("CASE ");
    EmitWhole(*node.operands[0], Or);
    for (std::size_t i = 1; i < node.operands.size(); ++i) {
        Put(" WHEN " + std::to_string(i) + " THEN ");
        EmitAs(*node.operands[i], node.kind, Or);
    }
    Put(" END");
}

void Emitter::EmitAggregate(const Node& node) {
    const bool outer = std::exchange(mOfGroups, false);
    EmitAggregateCall(node);
    mOfGroups = outer;
}

void Emitter::EmitAggregateCall(const Node& node) {
    const Form form = node.builtin->form;
    if (form == Form::First || form == Form::Last) return EmitFirst(node);
    if (node.star) return Put("count(*)");
    const Node& value = *node.operands[0];
    switch (form) {
    case Form::Count:
        Put("count(");
        break;
    case Form::Sum:
        Put("sum(");
        break;
    case Form::Avg:
        Put("avg(");
        break;
    case Form::Min:
        Put("min(");
        break;
    default:
        Put("max(");
        break;
    }
    if (form == Form::Sum || form == Form::Avg)
        EmitNumber(value, Or);
    else
        EmitNumberOrValue(Meaning(value), Collate);
    if ((form == Form::Min || form == Form::Max) && MayBeText(value.kind)) Put(" COLLATE QBRPT");
    Put(")");
}

// The first row is the first in table order, whatever way the engine walks: the rows' own numbers go along,
// those of the tables that the value comes from before the others.
void Emitter::EmitFirst(const Node& node) {
    Put(node.builtin->emitted);
    Put("(");
    EmitAs(*node.operands[0], node.kind, Or);
    const auto put = [this](const Source& source) {
        if (source.table == nullptr || !source.table->hasRowOrder) return;
        constexpr std::array<std::string_view, 3> RowNames = {"rowid", "_rowid_", "oid"};
        const auto free = std::find_if(RowNames.begin(), RowNames.end(), [&source](std::string_view name) {
            return std::none_of(source.columns.begin(), source.columns.end(),
                                [name](const SourceColumn& column) { return SameName(column.name, name); });
        });
        if (free == RowNames.end()) return;
        Put(", ");
        PutName(source.emittedName);
        Put(".");
        Put(*free);
    };
    if (mSelect != nullptr) {
        std::vector<const Source*> used;
        VisitNodes(*node.operands[0], [&used](const Node& inner) {
            if (const Source* source = Meaning(inner).binding.source) used.push_back(source);
            return true;
        });
        const auto isUsed = [&used](const Source& source) {
            return std::find(used.begin(), used.end(), &source) != used.end();
        };
        for (const bool wanted : {true, false}) {
            for (const auto& source : mSelect->sources) {
                if (isUsed(*source) == wanted) put(*source);
            }
        }
    }
    Put(")");
}

} // namespace qbrpt::dialect
