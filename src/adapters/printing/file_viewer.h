// The viewer of a machine without a window: a PDF that the user can open.
#pragma once

#include "adapters/printing/printer_delivery.h"
#include "platform/CRViewer.h"

namespace qbrpt {

/// Puts each report that is to be shown into the folder of the PDF printer, whatever printer it is bound
/// to, and tells where it lies.
class FileViewer : public CRViewer {
public:
    FileViewer(PdfPrinter pdfPrinter, FileMade made);

private:
    Shown DoViewReport(const Ref<CrystalRuntime::Report>& report, bool arabic) override;

    PdfPrinter mPdfPrinter;
    FileMade mMade;
};

} // namespace qbrpt
