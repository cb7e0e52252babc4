#include "adapters/qt/viewer/save_report.h"

#include "adapters/files/atomic_file.h"
#include "adapters/qt/viewer/viewer_words.h"
#include "base/failure.h"
#include "platform/desktop.h"
#include "platform/platform.h"

#include <QtCore/QDir>
#include <QtCore/QStandardPaths>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QProgressDialog>

#include <algorithm>
#include <memory>

namespace qbrpt::viewer {

namespace {

constexpr int ShownAfterMilliseconds = 400;

/// Folder of the last file saved, for the next one. Never left to Qt, which would open where any other
/// program was last, be it a folder of devices.
QString& LastFolder() {
    static QString folder = [] {
        const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
        return QDir(documents).exists() ? documents : QDir::homePath();
    }();
    return folder;
}

} // namespace

const char* EndingOf(SaveFormat format) {
    switch (format) {
    case SaveFormat::Pdf:
        return "pdf";
    case SaveFormat::Xlsx:
        return "xlsx";
    case SaveFormat::Csv:
        return "csv";
    default:
        return "html";
    }
}

std::string FileNameOf(const std::string& title, SaveFormat format) {
    constexpr std::string_view refused = "/\\:*?\"<>|";
    std::string name = title.empty() ? "report" : title;
    std::replace_if(
        name.begin(), name.end(),
        [refused](char c) { return refused.find(c) != std::string_view::npos || (c >= 0 && c < ' '); }, '-');
    return name + "." + EndingOf(format);
}

void SaveReport(ReportOutput& report, SaveFormat format, const std::filesystem::path& file,
                const PageProgress& progress) {
    AtomicFile sink(file);
    switch (format) {
    case SaveFormat::Pdf:
        report.WritePdf(sink, {}, progress);
        break;
    case SaveFormat::Xlsx:
        report.WriteTable(TableKind::Xlsx, sink, progress);
        break;
    case SaveFormat::Csv:
        report.WriteTable(TableKind::Csv, sink, progress);
        break;
    case SaveFormat::Html:
        report.WriteTable(TableKind::Html, sink, progress);
        break;
    }
    sink.Commit();
}

std::filesystem::path AskForFile(QWidget* window, const std::string& title, SaveFormat format, bool arabic) {
    const ViewerWords& words = WordsOf(arabic);
    QFileDialog dialog(window, QString::fromUtf8(words.saveAs), LastFolder());
    dialog.setLayoutDirection(window->layoutDirection());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(EndingOf(format));
    const QString ending = EndingOf(format);
    dialog.setNameFilter(ending.toUpper() + " (*." + ending + ")");
    dialog.setLabelText(QFileDialog::FileName, QString::fromUtf8(words.fileName));
    dialog.setLabelText(QFileDialog::FileType, QString::fromUtf8(words.fileKind));
    dialog.setLabelText(QFileDialog::LookIn, QString::fromUtf8(words.folder));
    dialog.setLabelText(QFileDialog::Accept, QString::fromUtf8(words.save));
    dialog.setLabelText(QFileDialog::Reject, QString::fromUtf8(words.cancel));
    dialog.selectFile(QString::fromStdString(FileNameOf(title, format)));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    LastFolder() = dialog.directory().absolutePath();
    return dialog.selectedFiles().front().toStdU16String();
}

void SaveShowingProgress(QWidget* window, ReportOutput& report, SaveFormat format,
                         const std::filesystem::path& file, bool arabic,
                         const std::function<void(bool)>& writing) {
    const ViewerWords& words = WordsOf(arabic);
    try {
        QProgressDialog dialog(QString::fromUtf8(words.saving), QString::fromUtf8(words.cancel), 0, 1,
                               window);
        dialog.setLayoutDirection(window->layoutDirection());
        dialog.setWindowTitle(QString::fromUtf8(words.saveAs));
        dialog.setWindowModality(Qt::ApplicationModal);
        dialog.setMinimumDuration(ShownAfterMilliseconds);
        writing(true);
        const std::shared_ptr<void> writingEnds(nullptr, [&writing](void*) { writing(false); });
        SaveReport(report, format, file, [&dialog](std::size_t done, std::size_t all) {
            dialog.setMaximum(static_cast<int>(std::max<std::size_t>(all, 1)));
            dialog.setValue(static_cast<int>(done));
            if (dialog.wasCanceled()) throw Failure(FailureNumber::Cancelled, "Saving was stopped.");
        });
    } catch (const Failure& failure) {
        if (failure.Number() == FailureNumber::Cancelled) return;
        const int style = BoxStyle::Critical | (arabic ? BoxStyle::RightToLeft : 0);
        Platform::Current().messages->MsgBox(failure.Description(), style);
    }
}

} // namespace qbrpt::viewer
