#include "dialect/convert.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "base/utf8.h"
#include "dialect/date_text.h"

#include <charconv>
#include <cmath>

namespace qbrpt::dialect {

namespace {

[[noreturn]] void RaiseMismatch(std::string_view text, const char* what) {
    throw Failure(FailureNumber::TypeMismatch,
                  "The text \"" + std::string(FirstCharacters(text, 40)) + "\" is no " + what + ".");
}

} // namespace

std::string TextOf(const Value& value) {
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    const std::optional<double> number = NumberIn(value);
    return number ? DecimalText(*number) : std::string();
}

std::optional<double> ParseNumber(std::string_view text) {
    std::string plain;
    for (const char c : text) {
        if (c != ',') plain.push_back(c);
    }
    const std::size_t first = plain.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return std::nullopt;
    const std::size_t last = plain.find_last_not_of(" \t\r\n");
    const char* begin = plain.data() + first + (plain[first] == '+' ? 1 : 0);
    const char* end = plain.data() + last + 1;
    double number = 0;
    const auto read = std::from_chars(begin, end, number);
    if (read.ec != std::errc() || read.ptr != end || !std::isfinite(number)) return std::nullopt;
    return number;
}

double NumberOf(const Value& value) {
    if (IsNull(value)) return 0;
    if (const std::optional<double> number = NumberIn(value)) return *number;
    const auto& text = std::get<std::string>(value);
    const std::optional<double> number = ParseNumber(text);
    if (!number) RaiseMismatch(text, "number");
    return *number;
}

std::int64_t WholeOf(const Value& value) {
    if (KindOf(value) == ValueKind::Whole) return std::get<std::int64_t>(value);
    const double number = NumberOf(value);
    const double rounded = number - std::remainder(number, 1.0);
    if (!(rounded >= -9.2e18 && rounded <= 9.2e18)) throw Failure(FailureNumber::Overflow, "Overflow.");
    return static_cast<std::int64_t>(rounded);
}

int SmallOf(const Value& value, int limit) {
    const std::int64_t whole = WholeOf(value);
    if (whole < -limit || whole > limit)
        throw Failure(FailureNumber::InvalidArgument, "The number " + std::to_string(whole) +
                                                          " does not lie between -" + std::to_string(limit) +
                                                          " and " + std::to_string(limit) + ".");
    return static_cast<int>(whole);
}

double DayOf(const Value& value) {
    if (KindOf(value) != ValueKind::Text) return NumberOf(value);
    const auto& text = std::get<std::string>(value);
    if (const std::optional<double> day = ParseDateText(text, DateOrder::DayFirst)) return *day;
    if (const std::optional<double> number = ParseNumber(text)) return *number;
    RaiseMismatch(text, "date");
}

} // namespace qbrpt::dialect
