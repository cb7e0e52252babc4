// Printing from the command line, on the printers of a real print service.
#include "cli/command_run.h"
#include "tools/print_service.h"
#include "tools/printed_pages.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <thread>

namespace qbrpt::test {
namespace {

using ::testing::HasSubstr;
using ::testing::SizeIs;

using Words = std::vector<std::string>;

/// A café whose list of sessions fills several pages.
class CommandPrinting : public ::testing::Test {
protected:
    CommandPrinting() { service.AddFolderQueue("folder"); }

    [[nodiscard]] ProgramResult Usage(Words words) const {
        words.insert(words.begin(), {"PrintUsage", "0", "0", "0", "--db", cafe.Database()});
        return Qbrpt(words, {{"QBRPT_PDF_FOLDER", cafe.File("pages")}});
    }

    const Cafe cafe{20, 12};
    PrintService service;
};

TEST_F(CommandPrinting, ChoosesPrinterPaperTrayPagesAndCopies) {
    const ProgramResult result = Usage({"--print", "--printer", "folder", "--paper", "letter", "--bin",
                                        "tray-2", "--pages", "2-3", "--copies", "2", "--duplex", "short"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(result.out + result.err, "");
    const PrintedJob job = service.Printed("folder");
    const std::vector<PrintedPage> pages = PagesIn(job.file);
    EXPECT_EQ(NumbersOf(pages), "2 3 2 3");
    for (const PrintedPage& page : pages) {
        EXPECT_EQ(page.width, 612);
        EXPECT_EQ(page.height, 792);
    }
    EXPECT_TRUE(job.Has("InputSlot=Tray2")) << job.words;
    EXPECT_TRUE(job.Has("PageSize=Letter")) << job.words;
    EXPECT_TRUE(job.Has("two-sided-short-edge") || job.Has("DuplexTumble")) << job.words;
    EXPECT_EQ(service.PrintedCount("folder"), 1U);
}

TEST_F(CommandPrinting, TheServicesDefaultPrinterIsTheUsualOne) {
    service.Tell({"lpadmin", "-d", "folder"});
    EXPECT_EQ(Usage({"--print", "--pages", "1"}).status, 0);
    EXPECT_EQ(NumbersOf(PagesIn(service.Printed("folder").file)), "1");
    EXPECT_FALSE(cafe.Has("pages"));
}

TEST_F(CommandPrinting, TheLastPagesOfAReport) {
    EXPECT_EQ(Usage({"--print", "--printer", "folder", "--pages", "3-"}).status, 0);
    EXPECT_THAT(NumbersOf(PagesIn(service.Printed("folder").file)), ::testing::StartsWith("3 4"));
}

struct RefusedRow {
    const char* name;
    Words words;
    int status;
    const char* said;
};

TEST_F(CommandPrinting, WhatIsNotThereIsRefused) {
    const std::vector<RefusedRow> rows = {
        {"printer",
         {"--printer", "gone"},
         2,
         "There is no printer \"gone\"; there is \"qbrpt PDF\", \"folder\"."},
        {"paper", {"--printer", "folder", "--paper", "A3"}, 2, "has no paper \"A3\"; there is "},
        {"tray", {"--printer", "folder", "--bin", "Tray9"}, 2, "has no tray \"Tray9\"; there is \"تلقائي\""},
        {"tray of files", {"--bin", "Tray9"}, 2, "has no tray \"Tray9\"; there is none at all."},
        {"sides of files", {"--duplex", "long"}, 2, "\"qbrpt PDF\" cannot print on both sides."},
        {"unreadable pages", {"--printer", "folder", "--pages", "1,2"}, 2, "are no pages"},
        {"pages behind the last", {"--printer", "folder", "--pages", "2-999"}, 1, "has no page 999"},
        {"first page behind the last", {"--printer", "folder", "--pages", "999-"}, 1, "has no page 999"},
    };
    for (const RefusedRow& row : rows) {
        SCOPED_TRACE(row.name);
        Words words = row.words;
        words.insert(words.begin(), "--print");
        const ProgramResult result = Usage(words);
        EXPECT_EQ(result.status, row.status);
        EXPECT_THAT(result.err, HasSubstr(row.said));
    }
    EXPECT_EQ(service.JobsUnderWay(), 0U);
    EXPECT_EQ(service.PrintedCount("folder"), 0U);
    EXPECT_FALSE(cafe.Has("pages"));
}

TEST_F(CommandPrinting, ARefusingPrinterIsAnErrorInTheServicesWords) {
    service.Tell({"cupsreject", "folder"});
    const ProgramResult result = Usage({"--print", "--printer", "folder"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("not accepting jobs"));
}

TEST_F(CommandPrinting, AnInterruptLeavesNothingInTheQueue) {
    const Cafe large(400, 250);
    ChildProcess printing(
        CommandOf({"PrintUsage", "0", "0", "0", "--db", large.Database(), "--print", "--printer", "folder"}));
    while (printing.Running() && service.JobsUnderWay() == 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    printing.Signal(SIGINT);
    EXPECT_EQ(printing.Wait().status, 128 + SIGINT);
    for (int i = 0; i < 500 && service.JobsUnderWay() > 0; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(service.JobsUnderWay(), 0U);
    EXPECT_EQ(service.PrintedCount("folder"), 0U);
    EXPECT_EQ(service.Documents(), 0U);
}

TEST_F(CommandPrinting, PrintersAreListed) {
    const ProgramResult text = Qbrpt({"printers"}, {{"QBRPT_PDF_FOLDER", "/srv/pages"}});
    EXPECT_EQ(text.status, 0) << text.err;
    EXPECT_EQ(text.err, "");
    EXPECT_THAT(text.out,
                HasSubstr("qbrpt PDF  (default)\n  state    ready\n  driver   PDF\n  port     /srv/pages\n"));
    EXPECT_THAT(text.out, HasSubstr("\nfolder\n  state    ready\n  driver   Test Folder, PDF\n"));
    EXPECT_THAT(text.out, HasSubstr("  begins   A4, تلقائي, upright\n"));
    EXPECT_THAT(text.out, HasSubstr("  trays    تلقائي, تغذية يدوية, درج 2\n"));

    service.Tell({"lpadmin", "-d", "folder"});
    service.Tell({"cupsdisable", "folder"});
    const ProgramResult listed = Qbrpt({"printers", "--json"});
    EXPECT_EQ(listed.status, 0) << listed.err;
    const auto json = nlohmann::json::parse(listed.out);
    ASSERT_THAT(json["printers"], SizeIs(2));
    const auto& folder = json["printers"][0];
    EXPECT_EQ(folder["name"], "folder");
    EXPECT_EQ(folder["default"], true);
    EXPECT_EQ(folder["state"][0], "paused");
    EXPECT_EQ(folder["status"], 1);
    EXPECT_EQ(folder["comment"], "طابعة المكتب");
    EXPECT_EQ(folder["place"], "القاعة 1");
    EXPECT_EQ(folder["paper"], 9);
    EXPECT_EQ(folder["bothSides"], true);
    ASSERT_THAT(folder["papers"], SizeIs(4));
    EXPECT_THAT(folder["bins"], SizeIs(3));
    const auto a4 = std::find_if(folder["papers"].begin(), folder["papers"].end(),
                                 [](const auto& paper) { return paper["code"] == 9; });
    ASSERT_NE(a4, folder["papers"].end());
    EXPECT_EQ((*a4)["name"], "A4");
    EXPECT_EQ((*a4)["widthMm"], 209.9);
    EXPECT_EQ(json["trouble"], "");
}

TEST_F(CommandPrinting, AServiceThatHangsCostsTwoSecondsAndIsToldOf) {
    service.Freeze();
    const auto begin = std::chrono::steady_clock::now();
    const ProgramResult listed = Qbrpt({"printers"});
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
    service.Thaw();
    EXPECT_EQ(listed.status, 1);
    EXPECT_EQ(listed.err, "qbrpt: The printer service does not answer.\n");
    EXPECT_THAT(listed.out, HasSubstr("qbrpt PDF  (default)"));
    EXPECT_GT(time.count(), 1.5);
    EXPECT_LT(time.count(), 6); // two, on a machine that does other things too
}

TEST(CommandPrinters, WithoutAServiceThePdfPrinterStands) {
    const ProgramResult listed = Qbrpt({"printers"});
    EXPECT_EQ(listed.status, 0);
    EXPECT_THAT(listed.out, HasSubstr("qbrpt PDF  (default)"));
    EXPECT_THAT(listed.err, HasSubstr("cannot be reached"));
    const ProgramResult none = Qbrpt({"printers"}, {{"QBRPT_PDF_PRINTER", "off"}});
    EXPECT_EQ(none.out, "");
}

} // namespace
} // namespace qbrpt::test
