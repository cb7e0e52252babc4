#include "adapters/qt/viewer/save_report.h"
#include "tools/temp_folder.h"
#include "viewer_fixture.h"

#include <QtCore/QTimer>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QPushButton>
#include <gmock/gmock.h>

namespace qbrpt::viewer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using qbrpt::test::ContentOf;
using qbrpt::test::TempFolder;

/// Answers the file dialog, as soon as it is up, with a file.
void ChooseSoon(const std::filesystem::path& file) {
    QTimer::singleShot(0, [file] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->layoutDirection(), Qt::RightToLeft);
        dialog->selectFile(QString::fromStdString(file.string()));
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
    });
}

class SavingByMenu : public Viewers {
protected:
    TempFolder folder;
};

TEST_F(SavingByMenu, AsksForAPlaceAndWritesTheFile) {
    View(Filled("PayOutRpt", samples::Payments(200)));
    ChooseSoon(folder / "mine.csv");
    viewer->Run(ViewerCommand::SaveCsv);
    EXPECT_THAT(folder.Names(), ElementsAre("mine.csv"));
    ChooseSoon(folder / "without ending");
    viewer->Run(ViewerCommand::SavePdf);
    EXPECT_THAT(ContentOf(folder / "without ending.pdf"), StartsWith("%PDF-"));
    EXPECT_FALSE(port->IsBusy());
    EXPECT_TRUE(Desk().updatesEnabled());
}

TEST_F(SavingByMenu, NothingIsWrittenWhereTheDialogIsLeft) {
    View(Filled("PayOutRpt", samples::Payments(20)));
    QTimer::singleShot(0, [] { static_cast<QDialog*>(QApplication::activeModalWidget())->reject(); });
    viewer->Run(ViewerCommand::SaveHtml);
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(SavingByMenu, WhatFailsIsToldInABox) {
    View(Filled("PayOutRpt", samples::Payments(20)));
    ChooseSoon("/proc/report.xlsx");
    viewer->Run(ViewerCommand::SaveXlsx);
    ASSERT_EQ(platform.messages->boxes.size(), 1U);
    EXPECT_EQ(platform.messages->boxes[0].style, BoxStyle::Critical | BoxStyle::RightToLeft);
    EXPECT_THAT(platform.messages->boxes[0].text, HasSubstr("/proc"));
    EXPECT_FALSE(port->IsBusy());
    EXPECT_TRUE(Desk().updatesEnabled());
}

class Saving : public LiveReports {
protected:
    Saving() { UseRealText(); }
    TempFolder folder;
};

TEST_F(Saving, WritesEveryFormat) {
    struct Row {
        const char* name;
        SaveFormat format;
        const char* begins;
    };
    const Row rows[] = {{"PDF", SaveFormat::Pdf, "%PDF-"},
                        {"spreadsheet", SaveFormat::Xlsx, "PK"},
                        {"CSV", SaveFormat::Csv, "\xEF\xBB\xBF"},
                        {"web page", SaveFormat::Html, "<!"}};
    const auto report = Filled("PayOutRpt", samples::Payments(20));
    for (const Row& row : rows) {
        const auto file = folder / (std::string("report.") + EndingOf(row.format));
        SaveReport(OutputOf(report), row.format, file, {});
        EXPECT_THAT(ContentOf(file), StartsWith(row.begins)) << row.name;
    }
}

TEST_F(Saving, AStoppedSaveLeavesNoFile) {
    const auto report = Filled("PayOutRpt", samples::Payments(2000));
    const auto stop = [](std::size_t done, std::size_t) {
        if (done > 2) throw Failure(FailureNumber::Cancelled, "stopped");
    };
    EXPECT_EQ(
        FailureOf([&] { SaveReport(OutputOf(report), SaveFormat::Pdf, folder / "a.pdf", stop); }).Number(),
        FailureNumber::Cancelled);
    EXPECT_THAT(folder.Names(), ElementsAre());
}

TEST_F(Saving, AFolderThatIsNotThereIsAFailure) {
    const auto report = Filled("PayOutRpt", samples::Payments(2));
    EXPECT_EQ(
        FailureOf([&] { SaveReport(OutputOf(report), SaveFormat::Csv, folder / "no/a.csv", {}); }).Number(),
        FailureNumber::FileAccess);
}

TEST_F(Saving, TitlesBecomeFileNames) {
    struct Row {
        const char* name;
        const char* title;
        const char* file;
    };
    const Row rows[] = {
        {"Arabic", "تقرير بالإيراد", "تقرير بالإيراد.pdf"},
        {"signs that systems refuse", "من 01/03 إلى 02/03: \"كل\"", "من 01-03 إلى 02-03- -كل-.pdf"},
        {"several lines", "a\nb", "a-b.pdf"},
        {"none", "", "report.pdf"}};
    for (const Row& row : rows)
        EXPECT_EQ(FileNameOf(row.title, SaveFormat::Pdf), row.file) << row.name;
}

} // namespace
} // namespace qbrpt::viewer
