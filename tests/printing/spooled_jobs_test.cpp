// Reports through a real print service: what came out of the printers, page by page.
#include "preview/printer_capabilities.h"
#include "print_fixture.h"

namespace qbrpt {
namespace {

using test::NumbersOf;
using test::PagesIn;
using test::PrintedJob;
using test::PrintedPage;
using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::SizeIs;

class FolderPrinter : public PrintTest {
protected:
    FolderPrinter() { service.AddFolderQueue("folder"); }
};

TEST_F(FolderPrinter, PrintsTheWholeReportInItsExactSize) {
    const auto report = Payments("folder");
    report->PrintOut(false);
    report->SelectPrinter("", std::string(PdfPrinterName), "");
    report->PrintOut(false);
    const PrintedJob job = service.Printed("folder");
    const std::vector<PrintedPage> pages = PagesIn(job.file);
    const std::vector<PrintedPage> filed = PagesIn(folder / "pages/qbrpt - تقرير المصروفات.pdf");
    EXPECT_EQ(NumbersOf(pages), "1 2 3 4 5");
    ASSERT_EQ(pages.size(), filed.size());
    for (std::size_t i = 0; i < pages.size(); ++i) {
        EXPECT_EQ(pages[i].width, 595);
        EXPECT_EQ(pages[i].height, 842);
        EXPECT_FALSE(pages[i].sideways);
        EXPECT_EQ(pages[i].text, filed[i].text);
        EXPECT_NEAR(pages[i].leftBlank, filed[i].leftBlank, 1); // neither scaled nor moved
        EXPECT_NEAR(pages[i].rightBlank, filed[i].rightBlank, 1);
    }
    EXPECT_TRUE(job.Has("\nqbrpt - تقرير المصروفات\n")) << job.words;
}

TEST_F(FolderPrinter, PrintsOnlyThePagesAskedForCollated) {
    Payments("folder")->PrintOut(false,
                                 {.copies = 2, .collated = std::nullopt, .startPage = 2, .stopPage = 3});
    EXPECT_EQ(NumbersOf(PagesIn(service.Printed("folder").file)), "2 3 2 3");
}

TEST_F(FolderPrinter, TurnsThePagesOfALandscapeReportOntoTheSheet) {
    const auto wide = Payments("folder");
    wide->SetPaperOrientation(OrientationLandscape);
    wide->PrintOut(false, {.copies = std::nullopt, .collated = std::nullopt, .startPage = 1, .stopPage = 1});
    const std::vector<PrintedPage> pages = PagesIn(service.Printed("folder").file);
    ASSERT_THAT(pages, SizeIs(1));
    EXPECT_EQ(pages[0].width, 595);
    EXPECT_EQ(pages[0].height, 842);
    EXPECT_TRUE(pages[0].sideways);
    EXPECT_THAT(pages[0].text, HasSubstr("صفحة1"));
}

TEST_F(FolderPrinter, ThatIsLandscapeByDefaultTurnsNothingByItself) {
    service.Tell({"lpadmin", "-p", "folder", "-o", "orientation-requested-default=4"});
    list->SetCurrent("folder");
    ASSERT_EQ(list->Current().orientation, OrientationLandscape);
    Payments("folder")->PrintOut(false);
    const std::vector<PrintedPage> upright = PagesIn(service.Printed("folder").file);
    EXPECT_EQ(NumbersOf(upright), "1 2 3 4 5");
    EXPECT_EQ(upright[0].width, 595);
    EXPECT_EQ(upright[0].height, 842);
    EXPECT_FALSE(upright[0].sideways);
    const auto wide = Payments("folder");
    wide->SetPaperOrientation(OrientationLandscape);
    wide->PrintOut(false);
    const std::vector<PrintedPage> turned = PagesIn(service.Printed("folder", 2).file);
    EXPECT_EQ(turned[0].width, 595);
    EXPECT_EQ(turned[0].height, 842);
    EXPECT_TRUE(turned[0].sideways);
}

TEST_F(PrintTest, AQueueWithoutADriverTakesTheUsualPapers) {
    service.AddRawQueue("raw");
    list->SetCurrent("raw");
    EXPECT_EQ(list->Current().paperSize, 9);
    CapabilityRows papers;
    GetPapersData("raw", "", papers);
    EXPECT_THAT(papers, Contains(CapabilityRow{"A5", 11}));
    EXPECT_EQ(GetBinsData("raw", "", papers), 0);
    list->SetPaperSize(11);
    Payments("raw", 11)->PrintOut(false,
                                  {.copies = 2, .collated = std::nullopt, .startPage = 2, .stopPage = 3});
    const PrintedJob job = service.Printed("raw");
    const std::vector<PrintedPage> pages = PagesIn(job.file);
    ASSERT_THAT(pages, SizeIs(2));
    EXPECT_EQ(pages[0].width, 420);
    EXPECT_EQ(pages[0].height, 595);
    EXPECT_TRUE(job.Has("\n2\n")) << "the copies are the device's: " << job.words;
}

struct PaperCase {
    const char* name;
    std::int16_t code;
    int width; ///< of the sheet, in points
    int height;
    const char* word; ///< that the printer's driver hears
};

class FolderPapers : public FolderPrinter, public ::testing::WithParamInterface<PaperCase> {};

TEST_P(FolderPapers, Arrive) {
    Payments("folder", GetParam().code, 20)->PrintOut(false);
    const PrintedJob job = service.Printed("folder");
    const std::vector<PrintedPage> pages = PagesIn(job.file);
    ASSERT_FALSE(pages.empty());
    EXPECT_EQ(pages[0].width, GetParam().width);
    EXPECT_EQ(pages[0].height, GetParam().height);
    EXPECT_TRUE(job.Has(GetParam().word)) << job.words;
}

INSTANTIATE_TEST_SUITE_P(Rows, FolderPapers,
                         ::testing::Values(PaperCase{"A5", 11, 420, 595, "PageSize=A5"},
                                           PaperCase{"Letter", 1, 612, 792, "PageSize=Letter"},
                                           PaperCase{"PrintersOwn", 29'373, 600, 1200, "PageSize=w600h1200"}),
                         [](const auto& row) { return row.param.name; });

TEST_F(FolderPrinter, TheTrayAndBothSidesArrive) {
    list->SetCurrent("folder");
    CapabilityRows bins;
    ASSERT_EQ(GetBinsData("folder", "", bins), 3);
    EXPECT_EQ(bins[1], (CapabilityRow{"تغذية يدوية", 4}));
    EXPECT_EQ(bins[2].name, "درج 2");
    list->SetPaperBin(bins[2].code);
    list->SetSides(Sides::ShortEdge);
    Payments("folder")->PrintOut(false);
    const PrintedJob job = service.Printed("folder");
    EXPECT_TRUE(job.Has("InputSlot=Tray2")) << job.words;
    EXPECT_TRUE(job.Has("sides=two-sided-short-edge") || job.Has("Duplex=DuplexTumble")) << job.words;
}

struct TrayCase {
    const char* name;
    const char* option; ///< the user's own
    const char* word;   ///< that the printer's driver hears
};

class FolderTrays : public PrintTest, public ::testing::WithParamInterface<TrayCase> {};

TEST_P(FolderTrays, OfTheUsersOwnChoiceArrive) {
    test::QueueKind kind;
    kind.trays = {"Auto", "ManualFeed", "Tray2", "Upper", "MPTray"};
    service.AddFolderQueue("folder", kind);
    service.SetUserOption("folder", GetParam().option);
    list->SetCurrent("folder");
    Payments("folder", 9, 20)->PrintOut(false);
    const PrintedJob job = service.Printed("folder");
    EXPECT_TRUE(job.Has(GetParam().word)) << job.words;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FolderTrays,
    ::testing::Values(TrayCase{"ByTheDriversWord", "InputSlot=Tray2", "InputSlot=Tray2"},
                      TrayCase{"OfTwoWords", "InputSlot=ManualFeed", "InputSlot=ManualFeed"},
                      TrayCase{"RenamedByTheService", "InputSlot=Upper", "InputSlot=Upper"},
                      TrayCase{"RenamedByAnotherName", "InputSlot=MPTray", "InputSlot=MPTray"},
                      TrayCase{"ByTheServicesKeyword", "media-source=tray-2", "InputSlot=Tray2"},
                      TrayCase{"Unknown", "InputSlot=Cellar", "InputSlot=Auto"}),
    [](const auto& row) { return row.param.name; });

TEST_F(FolderPrinter, ALongTitleIsCutToANameThatTheServiceTakes) {
    PayOutRpt payments;
    Fill(payments, 5);
    std::string title;
    for (int i = 0; i < 40; ++i)
        title += "مصروفات ";
    payments.SetHeadTitle(title);
    PrinterInfo printer;
    printer.deviceName = "folder";
    Bind(*payments.Report(), printer);
    EXPECT_EQ(FailureOf([&] { payments.Report()->PrintOut(false); }), "");
    EXPECT_TRUE(service.Printed("folder").Has("\nqbrpt - مصروفات مصروفات"));
}

struct RefusalRow {
    const char* name;
    const char* device;
    void (*change)(CrystalRuntime::Report& report);
    CrystalRuntime::PrintRange range;
    const char* said;
};

TEST_F(FolderPrinter, WhatCannotBeIsRefusedBeforeAnythingIsQueued) {
    const auto nothing = [](CrystalRuntime::Report&) {};
    const std::optional<std::int32_t> none;
    const std::vector<RefusalRow> rows = {
        {"paper",
         "folder",
         [](CrystalRuntime::Report& report) { report.SetPaperSize(8); },
         {},
         "The printer \"folder\" has no paper \"A3\"."},
        {"own paper of another",
         "folder",
         [](CrystalRuntime::Report& report) { report.SetPaperSize(1000); },
         {},
         "The printer \"folder\" has no paper 1000."},
        {"pages behind the last", "folder", nothing, {none, std::nullopt, 6, 9}, "it has 5"},
        {"pages backwards", "folder", nothing, {none, std::nullopt, 3, 2}, "3 to 2"},
        {"no pages", "folder", nothing, {none, std::nullopt, 0, 0}, "0 to 0"},
        {"no copies", "folder", nothing, {0, std::nullopt, none, none}, "not 0 times"},
        {"too many copies", "folder", nothing, {40'000, std::nullopt, none, none}, "not 40000 times"},
        {"printer", "gone", nothing, {}, "There is no printer \"gone\"."},
        {"no printer", "", nothing, {}, "No printer is chosen for the report."},
    };
    for (const RefusalRow& row : rows) {
        SCOPED_TRACE(row.name);
        const auto report = Payments(row.device);
        row.change(*report);
        EXPECT_THAT(FailureOf([&] { report->PrintOut(false, row.range); }), HasSubstr(row.said));
    }
    EXPECT_EQ(service.JobsUnderWay(), 0U);
    EXPECT_EQ(service.PrintedCount("folder"), 0U);
}

TEST_F(FolderPrinter, ARangeThatBeginsInTheReportPrintsToItsEnd) {
    // All pages under the printer of before may be more than there are now.
    Payments("folder")->PrintOut(false,
                                 {.copies = 1, .collated = std::nullopt, .startPage = 4, .stopPage = 99});
    EXPECT_EQ(NumbersOf(PagesIn(service.Printed("folder").file)), "4 5");
}

class DriverlessPrinter : public PrintTest {
protected:
    DriverlessPrinter() { service.AddDriverlessQueue("hall"); }
};

TEST_F(DriverlessPrinter, GetsPagesCopiesPaperAndTray) {
    list->SetCurrent("hall");
    CapabilityRows bins;
    GetBinsData("hall", "", bins);
    ASSERT_THAT(bins, Contains(CapabilityRow{"تغذية يدوية", 4}));
    list->SetPaperBin(4);
    list->SetSides(Sides::LongEdge);
    Payments("hall")->PrintOut(false, {.copies = 2, .collated = std::nullopt, .startPage = 2, .stopPage = 3});
    const PrintedJob job = service.Printed("hall");
    const std::vector<PrintedPage> pages = PagesIn(job.file);
    EXPECT_EQ(NumbersOf(pages), "2 3");
    EXPECT_EQ(pages[0].width, 595);
    EXPECT_EQ(pages[0].height, 842);
    EXPECT_TRUE(job.Has("IPP_COPIES=2")) << job.words;
    EXPECT_TRUE(job.Has("IPP_SIDES=two-sided-long-edge")) << job.words;
    EXPECT_TRUE(job.Has("media-source=manual")) << job.words;
    EXPECT_TRUE(job.Has("x-dimension=21000")) << job.words;
    EXPECT_TRUE(job.Has("qbrpt - تقرير المصروفات")) << job.words;
}

TEST_F(DriverlessPrinter, IsListedWithItsOwnDefaults) {
    service.AddFolderQueue("folder");
    service.Tell({"lpadmin", "-d", "hall"});
    ASSERT_EQ(list->Count(), 3);
    EXPECT_EQ(list->Current().deviceName, "hall");
    EXPECT_EQ(list->Current().paperSize, 1); // its own default is Letter
    EXPECT_EQ(list->Current().paperBin, 7);
    EXPECT_EQ(list->Item(1).deviceName, "folder");
    EXPECT_EQ(list->Item(1).paperSize, 9);
    EXPECT_EQ(list->Item(1).driverName, "Test Folder, PDF");
    EXPECT_EQ(list->Item(2).deviceName, PdfPrinterName);
    std::string driver;
    std::string comment;
    std::int32_t status = 0;
    GetPrinterInfo("folder", driver, comment, status);
    EXPECT_EQ(driver, "Test Folder  PDF");
    EXPECT_EQ(comment, "طابعة المكتب");
}

} // namespace
} // namespace qbrpt
