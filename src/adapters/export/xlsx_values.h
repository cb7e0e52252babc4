// Values as a spreadsheet holds them.
#pragma once

#include "report/definition.h"
#include "report/value_text.h"

#include <cstdint>
#include <string>

namespace qbrpt {

struct SheetValue {
    enum class Kind : std::uint8_t { Empty, Number, Text };
    Kind kind = Kind::Empty;
    double number = 0;
    std::string text;
    std::string numberFormat;   ///< of Number
    std::size_t characters = 0; ///< as wide as it shows, about
    std::size_t lines = 1;      ///< in a column of the largest width
};

/// Longer lines than this are broken.
constexpr std::size_t WidestColumn = 60;

/// Makes the values of one sheet. Dates are day numbers, durations parts of a day, shares fractions, truths
/// words. What a spreadsheet cannot show as a number (a date before March 1900, a duration below zero, a
/// whole number of more than 15 digits) is the text of the report's pages.
class SheetValues {
public:
    [[nodiscard]] SheetValue Of(const CellView& cell, const report::Column& column);

private:
    [[nodiscard]] SheetValue Words(const CellView& cell, const report::Column& column);
    [[nodiscard]] SheetValue Figure(double number, const CellView& cell, const report::Column& column);
    [[nodiscard]] SheetValue Day(double number, const CellView& cell, const report::Column& column,
                                 report::ValueFormat format);

    report::ValueWriter mWriter;
};

/// `text` as a cell may hold it: no control characters, at most 32,767 letters as spreadsheets count them.
[[nodiscard]] std::string SheetText(std::string_view text);

} // namespace qbrpt
