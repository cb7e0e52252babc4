// What a print job asks of its printer.
#pragma once

#include "adapters/output/report_output.h"
#include "adapters/printing/cups/job.h"

#include <string>

namespace qbrpt {

/// The name under which a job is queued: application and title, cut to what a spooler takes.
[[nodiscard]] std::string JobName(const PrintJob& job);

/// The options of a job. Raises Device for what the printer does not have: a spooler would print on
/// something else without a word.
[[nodiscard]] cups::JobOptions OptionsOf(const InstalledPrinter& printer, const PrintJob& job);

} // namespace qbrpt
