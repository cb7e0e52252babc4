// Takes print jobs to the printer that each of them names.
#pragma once

#include "adapters/output/report_output.h"
#include "adapters/printing/pdf_printer.h"

#include <filesystem>
#include <functional>

namespace qbrpt {

/// Told of each file that the PDF printer has made.
using FileMade = std::function<void(const std::filesystem::path& file)>;

class PrinterDelivery : public Delivery {
public:
    explicit PrinterDelivery(PdfPrinter pdfPrinter, FileMade made = {});

    /// Raises Device for a printer that is not known.
    void Print(ReportOutput& report, const PrintJob& job) override;

private:
    PdfPrinter mPdfPrinter;
    FileMade mMade;
};

} // namespace qbrpt
