#include "adapters/printing/pdf_printer.h"

#include "adapters/files/atomic_file.h"
#include "base/failure.h"
#include "base/utf8.h"

#include <algorithm>
#include <system_error>

namespace qbrpt {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t LongestStem = 180; // bytes; file systems take 255, and a number may follow
constexpr int MostNumbers = 100000;

bool FitsInFileName(char32_t character) {
    constexpr std::u32string_view refused = U"/\\:*?\"<>|";
    return character >= 0x20 && character != 0x7F && refused.find(character) == std::u32string_view::npos;
}

std::string_view WithoutEdges(std::string_view text) {
    constexpr std::string_view edges = " .";
    const std::size_t first = text.find_first_not_of(edges);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(edges) - first + 1);
}

} // namespace

std::string FileStemOf(const std::string& title) {
    std::string stem;
    for (std::size_t position = 0; position < title.size();) {
        const char32_t character = NextCharacter(title, position);
        std::string piece;
        AppendCharacter(piece, FitsInFileName(character) ? character : U'-');
        if (stem.size() + piece.size() > LongestStem) break;
        stem += piece;
    }
    const std::string_view trimmed = WithoutEdges(stem);
    return trimmed.empty() ? "qbrpt" : std::string{trimmed};
}

PrinterInfo PdfPrinter::Info() const {
    PrinterInfo info;
    info.deviceName = PdfPrinterName;
    info.driverName = "PDF";
    info.port = mFolder.string();
    return info;
}

fs::path PdfPrinter::Print(ReportOutput& report, const PrintJob& job) const {
    std::error_code failed;
    fs::create_directories(mFolder, failed);
    if (failed)
        throw Failure(FailureNumber::FileAccess, "The folder of the PDF printer, \"" + mFolder.string() +
                                                     "\", cannot be made: " + failed.message() +
                                                     ". QBRPT_PDF_FOLDER names another one.");
    const std::string stem =
        FileStemOf(job.application.empty() ? job.title : job.application + " - " + job.title);
    AtomicFile file(mFolder / (stem + ".pdf"));
    report.WritePdf(file, job.pages, mProgress);
    for (int number = 1; number <= MostNumbers; ++number) {
        const std::string suffix = number == 1 ? "" : " (" + std::to_string(number) + ")";
        if (file.CommitAs(mFolder / (stem + suffix + ".pdf"))) return file.Target();
    }
    throw Failure(FailureNumber::Output, "The folder of the PDF printer, \"" + mFolder.string() +
                                             "\", is full of files of that name.");
}

} // namespace qbrpt
