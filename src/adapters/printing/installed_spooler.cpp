#include "adapters/printing/installed_spooler.h"

#include <algorithm>
#include <utility>

namespace qbrpt {

namespace {

template <class Offer>
CapabilityLists ListsOf(const std::vector<Offer>& offers) {
    CapabilityLists lists;
    for (const Offer& offer : offers) {
        lists.names.push_back(offer.name);
        lists.codes.push_back(offer.code);
    }
    return lists;
}

/// A field of the description must hold no comma: commas part the fields.
std::string WithoutCommas(std::string text) {
    std::replace(text.begin(), text.end(), ',', ' ');
    return text;
}

} // namespace

CapabilityLists InstalledSpooler::DoPapers(const std::string& device, const std::string&) {
    const auto printer = mPrinters->Find(device);
    return printer ? ListsOf(printer->papers) : CapabilityLists{};
}

CapabilityLists InstalledSpooler::DoBins(const std::string& device, const std::string&) {
    const auto printer = mPrinters->Find(device);
    return printer ? ListsOf(printer->bins) : CapabilityLists{};
}

PrinterHandle InstalledSpooler::DoOpenPrinter(const std::string& name) {
    if (!mPrinters->Find(name)) return 0;
    mOpen[++mLast] = name;
    return mLast;
}

std::optional<PrinterRecord> InstalledSpooler::DoGetPrinter(PrinterHandle handle) {
    const auto open = mOpen.find(handle);
    if (open == mOpen.end()) return std::nullopt;
    const auto printer = mPrinters->Find(open->second);
    if (!printer) return std::nullopt;
    PrinterRecord record;
    record.name = printer->info.deviceName;
    record.port = printer->info.port;
    record.driver = printer->info.driverName;
    record.comment = printer->comment;
    record.location = printer->place;
    record.status = printer->status;
    record.description = WithoutCommas(record.name) + "," + WithoutCommas(record.driver) + "," +
                         WithoutCommas(record.location);
    return record;
}

void InstalledSpooler::DoClosePrinter(PrinterHandle handle) {
    mOpen.erase(handle);
}

} // namespace qbrpt
