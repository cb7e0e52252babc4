#include "base/decimal.h"
#include "base/failure.h"
#include "base/leading_number.h"
#include "base/numbers.h"
#include "dialect/convert.h"
#include "dialect/function_groups.h"
#include "dialect/words.h"

#include <array>
#include <cmath>
#include <string>

namespace qbrpt::dialect {

namespace {

Value Finite(double number) {
    if (!std::isfinite(number)) throw Failure(FailureNumber::Overflow, "Overflow.");
    return number;
}

Value Round(Arguments a, const FunctionWorld&) {
    const int places = a.size() > 1 ? SmallOf(a[1]) : 0;
    if (places < 0 || places > 15)
        throw Failure(FailureNumber::InvalidArgument, "Round takes 0 to 15 places.");
    if (KindOf(a[0]) == ValueKind::Whole) return a[0];
    Decimal decimal = DecimalOf(NumberOf(a[0]));
    decimal.RoundToEven(places);
    return decimal.Number();
}
Value SquareRoot(Arguments a, const FunctionWorld&) {
    const double number = NumberOf(a[0]);
    if (number < 0) throw Failure(FailureNumber::InvalidArgument, "Sqr takes no negative number.");
    return std::sqrt(number);
}
Value Exp(Arguments a, const FunctionWorld&) {
    return Finite(std::exp(NumberOf(a[0])));
}
Value Log(Arguments a, const FunctionWorld&) {
    const double number = NumberOf(a[0]);
    if (!(number > 0)) throw Failure(FailureNumber::InvalidArgument, "Log takes numbers above 0 only.");
    return std::log(number);
}
Value Power(Arguments a, const FunctionWorld&) {
    return Finite(std::pow(NumberOf(a[0]), NumberOf(a[1])));
}
Value Xor(Arguments a, const FunctionWorld&) {
    return WholeValue(WholeOf(a[0]) ^ WholeOf(a[1]));
}
Value Implies(Arguments a, const FunctionWorld&) {
    return WholeValue(~WholeOf(a[0]) | WholeOf(a[1]));
}
Value ToWhole(Arguments a, const FunctionWorld&) {
    return WholeValue(WholeOf(a[0]));
}
Value ToLong(Arguments a, const FunctionWorld&) {
    return WholeValue(RoundToLong(NumberOf(a[0])));
}
Value ToInteger(Arguments a, const FunctionWorld&) {
    return WholeValue(CheckedShort(RoundToLong(NumberOf(a[0]))));
}
Value ToByte(Arguments a, const FunctionWorld&) {
    const std::int32_t number = RoundToLong(NumberOf(a[0]));
    if (number < 0 || number > 255) throw Failure(FailureNumber::Overflow, "Overflow.");
    return WholeValue(number);
}
Value ToDouble(Arguments a, const FunctionWorld&) {
    return NumberOf(a[0]);
}
Value ToSingle(Arguments a, const FunctionWorld&) {
    const double number = NumberOf(a[0]);
    if (std::fabs(number) > 3.4e38) throw Failure(FailureNumber::Overflow, "Overflow.");
    return static_cast<double>(static_cast<float>(number));
}
Value ToCurrency(Arguments a, const FunctionWorld&) {
    Decimal decimal = DecimalOf(NumberOf(a[0]));
    decimal.RoundToEven(4);
    return decimal.Number();
}
Value ToBoolean(Arguments a, const FunctionWorld&) {
    if (const auto* text = std::get_if<std::string>(a.data())) {
        if (SameName(*text, "True")) return WholeValue(1);
        if (SameName(*text, "False")) return WholeValue(0);
    }
    return WholeValue(NumberOf(a[0]) != 0 ? 1 : 0);
}
Value IsNumeric(Arguments a, const FunctionWorld&) {
    const auto* text = std::get_if<std::string>(a.data());
    return WholeValue(text != nullptr ? ParseNumber(*text).has_value() : !IsNull(a[0]));
}

Value HeadNumber(Arguments a, const FunctionWorld&) {
    return Finite(LeadingNumber(TextOf(a[0])));
}

constexpr auto Functions = std::to_array<ScalarFunction>({
    {"qb_round", 1, 2, false, UnlessNull<Round>},
    {"qb_sqr", 1, 1, false, UnlessNull<SquareRoot>},
    {"qb_exp", 1, 1, false, UnlessNull<Exp>},
    {"qb_log", 1, 1, false, UnlessNull<Log>},
    {"qb_power", 2, 2, false, UnlessNull<Power>},
    {"qb_xor", 2, 2, false, UnlessNull<Xor>},
    {"qb_implies", 2, 2, false, UnlessNull<Implies>},
    {"qb_whole", 1, 1, false, UnlessNull<ToWhole>},
    {"qb_clng", 1, 1, false, UnlessNull<ToLong>},
    {"qb_cint", 1, 1, false, UnlessNull<ToInteger>},
    {"qb_cbyte", 1, 1, false, UnlessNull<ToByte>},
    {"qb_cdbl", 1, 1, false, UnlessNull<ToDouble>},
    {"qb_csng", 1, 1, false, UnlessNull<ToSingle>},
    {"qb_ccur", 1, 1, false, UnlessNull<ToCurrency>},
    {"qb_cbool", 1, 1, false, UnlessNull<ToBoolean>},
    {"qb_isnumeric", 1, 1, false, IsNumeric},
    {"qb_val", 1, 1, false, UnlessNull<HeadNumber>},
});

} // namespace

std::span<const ScalarFunction> NumberFunctions() {
    return Functions;
}

} // namespace qbrpt::dialect
