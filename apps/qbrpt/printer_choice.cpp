#include "printer_choice.h"

#include "adapters/printing/printer_list.h"
#include "arguments.h"
#include "base/failure.h"
#include "platform/platform.h"

#include <string>
#include <vector>

namespace qbrpt::cli {

namespace {

/// What bears no such name, with the names that there are.
template <class Offers>
[[noreturn]] void Refuse(const std::string& what, const Offers& offers) {
    std::string names;
    for (const auto& offer : offers)
        names += (names.empty() ? "\"" : ", \"") + offer.name + "\"";
    throw WrongUse(what + "; there is " + (names.empty() ? "none at all" : names) + ".");
}

std::string On(const InstalledPrinter& printer) {
    return "The printer \"" + printer.info.deviceName + "\" has no ";
}

void ChooseDevice(const std::string& name, InstalledPrinters& printers) {
    if (printers.Find(name)) return Platform::Current().printers->SetCurrent(name);
    struct Named {
        std::string name;
    };
    std::vector<Named> names;
    for (const InstalledPrinter& printer : *printers.All())
        names.push_back({printer.info.deviceName});
    std::string what = NoSuchPrinter(name, printers);
    what.pop_back();
    Refuse(what, names);
}

} // namespace

void ChoosePrinter(const PrintChoice& choice, InstalledPrinters& printers) {
    if (!choice.printer.empty()) ChooseDevice(choice.printer, printers);
    if (choice.paper.empty() && choice.bin.empty() && choice.sides == Sides::AsThePrinterHas) return;
    const Ref<Printers> current = Platform::Current().printers;
    const std::string device = current->Current().deviceName;
    const std::optional<InstalledPrinter> printer = printers.Find(device);
    if (!printer) throw Failure(FailureNumber::Device, NoSuchPrinter(device, printers));
    if (!choice.paper.empty()) {
        const PrinterPaper* paper = printer->PaperNamed(choice.paper);
        if (paper == nullptr) Refuse(On(*printer) + "paper \"" + choice.paper + "\"", printer->papers);
        current->SetPaperSize(paper->code);
    }
    if (!choice.bin.empty()) {
        const PrinterBin* bin = printer->BinNamed(choice.bin);
        if (bin == nullptr) Refuse(On(*printer) + "tray \"" + choice.bin + "\"", printer->bins);
        current->SetPaperBin(bin->code);
    }
    if (choice.sides != Sides::AsThePrinterHas && !printer->twoSided)
        throw WrongUse("The printer \"" + device + "\" cannot print on both sides.");
}

void ChosenPages::Print(ReportOutput& report, const PrintJob& job) {
    PrintJob chosen = job;
    chosen.copies = mChoice.copies;
    if (mChoice.pages.first) {
        const std::int32_t pages = report.PageCount();
        const std::int32_t last = mChoice.pages.last.value_or(*mChoice.pages.first);
        if (last > pages)
            throw Failure(FailureNumber::InvalidArgument, "--pages: the report has no page " +
                                                              std::to_string(last) + "; it has " +
                                                              std::to_string(pages) + ".");
        chosen.pages = mChoice.pages;
    }
    mDelivery->Print(report, chosen);
}

} // namespace qbrpt::cli
