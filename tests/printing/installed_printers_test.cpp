// The printers of a machine: which come first, when they are asked for anew, what the spooler's port tells.
#include "adapters/printing/cups/helper_thread.h"
#include "adapters/printing/installed_spooler.h"
#include "adapters/printing/printer_list.h"
#include "base/failure.h"
#include "fakes/fake_platform.h"
#include "preview/printer_capabilities.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <future>
#include <iterator>
#include <thread>

namespace qbrpt {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

InstalledPrinter Lazer(bool isDefault = false) {
    InstalledPrinter printer;
    printer.info = {"Lazer", "HP 4L, old", "socket://10.0.0.9", OrientationPortrait, 11, 4, 0};
    printer.place = "القاعة";
    printer.comment = "قرب الباب";
    printer.status = PrinterStatus::Paused;
    printer.papers = {{11, "A5", "iso_a5", 14800, 21000},
                      {9, "A4", "iso_a4", 21000, 29700},
                      {300, "own", "own", 10000, 20000}};
    printer.bins = {{7, "تلقائي", "auto"}, {4, "تغذية يدوية", "manual"}};
    printer.isDefault = isDefault;
    return printer;
}

/// A spooler that counts how often it was asked, and a clock that a test moves.
class InstalledPrintersTest : public ::testing::Test {
protected:
    std::shared_ptr<InstalledPrinters> Machine(bool withPdf = true) {
        std::optional<PdfPrinter> pdf;
        if (withPdf) pdf.emplace("/srv/pages");
        return std::make_shared<InstalledPrinters>(
            pdf,
            [this](std::chrono::milliseconds patience) {
                patiences.push_back(patience.count());
                return listing;
            },
            [this](const std::string& trouble) { warnings.push_back(trouble); }, [this] { return now; });
    }
    static std::vector<std::string> Names(InstalledPrinters& printers) {
        std::vector<std::string> names;
        for (const InstalledPrinter& printer : *printers.All())
            names.push_back(printer.info.deviceName);
        return names;
    }
    static std::string FailureOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const Failure& failure) {
            return failure.Description();
        }
        return "";
    }

    fakes::FakePlatform platform;
    PrinterListing listing{{Lazer()}, {}, false};
    std::vector<long> patiences; ///< of each asking, in milliseconds
    std::vector<std::string> warnings;
    InstalledPrinters::Clock::time_point now;
};

TEST_F(InstalledPrintersTest, TheDefaultComesFirst) {
    EXPECT_THAT(Names(*Machine()), ElementsAre("qbrpt PDF", "Lazer"));
    EXPECT_THAT(Names(*Machine(false)), ElementsAre("Lazer"));
    listing.printers = {Lazer(true)};
    EXPECT_THAT(Names(*Machine()), ElementsAre("Lazer", "qbrpt PDF"));
}

TEST_F(InstalledPrintersTest, TheSpoolerIsAskedWhenSomebodyWantsToKnow) {
    const auto printers = Machine();
    PrinterList list(printers);
    EXPECT_THAT(patiences, IsEmpty());
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Item(1).deviceName, "Lazer");
    EXPECT_EQ(list.Count(), 2);
    EXPECT_THAT(patiences, ElementsAre(2000)); // a moment ago
    now += std::chrono::seconds(5);
    static_cast<void>(list.Item(1));
    EXPECT_THAT(patiences, SizeIs(1)); // a list that is being read stays as it is
    listing.printers.clear();
    EXPECT_EQ(list.Count(), 1);
    EXPECT_THAT(patiences, ElementsAre(2000, 2000));
}

TEST_F(InstalledPrintersTest, ASilentSpoolerCostsItsTimeOnceAndIsToldOfOnce) {
    listing = {{}, "The printer service does not answer.", true};
    const auto printers = Machine();
    PrinterList list(printers);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(list.Count(), 1);
        now += std::chrono::seconds(10);
    }
    EXPECT_THAT(patiences, ElementsAre(2000, 50, 50)) << "then it is glanced at";
    EXPECT_THAT(warnings, ElementsAre("The printer service does not answer."));
    EXPECT_EQ((*printers->All())[0].comment, "يطبع إلى ملفات PDF - خدمة الطباعة لا تستجيب");
    EXPECT_TRUE(printers->Hung());
    listing = {{Lazer()}, {}, false};
    EXPECT_EQ(list.Count(), 2); // it is back
    EXPECT_EQ(printers->Trouble(), "");
    EXPECT_FALSE(printers->Hung());

    // Nobody waits for it again.
    listing = {{}, "The printer service does not answer.", true};
    now += std::chrono::seconds(10);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(patiences.back(), 50);
    EXPECT_THAT(warnings, SizeIs(1));
}

TEST_F(InstalledPrintersTest, AnAnswerThatIsUnderWayIsNoNews) {
    listing = {{}, "The printer service does not answer.", true};
    const auto printers = Machine();
    PrinterList list(printers);
    EXPECT_EQ(list.Count(), 1);
    const auto next = [&](PrinterListing now_) {
        listing = std::move(now_);
        now += std::chrono::seconds(10);
        return list.Count();
    };
    EXPECT_EQ(next({{}, "not yet", false, true}), 1);
    EXPECT_EQ(printers->Trouble(), "The printer service does not answer.");
    EXPECT_EQ(next({{Lazer()}, {}, false}), 2);
    EXPECT_EQ(next({{}, "not yet", false, true}), 2);
    EXPECT_EQ(printers->Trouble(), "");
    EXPECT_EQ((*printers->All())[0].comment, "يطبع إلى ملفات PDF");
}

TEST_F(InstalledPrintersTest, WhatStandsInForTheDefaultPrinterGoesWhenItIsKnown) {
    listing = {{}, "The printer service does not answer.", true};
    PrinterList list(Machine());
    EXPECT_EQ(list.Current().deviceName, "qbrpt PDF");
    listing = {{Lazer(true)}, {}, false};
    now += std::chrono::seconds(10);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Current().deviceName, "Lazer");
    EXPECT_EQ(list.Current().paperSize, 11);
    // From then on it is the process's own, whatever the default becomes.
    listing = {{Lazer()}, {}, false};
    now += std::chrono::seconds(10);
    EXPECT_EQ(list.Count(), 2);
    EXPECT_EQ(list.Current().deviceName, "Lazer");
}

TEST_F(InstalledPrintersTest, WhatStandsInStaysWhereSomebodyHasChosenIt) {
    struct {
        const char* name;
        void (*choose)(PrinterList& list);
    } const rows[] = {{"printer", [](PrinterList& list) { list.SetCurrent("qbrpt PDF"); }},
                      {"paper", [](PrinterList& list) { list.SetPaperSize(11); }},
                      {"tray", [](PrinterList& list) { list.SetPaperBin(7); }},
                      {"direction", [](PrinterList& list) { list.SetOrientation(OrientationLandscape); }}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        listing = {{}, "The printer service does not answer.", true};
        PrinterList list(Machine());
        row.choose(list);
        listing = {{Lazer(true)}, {}, false};
        now += std::chrono::seconds(10);
        EXPECT_EQ(list.Count(), 2);
        EXPECT_EQ(list.Current().deviceName, "qbrpt PDF");
    }
}

TEST_F(InstalledPrintersTest, AMissingSpoolerIsTroubleButNoWarning) {
    listing = {{}, "The printer service cannot be reached.", false};
    const auto printers = Machine();
    PrinterList list(printers);
    EXPECT_EQ(list.Count(), 1);
    EXPECT_THAT(warnings, IsEmpty());
    EXPECT_EQ(FailureOf([&] { list.SetCurrent("Lazer"); }),
              "There is no printer \"Lazer\". The printer service cannot be reached.");
    PrinterList none(Machine(false));
    EXPECT_THAT(FailureOf([&] { static_cast<void>(none.Current()); }), HasSubstr("cannot be reached"));
}

TEST_F(InstalledPrintersTest, PrintersOutliveASpoolerThatIsBegunAnew) {
    const auto printers = Machine();
    EXPECT_THAT(Names(*printers), SizeIs(2));
    now += std::chrono::seconds(10);
    listing = {{}, "gone", false};
    printers->Refresh();
    EXPECT_THAT(Names(*printers), SizeIs(2));
    EXPECT_EQ(printers->Trouble(), "gone");
}

TEST_F(InstalledPrintersTest, APrinterHasItsOwnDefaultsAndPapers) {
    listing.printers = {Lazer(true)};
    PrinterList list(Machine());
    EXPECT_EQ(list.Current().paperSize, 11);
    EXPECT_EQ(list.Current().paperBin, 4);
    EXPECT_EQ(list.Current().width, 8391);
    list.SetPaperSize(300);
    EXPECT_EQ(list.Current().width, 5669); // 100 mm
    list.SetOrientation(OrientationLandscape);
    EXPECT_EQ(list.Current().width, 11339);
    EXPECT_EQ(list.SheetOf("Lazer", 300), (PaperExtent{5669, 11339}));
    EXPECT_EQ(list.SheetOf("Lazer", 9), (PaperExtent{11906, 16838}));
    EXPECT_EQ(list.SheetOf("gone", 300), (PaperExtent{11906, 16838}));
    EXPECT_EQ(FailureOf([&] { list.SetPaperSize(8); }), "The printer \"Lazer\" has no paper 8.");
    EXPECT_EQ(FailureOf([&] { list.SetPaperBin(1); }), "The printer \"Lazer\" has no paper bin 1.");
    EXPECT_EQ(list.BinOf("Lazer"), std::int16_t{4});
    EXPECT_EQ(list.BinOf("qbrpt PDF"), std::nullopt); // not the current one
}

TEST_F(InstalledPrintersTest, TheSpoolersPortTellsOfThem) {
    const auto printers = Machine();
    Platform::Current().spooler = std::make_shared<InstalledSpooler>(printers);
    CapabilityRows rows;
    EXPECT_EQ(GetPapersData("Lazer", "", rows), 3);
    EXPECT_EQ(rows, (CapabilityRows{{"A5", 11}, {"A4", 9}, {"own", 300}}));
    EXPECT_EQ(GetBinsData("Lazer", "", rows), 2);
    EXPECT_EQ(rows, (CapabilityRows{{"تلقائي", 7}, {"تغذية يدوية", 4}}));
    EXPECT_EQ(GetBinsData("qbrpt PDF", "", rows), 0);
    EXPECT_GT(GetPapersData("qbrpt PDF", "", rows), 30);
    EXPECT_EQ(rows[0], (CapabilityRow{"A4", 9}));
    EXPECT_EQ(GetPapersData("gone", "", rows), 0);

    std::string driver;
    std::string comment;
    std::int32_t status = 0;
    GetPrinterInfo("Lazer", driver, comment, status);
    EXPECT_EQ(driver, "HP 4L  old"); // a comma would part it
    EXPECT_EQ(comment, "قرب الباب");
    EXPECT_EQ(status, 1);
    GetPrinterInfo("qbrpt PDF", driver, comment, status);
    EXPECT_EQ(driver, "PDF");
    EXPECT_EQ(comment, "يطبع إلى ملفات PDF");
    driver = "before";
    GetPrinterInfo("gone", driver, comment, status);
    EXPECT_EQ(driver, "before");
}

TEST(HelperThread, IsWaitedForNoLongerThanItIsWorth) {
    const auto threads = [] {
        const std::filesystem::directory_iterator tasks("/proc/self/task");
        return std::distance(begin(tasks), end(tasks));
    };
    const auto alone = threads();
    bool done = false;
    EXPECT_TRUE(RunWithin(std::chrono::seconds(10), [&] { done = true; }));
    EXPECT_TRUE(done);
    const auto never = std::make_shared<std::promise<void>>();
    const auto before = std::chrono::steady_clock::now();
    EXPECT_FALSE(RunWithin(std::chrono::milliseconds(50), [never] { never->get_future().wait(); }));
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(5));
    never->set_value();
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (threads() != alone && std::chrono::steady_clock::now() < until)
        std::this_thread::yield();
    EXPECT_EQ(threads(), alone) << "the one given up goes on to its end";
}

} // namespace
} // namespace qbrpt
