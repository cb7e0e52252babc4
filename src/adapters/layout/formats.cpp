#include "adapters/layout/formats.h"

#include <array>

namespace qbrpt::layout {

using report::Align;
using report::ValueFormat;

namespace {

constexpr auto Aligns = std::to_array<std::pair<std::string_view, Align>>(
    {{"right", Align::Right}, {"centre", Align::Centre}, {"left", Align::Left}});

using report::Aggregate;
using Test = report::Condition::Test;

constexpr auto Tests = std::to_array<std::pair<std::string_view, Test>>({
    {"positive", Test::Positive},
    {"negative", Test::Negative},
    {"zero", Test::Zero},
    {"not-zero", Test::NotZero},
    {"empty", Test::Empty},
    {"filled", Test::Filled},
});

constexpr auto Aggregates = std::to_array<std::pair<std::string_view, Aggregate>>({
    {"sum", Aggregate::Sum},
    {"count", Aggregate::Count},
    {"average", Aggregate::Average},
    {"smallest", Aggregate::Minimum},
    {"largest", Aggregate::Maximum},
});

constexpr auto Formats = std::to_array<std::pair<std::string_view, ValueFormat>>({
    {"text", ValueFormat::Text},
    {"money", ValueFormat::Money},
    {"count", ValueFormat::Count},
    {"decimal", ValueFormat::Decimal},
    {"two-decimals", ValueFormat::Money}, // other things than money are written so too
    {"percent", ValueFormat::Percent},
    {"duration", ValueFormat::Duration},
    {"date", ValueFormat::Date},
    {"time", ValueFormat::Time},
    {"datetime", ValueFormat::DateTime},
    {"yes-no", ValueFormat::YesNo},
    {"picture", ValueFormat::Picture},
});

bool Fits(ValueFormat format, FieldKind kind) {
    switch (kind) {
    case FieldKind::String:
        return format == ValueFormat::Text;
    case FieldKind::Boolean:
        return format == ValueFormat::YesNo;
    case FieldKind::DateTime:
        return format == ValueFormat::Date || format == ValueFormat::Time ||
               format == ValueFormat::DateTime || format == ValueFormat::Picture;
    case FieldKind::Number:
    case FieldKind::WholeNumber:
        return IsNumberFormat(format) || format == ValueFormat::Picture;
    }
    return false;
}

std::string_view NameOfKind(FieldKind kind) {
    switch (kind) {
    case FieldKind::String:
        return "a text";
    case FieldKind::Boolean:
        return "true or false";
    case FieldKind::DateTime:
        return "a date";
    case FieldKind::Number:
    case FieldKind::WholeNumber:
        return "a number";
    }
    return "a value";
}

} // namespace

Align ReadAlign(TableReader& reader, std::string_view key, Align fallback) {
    return reader.Choice<Align>(key, Aligns, fallback);
}

ValueFormat ReadFormat(TableReader& reader, std::optional<FieldKind> kind) {
    const ValueFormat usual = UsualFormat(kind);
    const bool isNumber = kind && (*kind == FieldKind::Number || *kind == FieldKind::WholeNumber);
    if (isNumber && !reader.Has("format")) {
        reader.Wrong("format", "a number needs a \"format\": money, count, decimal, percent or duration");
        return usual;
    }
    const ValueFormat format = reader.Choice<ValueFormat>("format", Formats, usual);
    if (kind && !Fits(format, *kind)) {
        reader.Wrong("format",
                     "the field is " + std::string(NameOfKind(*kind)) + "; this format does not go with it");
        return usual;
    }
    return format;
}

report::Condition::Test ReadTest(TableReader& reader) {
    return reader.Choice<Test>("is", Tests, Test::Filled, "test");
}

Aggregate ReadAggregate(TableReader& reader) {
    return reader.Choice<Aggregate>("of", Aggregates, Aggregate::Sum, "total");
}

ValueFormat UsualFormat(std::optional<FieldKind> kind) {
    if (!kind || *kind == FieldKind::String) return ValueFormat::Text;
    if (*kind == FieldKind::DateTime) return ValueFormat::DateTime;
    return *kind == FieldKind::Boolean ? ValueFormat::YesNo : ValueFormat::Decimal;
}

Align UsualAlign(ValueFormat format) {
    const bool isMoment =
        format == ValueFormat::Date || format == ValueFormat::Time || format == ValueFormat::DateTime;
    return isMoment || format == ValueFormat::YesNo ? Align::Centre : Align::Right;
}

bool IsNumberFormat(ValueFormat format) {
    switch (format) {
    case ValueFormat::Money:
    case ValueFormat::Count:
    case ValueFormat::Decimal:
    case ValueFormat::Percent:
    case ValueFormat::Duration:
        return true;
    default:
        return false;
    }
}

} // namespace qbrpt::layout
