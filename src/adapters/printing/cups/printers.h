// The printers that the spooler has.
#pragma once

#include "adapters/printing/cups/installed_printer.h"

#include <chrono>

namespace qbrpt::cups {

/// No longer than this is the spooler waited for when it is asked what printers there are.
constexpr std::chrono::milliseconds ListingPatience{2000};

/// Asks the spooler for its printers, the default one first. Never takes longer than the patience, never
/// fails: what could not be had is told as trouble.
[[nodiscard]] PrinterListing ListPrinters(std::chrono::milliseconds patience = ListingPatience);

} // namespace qbrpt::cups
