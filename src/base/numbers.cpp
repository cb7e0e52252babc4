#include "base/numbers.h"

#include "base/failure.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace qbrpt {

namespace {

[[noreturn]] void RaiseOverflow() {
    throw Failure(FailureNumber::Overflow, "Overflow.");
}

template <class Small>
Small Narrow(std::int64_t value) {
    if (value < std::numeric_limits<Small>::min() || value > std::numeric_limits<Small>::max())
        RaiseOverflow();
    return static_cast<Small>(value);
}

} // namespace

std::int32_t RoundToLong(double value) {
    // nearbyint follows the processor's rounding mode, which is half-to-even unless a host changed it;
    // remainder() is exact and half-to-even in every mode.
    const double rounded = value - std::remainder(value, 1.0);
    if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) RaiseOverflow();
    return static_cast<std::int32_t>(rounded);
}

std::int32_t CheckedLong(std::int64_t value) {
    return Narrow<std::int32_t>(value);
}
std::int16_t CheckedShort(std::int64_t value) {
    return Narrow<std::int16_t>(value);
}

std::string DecimalText(double value) {
    if (value == 0) return "0"; // also for -0.0
    std::array<char, 64> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 15);
    return {text.data(), end.ptr};
}

std::string DecimalText(std::int32_t value) {
    return std::to_string(value);
}

std::string RoundTripText(double value) {
    if (value == 0) return "0"; // also for -0.0
    std::array<char, 512> text{};
    const double size = std::fabs(value);
    const auto form = (size < 1e-7 || size >= 1e17) ? std::chars_format::general : std::chars_format::fixed;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, form);
    return {text.data(), end.ptr};
}

} // namespace qbrpt
