// The printer collection and the current printer of the process.
#pragma once

#include "platform/printing.h"

#include <optional>
#include <vector>

namespace qbrpt {

/// Printers that were listed once, the default one first. The current printer begins as the first.
class PrinterList : public Printers {
public:
    explicit PrinterList(std::vector<PrinterInfo> printers);

private:
    std::int32_t DoCount() override;
    PrinterInfo DoItem(std::int32_t index) override;
    PrinterInfo DoCurrent() override;
    void DoSetOrientation(std::int16_t orientation) override;
    void DoSetCurrent(const std::string& deviceName) override;
    void DoSetPaperSize(std::int16_t paperSize) override;
    void DoSetPaperBin(std::int16_t paperBin) override;
    PrinterInfo& Required();

    std::vector<PrinterInfo> mPrinters;
    std::optional<PrinterInfo> mCurrent;
};

} // namespace qbrpt
