// The dialogs of printing.
#pragma once

#include <cstdint>

namespace qbrpt {

/// Asks for printer, pages and copies; false when the user has cancelled. Not there yet: answers as a
/// cancelled one.
[[nodiscard]] bool ShowPrintDlg(std::int32_t pageCount, std::int32_t& pFrom, std::int32_t& pTo,
                                std::int32_t& pCopies, bool& pPrintAll, bool& bPrinterChanged);

/// Asks for printer, paper and orientation; false when the user has cancelled. Not there yet: answers as a
/// cancelled one.
[[nodiscard]] bool GetPrinterSetup();

} // namespace qbrpt
