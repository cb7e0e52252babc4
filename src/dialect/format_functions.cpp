#include "base/letters.h"
#include "base/numbers.h"
#include "base/pictures.h"
#include "dialect/convert.h"
#include "dialect/date_text.h"
#include "dialect/function_groups.h"
#include "dialect/letters.h"

#include <array>
#include <string>

namespace qbrpt::dialect {

namespace {

std::string DateText(const Value& value) {
    return FormatDate(DayOf(value), "General Date", ArabicNames());
}

Value PieceOfText(Arguments a, const FunctionWorld&) {
    return TextOf(a[0]);
}
Value PieceOfDate(Arguments a, const FunctionWorld&) {
    return IsNull(a[0]) ? std::string() : DateText(a[0]);
}
Value ToText(Arguments a, const FunctionWorld&) {
    return TextOf(a[0]);
}
Value DateToText(Arguments a, const FunctionWorld&) {
    return DateText(a[0]);
}
Value BooleanName(Arguments a, const FunctionWorld&) {
    return std::string(NumberOf(a[0]) != 0 ? "True" : "False");
}
// A number that is not negative keeps a blank for its sign.
Value NumberToText(Arguments a, const FunctionWorld&) {
    const double number = NumberOf(a[0]);
    return (number < 0 ? "" : " ") + DecimalText(number);
}

std::string FormatText(const std::string& text, const std::string& picture) {
    if (picture == ">") return ChangeLetters(text, CapitalLetter);
    if (picture == "<") return ChangeLetters(text, SmallLetter);
    const bool dates = IsDatePicture(picture);
    if (const std::optional<double> number = ParseNumber(text))
        return dates ? FormatDate(*number, picture, ArabicNames()) : FormatNumber(*number, picture);
    const std::optional<double> day = dates ? ParseDateText(text, DateOrder::DayFirst) : std::nullopt;
    return day ? FormatDate(*day, picture, ArabicNames()) : text;
}

// Null prints as nothing, whatever the picture.
Value Format(Arguments a, const FunctionWorld&) {
    if (IsNull(a[0])) return std::string();
    const std::string picture = TextOf(a[1]);
    if (const auto* text = std::get_if<std::string>(a.data())) return FormatText(*text, picture);
    const double number = NumberOf(a[0]);
    return IsDatePicture(picture) ? FormatDate(number, picture, ArabicNames())
                                  : FormatNumber(number, picture);
}

constexpr auto Functions = std::to_array<ScalarFunction>({
    {"qb_text", 1, 1, false, PieceOfText},
    {"qb_date_text", 1, 1, false, PieceOfDate},
    {"qb_cstr", 1, 1, false, UnlessNull<ToText>},
    {"qb_cstr_date", 1, 1, false, UnlessNull<DateToText>},
    {"qb_boolname", 1, 1, false, UnlessNull<BooleanName>},
    {"qb_str", 1, 1, false, UnlessNull<NumberToText>},
    {"qb_format", 2, 2, false, Format},
});

} // namespace

std::span<const ScalarFunction> FormatFunctions() {
    return Functions;
}

} // namespace qbrpt::dialect
