// The printer collection and the current printer of the process.
#pragma once

#include "adapters/output/printer_facts.h"
#include "adapters/printing/installed_printers.h"
#include "platform/printing.h"

#include <memory>
#include <optional>
#include <utility>

namespace qbrpt {

/// The current printer begins as the default one; while the spooler is silent nobody knows which that is, so
/// that what stands in for it is kept only where somebody has changed something of it. Counting looks for
/// printers that have come or gone.
class PrinterList : public Printers, public PrinterFacts {
public:
    explicit PrinterList(std::shared_ptr<InstalledPrinters> printers) : mPrinters(std::move(printers)) {}

    [[nodiscard]] PaperExtent SheetOf(const std::string& device, std::int16_t paperSize) override;
    [[nodiscard]] std::optional<std::int16_t> BinOf(const std::string& device) override;
    [[nodiscard]] Sides SidesOf(const std::string& device) override;
    /// Which sides the jobs of this process are printed on.
    void SetSides(Sides sides) { mSides = sides; }

private:
    std::int32_t DoCount() override;
    PrinterInfo DoItem(std::int32_t index) override;
    PrinterInfo DoCurrent() override;
    void DoSetOrientation(std::int16_t orientation) override;
    void DoSetCurrent(const std::string& deviceName) override;
    void DoSetPaperSize(std::int16_t paperSize) override;
    void DoSetPaperBin(std::int16_t paperBin) override;
    /// The current printer.
    [[nodiscard]] const InstalledPrinter& Required();
    /// The same, to change something of it.
    [[nodiscard]] InstalledPrinter& Kept();

    std::shared_ptr<InstalledPrinters> mPrinters;
    std::optional<InstalledPrinter> mCurrent;
    bool mStandsIn = false; ///< it may not be the default one
    Sides mSides = Sides::AsThePrinterHas;
};

/// A printer that does not exist, in words; with why the spooler's are missing where they are.
[[nodiscard]] std::string NoSuchPrinter(const std::string& device, const InstalledPrinters& printers);

} // namespace qbrpt
