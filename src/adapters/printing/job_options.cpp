#include "adapters/printing/job_options.h"

#include "adapters/printing/cups/offers.h"
#include "base/failure.h"

namespace qbrpt {

namespace {

[[noreturn]] void Refuse(const InstalledPrinter& printer, const std::string& words) {
    throw Failure(FailureNumber::Device, "The printer \"" + printer.info.deviceName + "\" " + words);
}

const PrinterPaper& RequiredPaper(const InstalledPrinter& printer, std::int16_t code) {
    const PrinterPaper* paper = printer.PaperOf(code);
    if (paper != nullptr) return *paper;
    const StandardPaper* known = StandardPaperNumbered(code);
    Refuse(printer, "has no paper " +
                        (known == nullptr ? std::to_string(code) : "\"" + std::string(known->name) + "\"") +
                        ".");
}

/// The tray's keyword; empty where the printer chooses by itself.
std::string TrayOf(const InstalledPrinter& printer, const std::optional<std::int16_t>& code) {
    if (!code) return {};
    if (const PrinterBin* bin = printer.BinOf(*code)) return bin->keyword;
    if (printer.bins.empty() || *code == AutomaticBin) return {};
    Refuse(printer, "has no paper bin " + std::to_string(*code) + ".");
}

} // namespace

cups::JobOptions OptionsOf(const InstalledPrinter& printer, const PrintJob& job) {
    const PrinterPaper& paper = RequiredPaper(printer, job.paperSize);
    // A tray arrives only inside the collection: by itself some queues drop it.
    std::string media = "{media-size={x-dimension=" + std::to_string(paper.width) +
                        " y-dimension=" + std::to_string(paper.height) + "}";
    if (const std::string tray = TrayOf(printer, job.bin); !tray.empty()) media += " media-source=" + tray;
    cups::JobOptions options = {{"media-col", media + "}"},
                                {"copies", std::to_string(job.copies)},
                                {"multiple-document-handling", "separate-documents-collated-copies"},
                                {"print-scaling", "none"},
                                {"number-up", "1"}};
    if (job.sides != Sides::AsThePrinterHas) {
        if (!printer.twoSided) Refuse(printer, "cannot print on both sides.");
        options.emplace_back("sides",
                             job.sides == Sides::LongEdge ? "two-sided-long-edge" : "two-sided-short-edge");
    }
    return options;
}

} // namespace qbrpt
