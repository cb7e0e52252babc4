// Papers and trays as printers list them, with numbers that stay and names that people know.
#pragma once

#include "adapters/printing/cups/installed_printer.h"

#include <string>
#include <string_view>
#include <vector>

namespace qbrpt {

/// A paper as the spooler lists it, in hundredths of a millimetre.
struct ListedMedia {
    std::string keyword;
    int width = 0;
    int height = 0;
};

/// The papers of a printer in the order given. The same size listed twice (with and without a margin) is one
/// paper. A size that has no usual number gets one that depends on nothing but the size, as far as the
/// printer's other papers leave it free.
[[nodiscard]] std::vector<PrinterPaper> PapersOf(const std::vector<ListedMedia>& media);

/// The papers of a printer that takes whatever it is given: all that have a usual number.
[[nodiscard]] std::vector<PrinterPaper> UsualPapers();

/// The trays of a printer, from the spooler's keywords, in the same way.
[[nodiscard]] std::vector<PrinterBin> BinsOf(const std::vector<std::string>& keywords);

/// Automatic choice of the tray.
constexpr std::int16_t AutomaticBin = 7;

/// A tray's name where the spooler gives only its keyword; at most as long as its field.
[[nodiscard]] std::string BinName(std::string_view keyword);

} // namespace qbrpt
