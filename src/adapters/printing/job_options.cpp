#include "adapters/printing/job_options.h"

#include "adapters/printing/cups/offers.h"
#include "base/failure.h"
#include "base/utf8.h"

#include <string_view>

namespace qbrpt {

namespace {

[[noreturn]] void Refuse(const InstalledPrinter& printer, const std::string& words) {
    throw Failure(FailureNumber::Device, "The printer \"" + printer.info.deviceName + "\" " + words);
}

PrinterPaper RequiredPaper(const InstalledPrinter& printer, std::int16_t code) {
    const PrinterPaper* paper = printer.PaperOf(code);
    if (paper != nullptr) return *paper;
    const StandardPaper* known = StandardPaperNumbered(code);
    // A printer that tells nothing of its papers takes what it is given.
    if (printer.papers.empty() && known != nullptr) return {code, {}, {}, known->width, known->height};
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

constexpr std::string_view UsualApplication = "qbrpt";
constexpr std::size_t LongestName = 255; // bytes; longer names are refused

} // namespace

std::string JobName(const PrintJob& job) {
    const std::string application = job.application.empty() ? std::string(UsualApplication) : job.application;
    return std::string(WholeCharacters(
        ValidUtf8(job.title.empty() ? application : application + " - " + job.title), LongestName));
}

cups::JobOptions OptionsOf(const InstalledPrinter& printer, const PrintJob& job) {
    const PrinterPaper paper = RequiredPaper(printer, job.paperSize);
    // A tray arrives only inside the collection: by itself some queues drop it.
    std::string media = "{media-size={x-dimension=" + std::to_string(paper.width) +
                        " y-dimension=" + std::to_string(paper.height) + "}";
    if (const std::string tray = TrayOf(printer, job.bin); !tray.empty()) media += " media-source=" + tray;
    cups::JobOptions options = {{"media-col", media + "}"},
                                {"copies", std::to_string(job.copies)},
                                {"multiple-document-handling", "separate-documents-collated-copies"},
                                {"print-scaling", "none"},
                                {"number-up", "1"}};
    // A queue that turns what it prints would turn pages that lie on their sheets as they should: 3 is
    // upright.
    if (printer.info.orientation == OrientationLandscape) options.emplace_back("orientation-requested", "3");
    if (job.sides != Sides::AsThePrinterHas) {
        if (!printer.twoSided) Refuse(printer, "cannot print on both sides.");
        options.emplace_back("sides",
                             job.sides == Sides::LongEdge ? "two-sided-long-edge" : "two-sided-short-edge");
    }
    return options;
}

} // namespace qbrpt
