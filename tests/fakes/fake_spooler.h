// A spooler of a test: printers as the test lays them out.
#pragma once

#include "platform/spooler.h"

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace qbrpt::fakes {

struct SpooledPrinter {
    CapabilityLists papers;
    CapabilityLists bins;
    PrinterRecord record;
};

class FakeSpooler final : public Spooler {
public:
    std::map<std::string, SpooledPrinter> printers; ///< by device name
    std::map<PrinterHandle, std::string> open;      ///< the names of those that are open
    int opened = 0;

private:
    [[nodiscard]] SpooledPrinter Known(const std::string& device) const {
        const auto found = printers.find(device);
        return found == printers.end() ? SpooledPrinter{} : found->second;
    }
    CapabilityLists DoPapers(const std::string& device, const std::string&) override {
        return Known(device).papers;
    }
    CapabilityLists DoBins(const std::string& device, const std::string&) override {
        return Known(device).bins;
    }
    PrinterHandle DoOpenPrinter(const std::string& name) override {
        if (!printers.contains(name)) return 0;
        const auto handle = static_cast<PrinterHandle>(++opened);
        open[handle] = name;
        return handle;
    }
    std::optional<PrinterRecord> DoGetPrinter(PrinterHandle handle) override {
        const auto found = open.find(handle);
        if (found == open.end()) return std::nullopt;
        return Known(found->second).record;
    }
    void DoClosePrinter(PrinterHandle handle) override { open.erase(handle); }
};

} // namespace qbrpt::fakes
