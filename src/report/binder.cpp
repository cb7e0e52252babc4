#include "report/binder.h"

#include "base/utf8.h"
#include "report/reading.h"
#include "report/value_text.h"

#include <cmath>

namespace qbrpt::report {

namespace {

// Marks of the scripts that this system meets: Latin, Hebrew and Arabic vowel signs, joiners.
bool IsMark(char32_t c) {
    return (c >= 0x300 && c <= 0x36F) || (c >= 0x591 && c <= 0x5C7) || (c >= 0x610 && c <= 0x61A) ||
           (c >= 0x64B && c <= 0x65F) || c == 0x670 || (c >= 0x6D6 && c <= 0x6ED && c != 0x6DD) ||
           (c >= 0x8D3 && c <= 0x8FF) || (c >= 0x200C && c <= 0x200D) || (c >= 0xFE00 && c <= 0xFE0F) ||
           (c >= 0xFE20 && c <= 0xFE2F);
}

CellView NumberCell(double number) {
    CellView cell;
    if (!std::isfinite(number)) return cell;
    cell.kind = ValueKind::Number;
    cell.number = number;
    return cell;
}

CellView DateCell(double dayNumber) {
    CellView cell;
    if (!IsCalendarDay(dayNumber)) return cell;
    cell.kind = ValueKind::Date;
    cell.number = dayNumber;
    return cell;
}

CellView BooleanCell(bool value) {
    CellView cell;
    cell.kind = ValueKind::Boolean;
    cell.whole = value ? 1 : 0;
    cell.number = value ? 1 : 0;
    return cell;
}

CellView WholeCell(std::int64_t whole) {
    CellView cell;
    cell.kind = ValueKind::Whole;
    cell.whole = whole;
    cell.number = static_cast<double>(whole);
    return cell;
}

CellView ToNumber(const CellView& value) {
    switch (value.kind) {
    case ValueKind::Whole:
    case ValueKind::Boolean:
        return WholeCell(value.whole);
    case ValueKind::Number:
    case ValueKind::Date:
        return NumberCell(value.number);
    default:
        if (const auto number = ReadNumber(value.text)) return NumberCell(*number);
        return value;
    }
}

CellView ToDate(const CellView& value) {
    switch (value.kind) {
    case ValueKind::Whole:
        return DateCell(static_cast<double>(value.whole));
    case ValueKind::Number:
    case ValueKind::Date:
        return DateCell(value.number);
    case ValueKind::Boolean:
        return {};
    default:
        if (const auto day = ReadDate(value.text)) return DateCell(*day);
        return value;
    }
}

CellView ToBoolean(const CellView& value) {
    switch (value.kind) {
    case ValueKind::Whole:
    case ValueKind::Boolean:
        return BooleanCell(value.whole != 0);
    case ValueKind::Number:
        return std::isnan(value.number) ? CellView{} : BooleanCell(value.number != 0);
    case ValueKind::Date:
        return {};
    default:
        if (const auto truth = ReadBoolean(value.text)) return BooleanCell(*truth);
        return value;
    }
}

CellView Compute(Computed::Operation operation, const CellView& left, const CellView& right) {
    const auto isNumber = [](const CellView& value) {
        return value.kind != ValueKind::Null && value.kind != ValueKind::Text;
    };
    if (!isNumber(left) || !isNumber(right)) return {};
    const double a = ToNumber(left).number;
    const double b = ToNumber(right).number;
    switch (operation) {
    case Computed::Operation::Add:
        return NumberCell(a + b);
    case Computed::Operation::Subtract:
        return NumberCell(a - b);
    case Computed::Operation::Multiply:
        return NumberCell(a * b);
    default:
        return NumberCell(a / b);
    }
}

} // namespace

std::string_view CutText(std::string_view text, std::size_t characters) {
    if (text.size() <= characters) return text;
    std::size_t position = 0;
    for (std::size_t count = 0; count < characters && position < text.size(); ++count)
        NextCharacter(text, position);
    if (position == text.size()) return text;
    std::size_t next = position;
    if (!IsMark(NextCharacter(text, next))) return text.substr(0, position);
    // The first character left out is a mark: its letter goes with it.
    std::size_t letter = 0;
    for (std::size_t at = 0; at < position;) {
        const std::size_t start = at;
        if (!IsMark(NextCharacter(text, at))) letter = start;
    }
    return text.substr(0, letter == 0 ? position : letter);
}

Binder::Binder(const Definition& definition)
    : mComputed(definition.computed), mTexts(definition.fields.size()) {
    for (const Field& field : definition.fields) {
        const std::size_t characters = field.width > 0 ? field.width - 1U : 0U;
        mFields.push_back({field.kind, characters});
    }
}

void Binder::Bind(const RowView& raw, RowView& bound) {
    bound.resize(Size());
    for (std::size_t field = 0; field < mFields.size(); ++field) {
        const bool given = field < raw.size() && raw[field].kind != ValueKind::Null;
        bound[field] = given ? Coerce(raw[field], field) : CellView{};
    }
    for (std::size_t i = 0; i < mComputed.size(); ++i) {
        const Computed& computed = mComputed[i];
        bound[mFields.size() + i] =
            Compute(computed.operation, bound[static_cast<std::size_t>(computed.left)],
                    bound[static_cast<std::size_t>(computed.right)]);
    }
}

CellView Binder::Coerce(const CellView& value, std::size_t field) {
    switch (mFields[field].kind) {
    case FieldKind::String:
        return ToText(value, field);
    case FieldKind::DateTime:
        return ToDate(value);
    case FieldKind::Boolean:
        return ToBoolean(value);
    default:
        return ToNumber(value);
    }
}

CellView Binder::ToText(const CellView& value, std::size_t field) {
    CellView cell;
    cell.kind = ValueKind::Text;
    if (value.kind == ValueKind::Text) {
        cell.text = CutText(value.text, mFields[field].characters);
        return cell;
    }
    ValueWriter writer;
    mTexts[field] = writer.Write(value, ValueFormat::Text, {}).text;
    if (mTexts[field].empty()) return {};
    cell.text = CutText(mTexts[field], mFields[field].characters);
    return cell;
}

} // namespace qbrpt::report
