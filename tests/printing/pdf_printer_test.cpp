#include "adapters/printing/pdf_folder.h"
#include "adapters/printing/pdf_printer.h"
#include "adapters/printing/printer_delivery.h"
#include "base/failure.h"
#include "tools/temp_folder.h"

#include <gmock/gmock.h>

#include <cstdlib>

namespace qbrpt {
namespace {

using test::ContentOf;
using test::TempFolder;
using test::WriteContent;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A report whose PDF is a few words.
class FewWords : public ReportOutput {
public:
    bool mFails = false;

    std::string Title() override { return "title"; }
    std::int32_t PageCount() override { return 1; }
    std::string Device() override { return std::string{PdfPrinterName}; }
    void WritePdf(ByteSink& sink, const PageRange&, const PageProgress&) override {
        sink.Write("pages");
        if (mFails) throw Failure(FailureNumber::Report, "no more pages");
    }
    void WriteTable(TableKind, ByteSink&, const TableProgress&) override {}
};

PrintJob JobCalled(const std::string& title) {
    PrintJob job;
    job.device = PdfPrinterName;
    job.title = title;
    return job;
}

TEST(PdfPrinter, ShowsItsFolderAsPort) {
    const PrinterInfo info = PdfPrinter("/srv/pages").Info();
    EXPECT_EQ(info.deviceName, "qbrpt PDF");
    EXPECT_EQ(info.port, "/srv/pages");
    EXPECT_EQ(info.paperSize, 9);
    EXPECT_FALSE(info.driverName.empty());
}

TEST(PdfPrinter, MakesItsFolderAndNumbersNamesThatAreTaken) {
    const TempFolder folder;
    const PdfPrinter printer(folder.Path() / "new" / "pages");
    FewWords report;
    EXPECT_EQ(printer.Print(report, JobCalled("يوم")), folder.Path() / "new" / "pages" / "يوم.pdf");
    EXPECT_EQ(printer.Print(report, JobCalled("يوم")).filename(), "يوم (2).pdf");
    EXPECT_EQ(printer.Print(report, JobCalled("يوم")).filename(), "يوم (3).pdf");
    EXPECT_EQ(ContentOf(folder.Path() / "new" / "pages" / "يوم (3).pdf"), "pages");
}

TEST(PdfPrinter, NamesItsFileAfterApplicationAndTitle) {
    const TempFolder folder;
    FewWords report;
    PrintJob job = JobCalled("يوم");
    job.application = "qbrpt";
    EXPECT_EQ(PdfPrinter(folder.Path()).Print(report, job).filename(), "qbrpt - يوم.pdf");
}

TEST(PdfPrinter, ALinkThatPointsNowhereIsATakenName) {
    const TempFolder folder;
    std::filesystem::create_symlink(folder / "gone", folder / "a.pdf");
    FewWords report;
    EXPECT_EQ(PdfPrinter(folder.Path()).Print(report, JobCalled("a")).filename(), "a (2).pdf");
    EXPECT_FALSE(std::filesystem::exists(folder / "gone"));
}

TEST(PdfPrinter, LeavesNothingOfAJobThatFails) {
    const TempFolder folder;
    FewWords report;
    report.mFails = true;
    EXPECT_THROW(PdfPrinter(folder.Path()).Print(report, JobCalled("a")), Failure);
    EXPECT_THAT(folder.Names(), IsEmpty());
}

TEST(PdfPrinter, AFolderThatCannotBeMadeIsAFailure) {
    const TempFolder folder;
    WriteContent(folder / "file", "in the way");
    FewWords report;
    try {
        PdfPrinter(folder.Path() / "file" / "pages").Print(report, JobCalled("a"));
        FAIL() << "a file cannot hold a folder";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.Number(), FailureNumber::FileAccess);
        EXPECT_THAT(failure.Description(), ::testing::HasSubstr("QBRPT_PDF_FOLDER"));
    }
}

TEST(PrinterDelivery, PrintsOnThePrinterOfTheJobOnly) {
    const TempFolder folder;
    std::vector<std::string> made;
    PrinterDelivery delivery(
        PdfPrinter(folder.Path()), std::make_shared<InstalledPrinters>(PdfPrinter(folder.Path()), nullptr),
        [&](const std::filesystem::path& file) { made.push_back(file.filename().string()); });
    FewWords report;
    delivery.Print(report, JobCalled("a"));
    EXPECT_THAT(made, ElementsAre("a.pdf"));
    for (const char* device : {"", "another"}) {
        PrintJob job = JobCalled("b");
        job.device = device;
        EXPECT_THROW(delivery.Print(report, job), Failure) << device;
    }
    EXPECT_THAT(folder.Names(), ElementsAre("a.pdf"));
}

struct StemRow {
    const char* name;
    std::string title;
    std::string stem;
};

class FileStem : public ::testing::TestWithParam<StemRow> {};

TEST_P(FileStem, IsAFileName) {
    EXPECT_EQ(FileStemOf(GetParam().title), GetParam().stem);
}

std::string Repeated(const std::string& text, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += text;
    return all;
}

INSTANTIATE_TEST_SUITE_P(
    Titles, FileStem,
    ::testing::Values(StemRow{"Plain", "تقرير بالإيراد", "تقرير بالإيراد"}, StemRow{"Empty", "", "qbrpt"},
                      StemRow{"OnlyBlanksAndDots", " .. ", "qbrpt"},
                      StemRow{"Slashes", "01/02/2004 \\ 03", "01-02-2004 - 03"},
                      StemRow{"UpwardPath", "../../etc/passwd", "-..-etc-passwd"},
                      StemRow{"LineFeedAndNul", std::string("a\nb\0c", 5), "a-b-c"},
                      StemRow{"Hidden", ".profile", "profile"},
                      StemRow{"InvalidByte", "a\xFFz", "a\xEF\xBF\xBDz"},
                      StemRow{"LongIsCutBetweenCharacters", Repeated("ة", 200), Repeated("ة", 90)},
                      StemRow{"LongWithOddByteCount", "x" + Repeated("ة", 200), "x" + Repeated("ة", 89)}),
    [](const auto& row) { return row.param.name; });

class PdfFolderTest : public ::testing::Test {
protected:
    PdfFolderTest() {
        ::unsetenv("QBRPT_PDF_FOLDER");
        ::unsetenv("QBRPT_PDF_PRINTER");
        ::unsetenv("XDG_CONFIG_HOME");
        ::setenv("HOME", mHome.Path().c_str(), 1);
    }
    void WriteUserDirs(const std::string& lines) {
        std::filesystem::create_directories(mHome / ".config");
        WriteContent(mHome.Path() / ".config" / "user-dirs.dirs", lines);
    }
    TempFolder mHome;
};

TEST_F(PdfFolderTest, HomeWithoutDocuments) {
    EXPECT_EQ(PdfFolder(), mHome / "qbrpt");
}

TEST_F(PdfFolderTest, TheUsersDocuments) {
    std::filesystem::create_directories(mHome / "مستندات");
    WriteUserDirs("# comment\nXDG_DESKTOP_DIR=\"$HOME/d\"\nXDG_DOCUMENTS_DIR=\"$HOME/مستندات\"\n");
    EXPECT_EQ(PdfFolder(), mHome.Path() / "مستندات" / "qbrpt");
}

TEST_F(PdfFolderTest, DocumentsThatAreNotThere) {
    WriteUserDirs("XDG_DOCUMENTS_DIR=\"$HOME/none\"\n");
    EXPECT_EQ(PdfFolder(), mHome / "qbrpt");
}

TEST_F(PdfFolderTest, BrokenLinesAreSteppedOver) {
    WriteUserDirs("XDG_DOCUMENTS_DIR=\"\nXDG_DOCUMENTS_DIR=\"$HOME/\nXDG_DOCUMENTS_DIR=\"relative\"\n");
    EXPECT_EQ(PdfFolder(), mHome / "qbrpt");
}

TEST_F(PdfFolderTest, TheSettingWinsAndIsMadeAbsolute) {
    ::setenv("QBRPT_PDF_FOLDER", "/srv/pages", 1);
    EXPECT_EQ(PdfFolder(), "/srv/pages");
    ::setenv("QBRPT_PDF_FOLDER", "pages", 1);
    EXPECT_EQ(PdfFolder(), std::filesystem::current_path() / "pages");
}

TEST_F(PdfFolderTest, NoHomeAtAll) {
    ::unsetenv("HOME");
    EXPECT_TRUE(PdfFolder().is_absolute());
}

TEST_F(PdfFolderTest, OffSwitch) {
    EXPECT_TRUE(PdfPrinterIsOn());
    ::setenv("QBRPT_PDF_PRINTER", "off", 1);
    EXPECT_FALSE(PdfPrinterIsOn());
    ::setenv("QBRPT_PDF_PRINTER", "on", 1);
    EXPECT_TRUE(PdfPrinterIsOn());
}

} // namespace
} // namespace qbrpt
