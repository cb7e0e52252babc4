// Paper sizes by their usual numbers.
#pragma once

#include <cstdint>

namespace qbrpt {

constexpr std::int16_t PaperA4 = 9;

/// A sheet in twips (1440 to the inch), upright.
struct PaperExtent {
    std::int32_t width = 11906;
    std::int32_t height = 16838;
};

/// The sheet of a paper number; A4 for a number that is not known.
[[nodiscard]] PaperExtent ExtentOfPaper(std::int16_t paperSize);

} // namespace qbrpt
