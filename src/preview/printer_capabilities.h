// What a printer offers, asked of the spooler.
#pragma once

#include "platform/spooler.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt {

/// A row of a printer's papers or bins.
struct CapabilityRow {
    std::string name;
    std::int16_t code = 0;
    friend bool operator==(const CapabilityRow&, const CapabilityRow&) = default;
};
using CapabilityRows = std::vector<CapabilityRow>;

/// The papers of a printer, in the spooler's order. Returns the number of rows; 0, and `vdat` stays as it
/// came, where the printer tells nothing. Row 512 is an overflow.
std::int32_t GetPapersData(const std::string& DevName, const std::string& devPort, CapabilityRows& vdat);

/// The bins in the same way. Row 1366 is an overflow.
std::int32_t GetBinsData(const std::string& DevName, const std::string& devPort, CapabilityRows& vdat);

/// `s` up to its first NUL; all of it where it holds none.
[[nodiscard]] std::string sTerminator(std::string_view s);

/// A printer's driver, comment and status word. They stay as they came where there is no such printer.
void GetPrinterInfo(const std::string& name, std::string& driver, std::string& comment, std::int32_t& status);

/// The status word of an open printer.
[[nodiscard]] std::int32_t PrinterStatuse(PrinterHandle hPrinter);

} // namespace qbrpt
