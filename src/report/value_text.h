// A value as it stands on the page.
#pragma once

#include "base/rows.h"
#include "report/decimal_text.h"
#include "report/definition.h"

#include <string>
#include <string_view>

namespace qbrpt::report {

struct ValueText {
    std::string_view text; ///< until the writer's next call
    bool figures = false;  ///< ASCII from a number or a date: needs no shaping
    bool zero = false;     ///< a figure that shows as zero
};

/// Writes values out. A value of another kind than its format is meant for is written in its own way; null,
/// what is no number and a date outside the calendar are empty. Never throws but for want of memory.
class ValueWriter {
public:
    [[nodiscard]] ValueText Write(const CellView& value, ValueFormat format, std::string_view picture);

private:
    [[nodiscard]] ValueText Number(double number, ValueFormat format);
    [[nodiscard]] ValueText DateOf(double dayNumber, ValueFormat format);
    [[nodiscard]] ValueText Plain(const CellView& value);
    [[nodiscard]] ValueText ByPicture(const CellView& value, std::string_view picture);
    [[nodiscard]] ValueText Figures(bool zero) const { return {mFigures.View(), true, zero}; }

    FigureText mFigures;
    std::string mText;
};

/// Whether `dayNumber` lies in the years 100 to 9999.
[[nodiscard]] bool IsCalendarDay(double dayNumber);

/// The words for a number of things.
[[nodiscard]] std::string CountedText(std::size_t count, const CountedNoun& noun);

} // namespace qbrpt::report
