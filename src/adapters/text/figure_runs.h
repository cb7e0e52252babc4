// Figures, dates, times, phone numbers and codes inside a text.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace qbrpt::text {

/// A stretch of characters that reads from left to right whatever stands around it.
struct FigureRun {
    std::size_t first = 0;
    std::size_t length = 0;
    /// Also shut off from its neighbours. A word of Latin letters is not, so that the words of
    /// "Windows 10 Pro" stay in their own order.
    bool isolated = false;
    friend bool operator==(const FigureRun&, const FigureRun&) = default;
};

/// All such stretches, in order, none overlapping. A sign belongs to the figure behind it, "%" to the one
/// before it, also across a blank; so does a short unit ("50 MB"). A date and its time are one stretch, and
/// the digit groups of a phone number are one.
[[nodiscard]] std::vector<FigureRun> FindFigureRuns(std::u32string_view text);

} // namespace qbrpt::text
