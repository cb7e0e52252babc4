#include "adapters/printing/file_viewer.h"

#include <utility>

namespace qbrpt {

FileViewer::FileViewer(PdfPrinter pdfPrinter, FileMade made)
    : mPdfPrinter(std::move(pdfPrinter)), mMade(std::move(made)) {}

CRViewer::Shown FileViewer::DoViewReport(const Ref<CrystalRuntime::Report>& report, bool) {
    ReportOutput& output = OutputOf(report);
    PrintJob job;
    job.title = output.Title();
    const std::filesystem::path file = mPdfPrinter.Print(output, job);
    if (mMade) mMade(file);
    return {output.Device(), output.PageCount()};
}

} // namespace qbrpt
