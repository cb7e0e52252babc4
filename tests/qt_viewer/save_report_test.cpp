#include "adapters/qt/viewer/save_report.h"
#include "tools/temp_folder.h"
#include "viewer_fixture.h"

#include <QtCore/QTimer>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
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

class SavingByMenu : public Viewers {
protected:
    void Save(const std::filesystem::path& file) {
        const auto report = Filled("PayOutRpt", samples::Payments(200));
        View(report);
        SaveShowingProgress(viewer.get(), OutputOf(report), SaveFormat::Pdf, file, true,
                            [this](bool writing) { told.push_back(writing); });
    }
    TempFolder folder;
    std::vector<bool> told;
};

TEST_F(SavingByMenu, TellsWhileTheReportMustBeLeftAlone) {
    Save(folder / "mine.pdf");
    EXPECT_THAT(ContentOf(folder / "mine.pdf"), StartsWith("%PDF-"));
    EXPECT_THAT(told, ElementsAre(true, false));
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(SavingByMenu, WhatFailsIsToldInABox) {
    Save(folder / "no/mine.pdf");
    ASSERT_EQ(platform.messages->boxes.size(), 1U);
    EXPECT_EQ(platform.messages->boxes[0].style, BoxStyle::Critical | BoxStyle::RightToLeft);
    EXPECT_THAT(platform.messages->boxes[0].text, HasSubstr(folder.Path().string()));
    EXPECT_THAT(told, ElementsAre(true, false));
}

TEST_F(SavingByMenu, AsksForAPlace) {
    View(Filled("PayOutRpt", samples::Payments(20)));
    QTimer answer;
    int tries = 0;
    QObject::connect(&answer, &QTimer::timeout, &answer, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return;
        if (++tries > 100) return dialog->reject(); // a test fails, it does not hang
        EXPECT_EQ(dialog->layoutDirection(), Qt::RightToLeft);
        dialog->findChild<QLineEdit*>()->setText(QString::fromStdString((folder / "mine").string()));
        dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save)->click();
    });
    answer.start(20);
    viewer->Run(ViewerCommand::SaveCsv);
    EXPECT_THAT(folder.Names(), ElementsAre("mine.csv"));
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
