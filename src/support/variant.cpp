#include "support/variant.h"

#include "base/failure.h"
#include "base/numbers.h"

#include <charconv>
#include <system_error>

namespace qbrpt {

namespace {

[[noreturn]] void RaiseNull() {
    throw Failure(FailureNumber::TypeMismatch, "A null stands where a value is needed.");
}

double NumberOfText(const std::string& text) {
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size())
        throw Failure(FailureNumber::TypeMismatch,
                      "The text \"" + text + "\" stands where a number is needed.");
    return number;
}

} // namespace

std::partial_ordering CompareVariants(const Value& one, const Value& other) {
    if (IsNull(one) || IsNull(other)) return std::partial_ordering::unordered;
    const auto* oneText = std::get_if<std::string>(&one);
    const auto* otherText = std::get_if<std::string>(&other);
    if (oneText != nullptr && otherText != nullptr) return oneText->compare(*otherText) <=> 0;
    if (oneText != nullptr) return std::partial_ordering::greater;
    if (otherText != nullptr) return std::partial_ordering::less;
    return NumberOf(one) <=> NumberOf(other);
}

double NumberOf(const Value& value) {
    if (IsNull(value)) RaiseNull();
    if (const std::optional<double> number = NumberIn(value)) return *number;
    return NumberOfText(std::get<std::string>(value));
}

std::string TextOf(const Value& value) {
    if (IsNull(value)) RaiseNull();
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    return DecimalText(NumberOf(value));
}

} // namespace qbrpt
