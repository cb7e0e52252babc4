// What reports need to know of the printers that they are bound to.
#pragma once

#include "base/paper.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qbrpt {

/// Which sides of a sheet are printed on.
enum class Sides : std::uint8_t {
    AsThePrinterHas, ///< what the printer does by itself
    LongEdge,        ///< both, turned over the long edge
    ShortEdge        ///< both, turned over the short edge
};

class PrinterFacts {
public:
    virtual ~PrinterFacts() = default;
    /// The sheet, upright, that `device` has under a paper number; A4 for a number that nobody knows.
    [[nodiscard]] virtual PaperExtent SheetOf(const std::string& device, std::int16_t paperSize) = 0;
    /// The tray that is chosen on `device`, nothing where none is.
    [[nodiscard]] virtual std::optional<std::int16_t> BinOf(const std::string& device) = 0;
    [[nodiscard]] virtual Sides SidesOf(const std::string& device) = 0;
};

} // namespace qbrpt
