// Takes print jobs to the printer that each of them names.
#pragma once

#include "adapters/output/report_output.h"
#include "adapters/printing/installed_printers.h"
#include "adapters/printing/pdf_printer.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>

namespace qbrpt {

/// Told of each file that the PDF printer has made.
using FileMade = std::function<void(const std::filesystem::path& file)>;

/// Spoolers refuse more.
constexpr std::int32_t MostCopies = 9999;

class PrinterDelivery : public Delivery {
public:
    /// `queued` is told of each job that the spooler has taken.
    PrinterDelivery(PdfPrinter pdfPrinter, std::shared_ptr<InstalledPrinters> printers, FileMade made = {},
                    std::function<void(const PrintJob& job)> queued = {});

    /// Raises Device for a printer that is not known, and for what the printer does not have or refuses.
    void Print(ReportOutput& report, const PrintJob& job) override;

private:
    [[nodiscard]] InstalledPrinter PrinterOf(const PrintJob& job);
    void Spool(ReportOutput& report, const PrintJob& job);

    PdfPrinter mPdfPrinter;
    std::shared_ptr<InstalledPrinters> mPrinters;
    FileMade mMade;
    std::function<void(const PrintJob& job)> mQueued;
};

} // namespace qbrpt
