// The spooler's answers about the printers of this machine.
#pragma once

#include "adapters/printing/installed_printers.h"
#include "platform/spooler.h"

#include <map>
#include <memory>
#include <string>

namespace qbrpt {

class InstalledSpooler : public Spooler {
public:
    explicit InstalledSpooler(std::shared_ptr<InstalledPrinters> printers) : mPrinters(std::move(printers)) {}

private:
    CapabilityLists DoPapers(const std::string& device, const std::string& port) override;
    CapabilityLists DoBins(const std::string& device, const std::string& port) override;
    PrinterHandle DoOpenPrinter(const std::string& name) override;
    std::optional<PrinterRecord> DoGetPrinter(PrinterHandle handle) override;
    void DoClosePrinter(PrinterHandle handle) override;

    std::shared_ptr<InstalledPrinters> mPrinters;
    std::map<PrinterHandle, std::string> mOpen;
    PrinterHandle mLast = 0;
};

} // namespace qbrpt
