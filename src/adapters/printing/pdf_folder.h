// Where the PDF printer puts its files.
#pragma once

#include <filesystem>

namespace qbrpt {

/// QBRPT_PDF_FOLDER; else the folder "qbrpt" in the user's documents folder, where he has one; else in his
/// home folder. Always absolute. The folder need not exist yet.
[[nodiscard]] std::filesystem::path PdfFolder();

/// False when QBRPT_PDF_PRINTER is "off".
[[nodiscard]] bool PdfPrinterIsOn();

} // namespace qbrpt
