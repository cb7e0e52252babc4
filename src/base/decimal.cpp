#include "base/decimal.h"

#include <array>
#include <charconv>
#include <cmath>

namespace qbrpt {

namespace {

void TrimZeros(Decimal& number) {
    while (!number.digits.empty() && number.digits.back() == '0')
        number.digits.pop_back();
    if (number.digits.empty()) {
        number.exponent = 0;
        number.negative = false;
    }
}

// Adds one to the last digit that is kept.
void CarryUp(Decimal& number) {
    while (!number.digits.empty() && number.digits.back() == '9')
        number.digits.pop_back();
    if (number.digits.empty()) {
        number.digits.push_back('1');
        ++number.exponent;
    } else {
        ++number.digits.back();
    }
}

enum class Half { Away, Even };

void RoundDigits(Decimal& number, int places, Half half) {
    const int kept = number.exponent + places;
    if (kept >= static_cast<int>(number.digits.size())) return;
    if (kept < 0) {
        number.digits.clear();
        TrimZeros(number);
        return;
    }
    const auto cut = static_cast<std::size_t>(kept);
    const char next = number.digits[cut];
    const bool exactHalf = next == '5' && cut + 1 == number.digits.size();
    const bool lastOdd = cut > 0 && ((number.digits[cut - 1] - '0') % 2) == 1;
    const bool up = exactHalf && half == Half::Even ? lastOdd : next >= '5';
    number.digits.resize(cut);
    if (up) CarryUp(number);
    TrimZeros(number);
}

} // namespace

void Decimal::Round(int places) {
    RoundDigits(*this, places, Half::Away);
}
void Decimal::RoundToEven(int places) {
    RoundDigits(*this, places, Half::Even);
}

char Decimal::DigitAt(int power) const {
    const int index = exponent - 1 - power;
    if (index < 0 || index >= static_cast<int>(digits.size())) return '0';
    return digits[static_cast<std::size_t>(index)];
}

double Decimal::Number() const {
    if (digits.empty()) return 0;
    const std::string text = (negative ? "-0." : "0.") + digits + "e" + std::to_string(exponent);
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

Decimal DecimalOf(double value) {
    Decimal number;
    if (!std::isfinite(value) || value == 0) return number;
    std::array<char, 48> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                   std::chars_format::scientific, 14);
    const std::string all(text.data(), end.ptr);
    const std::size_t mark = all.find('e');
    number.negative = value < 0;
    number.digits = all.substr(0, 1) + all.substr(2, mark - 2);
    const char* exponentText = all.data() + mark + (all[mark + 1] == '+' ? 2 : 1);
    std::from_chars(exponentText, all.data() + all.size(), number.exponent);
    ++number.exponent;
    TrimZeros(number);
    return number;
}

} // namespace qbrpt
