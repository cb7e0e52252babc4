#include "adapters/printing/printer_delivery.h"

#include "adapters/printing/cups/job.h"
#include "adapters/printing/job_options.h"
#include "adapters/printing/printer_list.h"
#include "base/failure.h"

#include <utility>

namespace qbrpt {

PrinterDelivery::PrinterDelivery(PdfPrinter pdfPrinter, std::shared_ptr<InstalledPrinters> printers,
                                 FileMade made, std::function<void(const PrintJob& job)> queued)
    : mPdfPrinter(std::move(pdfPrinter)), mPrinters(std::move(printers)), mMade(std::move(made)),
      mQueued(std::move(queued)) {}

void PrinterDelivery::Print(ReportOutput& report, const PrintJob& job) {
    if (job.device.empty()) throw Failure(FailureNumber::Device, "No printer is chosen for the report.");
    if (job.device != PdfPrinterName) return Spool(report, job);
    const std::filesystem::path file = mPdfPrinter.Print(report, job);
    if (mMade) mMade(file);
}

InstalledPrinter PrinterDelivery::PrinterOf(const PrintJob& job) {
    std::optional<InstalledPrinter> printer = mPrinters->Find(job.device);
    if (!printer) {
        mPrinters->Refresh(); // it may have come since
        printer = mPrinters->Find(job.device);
    }
    if (!printer) throw Failure(FailureNumber::Device, NoSuchPrinter(job.device, *mPrinters));
    return *printer;
}

void PrinterDelivery::Spool(ReportOutput& report, const PrintJob& job) {
    if (job.copies < 1 || job.copies > MostCopies)
        throw Failure(FailureNumber::InvalidArgument, "A report is printed 1 to " +
                                                          std::to_string(MostCopies) + " times, not " +
                                                          std::to_string(job.copies) + " times.");
    const InstalledPrinter printer = PrinterOf(job);
    cups::Job spooled({printer, JobName(job), OptionsOf(printer, job)});
    report.WritePdf(spooled, job.pages, mPdfPrinter.Progress());
    spooled.Finish();
    if (mQueued) mQueued(job);
}

} // namespace qbrpt
