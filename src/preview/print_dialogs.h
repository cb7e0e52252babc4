// The dialogs of printing.
#pragma once

#include "platform/printing.h"

#include <cstdint>
#include <optional>
#include <string>

namespace qbrpt {

/// Asks for printer, pages and copies; false, and nothing is written, when the user has cancelled or the
/// dialog has failed. `bPrinterChanged` is left alone.
[[nodiscard]] bool ShowPrintDlg(std::int32_t pCount, std::int32_t& pFrom, std::int32_t& pTo,
                                std::int32_t& pCopies, bool& pPrintAll, bool& bPrinterChanged);

/// Asks for printer, paper and orientation, and makes them those of the current printer; false when the user
/// has cancelled.
[[nodiscard]] bool GetPrinterSetup();

/// The printer of this name in the system's collection; nothing where there is none.
[[nodiscard]] std::optional<PrinterInfo> FindPrinter(const std::string& name);

} // namespace qbrpt
