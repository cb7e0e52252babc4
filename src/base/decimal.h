// A number as its decimal digits, for rounding that people can check by hand.
#pragma once

#include <string>

namespace qbrpt {

/// 0.DIGITS times ten to the power `exponent`, without leading or trailing zeros; no digits for zero.
struct Decimal {
    bool negative = false;
    std::string digits;
    int exponent = 0;

    /// Rounds to `places` digits behind the point (negative: before it), halves away from zero.
    void Round(int places);
    /// The same, halves to the even neighbour.
    void RoundToEven(int places);
    [[nodiscard]] bool IsZero() const { return digits.empty(); }
    /// The digit worth ten to the power `power`, '0' outside the number.
    [[nodiscard]] char DigitAt(int power) const;
    /// Back to the nearest number.
    [[nodiscard]] double Number() const;
};

/// The 15 significant digits by which the system writes numbers: 1.005, whose double lies a hair below,
/// is exactly 1.005 here. Zero for what is not finite.
[[nodiscard]] Decimal DecimalOf(double value);

} // namespace qbrpt
