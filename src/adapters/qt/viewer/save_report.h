// A shown report as a file.
#pragma once

#include "adapters/output/report_output.h"

#include <QtCore/QString>

#include <filesystem>
#include <functional>
#include <string>

class QWidget;

namespace qbrpt::viewer {

enum class SaveFormat { Pdf, Xlsx, Csv, Html };

/// Writes the whole report; the file appears whole or not at all. `progress` may raise Failure Cancelled.
void SaveReport(ReportOutput& report, SaveFormat format, const std::filesystem::path& file,
                const PageProgress& progress);

/// "pdf" and so on.
[[nodiscard]] const char* EndingOf(SaveFormat format);

/// The report's title as the name of a file, with its ending.
[[nodiscard]] std::string FileNameOf(const std::string& title, SaveFormat format);

/// Asks where the report is to be saved; empty when the reader leaves the dialog.
[[nodiscard]] std::filesystem::path AskForFile(QWidget* window, const std::string& title, SaveFormat format,
                                               bool arabic);

/// Saves; shows how far it is and lets Esc stop it. What fails is told in a box. While the file is written,
/// events run, but the report must be left alone: `writing` tells when.
void SaveShowingProgress(QWidget* window, ReportOutput& report, SaveFormat format,
                         const std::filesystem::path& file, bool arabic,
                         const std::function<void(bool)>& writing);

} // namespace qbrpt::viewer
