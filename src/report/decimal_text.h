// Numbers as figures for people: rounded as one does by hand, grouped, without locale or streams.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qbrpt::report {

/// From here on a number is written in scientific notation: a double holds no cents any more.
constexpr double LargestPlain = 1e15;

/// |value| in units of 10^-decimals, halves away from zero on the shortest decimal text of the number:
/// 1.005 with two decimals is 101, though the nearest double lies below. `value` must be finite and below
/// LargestPlain; decimals 0 to 3.
[[nodiscard]] std::uint64_t RoundedUnits(double value, int decimals);

/// A short text built from its end, since figures come lowest digit first.
class FigureText {
public:
    void Clear() { mStart = mBuffer.size(); }
    /// Puts `character` in front.
    void Put(char character) {
        if (mStart > 0) mBuffer[--mStart] = character;
    }
    /// Puts the digits of `number` in front, at least `width` of them, in groups of three where `grouped`.
    void PutNumber(std::uint64_t number, int width = 1, bool grouped = false);
    /// Replaces the text.
    void Set(std::string_view text);

    [[nodiscard]] std::string_view View() const { return {mBuffer.data() + mStart, mBuffer.size() - mStart}; }

private:
    std::array<char, 48> mBuffer{};
    std::size_t mStart = mBuffer.size();
};

enum class TrailingZeros : std::uint8_t { Keep, Drop };

/// Writes `value` grouped by thousands with `decimals` decimals (0 to 3), '-' in front where the rounded
/// figure is below zero. Returns whether it shows as zero.
bool WriteGrouped(FigureText& out, double value, int decimals, TrailingZeros zeros);
/// A fraction as percent with one decimal: 0.125 is 12.5%.
bool WritePercent(FigureText& out, double fraction);
/// Minutes as h:mm, the hours grouped by thousands.
bool WriteDuration(FigureText& out, double minutes);

} // namespace qbrpt::report
