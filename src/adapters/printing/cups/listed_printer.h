// One of the spooler's printers, with what it offers.
#pragma once

#include "adapters/printing/cups/connection.h"
#include "adapters/printing/cups/installed_printer.h"

namespace qbrpt::cups {

/// What the list of printers tells already: all but its papers, its trays and how it begins.
[[nodiscard]] InstalledPrinter Listed(const cups_dest_t* printer);

/// Asks for what only the printer itself tells. False where it does not answer.
[[nodiscard]] bool Complete(InstalledPrinter& listed, http_t* connection, cups_dest_t* printer);

} // namespace qbrpt::cups
