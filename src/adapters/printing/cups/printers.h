// The printers that the spooler has.
#pragma once

#include "adapters/printing/cups/installed_printer.h"

#include <chrono>
#include <memory>

namespace qbrpt::cups {

/// Asks the spooler for its printers, the default one first. Never fails: what could not be had is told as
/// trouble. An asking that takes longer than it is waited for goes on by itself, and what it has brought is
/// there for the next who wants to know.
class PrinterAsker {
public:
    [[nodiscard]] PrinterListing operator()(std::chrono::milliseconds patience = ListingPatience);

private:
    class Asking;
    std::shared_ptr<Asking> mAsking; ///< under way, or ended and not taken up yet
};

} // namespace qbrpt::cups
