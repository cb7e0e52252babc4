// Paper sizes by their usual numbers.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace qbrpt {

constexpr std::int16_t PaperA4 = 9;
/// Numbers from here on are sizes of a printer's own.
constexpr std::int16_t FirstOwnPaper = 256;

/// A sheet in twips (1440 to the inch), upright.
struct PaperExtent {
    std::int32_t width = 11906;
    std::int32_t height = 16838;
    friend bool operator==(const PaperExtent&, const PaperExtent&) = default;
};

/// A paper that has a number; its size in hundredths of a millimetre, upright.
struct StandardPaper {
    std::int16_t number;
    int width;
    int height;
    std::string_view name;
};

/// All of them, the common ones first; no two are of one size.
[[nodiscard]] std::span<const StandardPaper> StandardPapers();

/// The paper of this number, or null.
[[nodiscard]] const StandardPaper* StandardPaperNumbered(std::int16_t number);

/// The paper of about this size (in hundredths of a millimetre: printers round each in their own way), or
/// null.
[[nodiscard]] const StandardPaper* StandardPaperOf(int width, int height);

/// The sheet of a paper number; A4 for a number that is not known.
[[nodiscard]] PaperExtent ExtentOfPaper(std::int16_t paperSize);

/// The same of a size in hundredths of a millimetre.
[[nodiscard]] PaperExtent ExtentOfSize(int width, int height);

} // namespace qbrpt
