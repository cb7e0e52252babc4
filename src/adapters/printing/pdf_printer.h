// The printer that every machine has: it prints into PDF files.
#pragma once

#include "adapters/output/report_output.h"
#include "platform/printing.h"

#include <filesystem>
#include <string>

namespace qbrpt {

constexpr std::string_view PdfPrinterName = "qbrpt PDF";

/// Each job becomes one file in the printer's folder, named after its title; a name that is taken gets a
/// number behind it. Copies are not repeated in the file.
class PdfPrinter {
public:
    /// `progress` is told of the pages of each job, and may stop it.
    explicit PdfPrinter(std::filesystem::path folder, PageProgress progress = {})
        : mFolder(std::move(folder)), mProgress(std::move(progress)) {}

    /// A4 upright; the folder stands as its port.
    [[nodiscard]] PrinterInfo Info() const;

    [[nodiscard]] const PageProgress& Progress() const { return mProgress; }

    /// Prints, and returns the file. Raises FileAccess or Output; nothing half-written stays behind.
    std::filesystem::path Print(ReportOutput& report, const PrintJob& job) const;

private:
    std::filesystem::path mFolder;
    PageProgress mProgress;
};

/// A file name made from a title: characters that a file name cannot have become "-", a long title is cut
/// between characters, an empty one becomes "qbrpt".
[[nodiscard]] std::string FileStemOf(const std::string& title);

} // namespace qbrpt
