#include "adapters/printing/printer_delivery.h"

#include "base/failure.h"

#include <utility>

namespace qbrpt {

PrinterDelivery::PrinterDelivery(PdfPrinter pdfPrinter, FileMade made)
    : mPdfPrinter(std::move(pdfPrinter)), mMade(std::move(made)) {}

void PrinterDelivery::Print(ReportOutput& report, const PrintJob& job) {
    if (job.device != PdfPrinterName)
        throw Failure(FailureNumber::Device, job.device.empty()
                                                 ? std::string{"No printer is chosen for the report."}
                                                 : "There is no printer \"" + job.device + "\".");
    const std::filesystem::path file = mPdfPrinter.Print(report, job);
    if (mMade) mMade(file);
}

} // namespace qbrpt
