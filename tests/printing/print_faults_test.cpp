// A print service that stops, dies, refuses or is not there: silence or the right words, nothing left behind.
#include "print_fixture.h"

#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <thread>

namespace qbrpt {
namespace {

using test::NumbersOf;
using test::PagesIn;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class PrintFaults : public PrintTest {
protected:
    PrintFaults() { service.AddFolderQueue("folder"); }

    /// Does something to the service when page `page` is about to be made.
    void When(std::size_t page, std::function<void()> act) {
        delivery = std::make_shared<PrinterDelivery>(
            PdfPrinter(folder / "pages",
                       [=, done = false](std::size_t made, std::size_t) mutable {
                           if (made >= page && !std::exchange(done, true)) act();
                       }),
            printers);
        RuntimeServices services = ServicesOf(std::make_shared<text::TextEngine>(), delivery);
        services.layouts = layout::Library();
        services.printers = list;
        Platform::Current().reports = MakeRuntime(std::move(services));
    }
    template <class Action>
    static std::chrono::duration<double> TimeOf(Action&& action) {
        const auto begin = std::chrono::steady_clock::now();
        action();
        return std::chrono::steady_clock::now() - begin;
    }
    /// Waits until the service has nothing left to do.
    [[nodiscard]] bool Idle() const {
        for (int i = 0; i < 500; ++i) {
            if (service.JobsUnderWay() == 0) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return false;
    }
};

constexpr std::size_t ManyRows = 60'000; // more than what lies between here and the service can hold

TEST_F(PrintFaults, AReportThatFailsLeavesNothingInTheQueue) {
    When(3, [] { throw Failure(FailureNumber::Report, "no more pages"); });
    EXPECT_EQ(FailureOf([&] { Payments("folder")->PrintOut(false); }), "no more pages");
    When(900, [] { throw Failure(FailureNumber::Report, "no more pages"); });
    EXPECT_EQ(FailureOf([&] { Payments("folder", 9, ManyRows)->PrintOut(false); }), "no more pages");
    EXPECT_TRUE(Idle());
    EXPECT_EQ(service.PrintedCount("folder"), 0U);
    EXPECT_EQ(service.Documents(), 0U);
}

TEST_F(PrintFaults, AServiceThatDiesIsToldOf) {
    When(900, [&] { service.Kill(); });
    std::string said;
    const auto time =
        TimeOf([&] { said = FailureOf([&] { Payments("folder", 9, ManyRows)->PrintOut(false); }); });
    EXPECT_EQ(said, "The printer \"folder\": The printer service has broken off.");
    EXPECT_LT(time.count(), 30);
    service.Start();
    EXPECT_EQ(service.PrintedCount("folder"), 0U);
    // And the next job goes through.
    When(99, [] {});
    EXPECT_EQ(FailureOf([&] { Payments("folder")->PrintOut(false); }), "");
    EXPECT_EQ(NumbersOf(PagesIn(service.Printed("folder").file)), "1 2 3 4 5");
    EXPECT_EQ(service.PrintedCount("folder"), 1U);
    EXPECT_TRUE(Idle()); // the one that broke off was cancelled when the service was back
}

TEST_F(PrintFaults, AServiceThatStopsIsGivenUpAndTheJobCancelled) {
    When(900, [&] { service.Freeze(); });
    std::string said;
    const auto time =
        TimeOf([&] { said = FailureOf([&] { Payments("folder", 9, ManyRows)->PrintOut(false); }); });
    EXPECT_EQ(said, "The printer \"folder\": The printer service does not answer.");
    EXPECT_LT(time.count(), 20);
    service.Thaw();
    EXPECT_TRUE(Idle());
    EXPECT_EQ(service.PrintedCount("folder"), 0U); // neither half nor whole
}

TEST_F(PrintFaults, AServiceThatStopsBeforeTheJobIsGivenUp) {
    static_cast<void>(list->Count());
    service.Freeze();
    std::string said;
    const auto time = TimeOf([&] { said = FailureOf([&] { Payments("folder")->PrintOut(false); }); });
    EXPECT_EQ(said, "The printer \"folder\": The printer service does not answer.");
    EXPECT_LT(time.count(), 20);
    service.Thaw();
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    EXPECT_EQ(service.PrintedCount("folder"), 0U);
}

TEST_F(PrintFaults, AServiceThatStopsForAMomentIsWaitedFor) {
    std::thread later;
    When(900, [&] {
        service.Freeze();
        later = std::thread([&] {
            std::this_thread::sleep_for(std::chrono::seconds(3));
            service.Thaw();
        });
    });
    EXPECT_EQ(FailureOf([&] { Payments("folder", 9, ManyRows)->PrintOut(false); }), "");
    later.join();
    static_cast<void>(service.Printed("folder"));
    EXPECT_EQ(service.PrintedCount("folder"), 1U);
}

TEST_F(PrintFaults, ARefusingPrinterSaysSoInTheServicesWords) {
    service.Tell({"cupsreject", "folder"});
    const std::string said = FailureOf([&] { Payments("folder")->PrintOut(false); });
    EXPECT_THAT(said, HasSubstr("not accepting jobs"));
    EXPECT_EQ(service.JobsUnderWay(), 0U);
}

TEST_F(PrintFaults, APausedPrinterKeepsTheJobInSilence) {
    service.Tell({"cupsdisable", "folder"});
    EXPECT_EQ(FailureOf([&] { Payments("folder")->PrintOut(false); }), "");
    EXPECT_EQ(service.JobsUnderWay(), 1U);
    EXPECT_EQ(service.PrintedCount("folder"), 0U);
    EXPECT_NE(printers->Find("folder")->status & PrinterStatus::Paused, 0U);
    service.Tell({"cupsenable", "folder"});
    static_cast<void>(service.Printed("folder"));
    EXPECT_EQ(service.PrintedCount("folder"), 1U);
}

TEST_F(PrintFaults, APrinterThatVanishedIsToldOf) {
    static_cast<void>(list->Count());
    service.Tell({"lpadmin", "-x", "folder"});
    EXPECT_THAT(FailureOf([&] { Payments("folder")->PrintOut(false); }),
                HasSubstr("The printer \"folder\": "));
}

TEST_F(PrintFaults, NoServiceCostsNoTimeAndAHungOneTwoSeconds) {
    service.Kill();
    EXPECT_LT(TimeOf([&] { EXPECT_EQ(list->Count(), 1); }).count(), 1);
    EXPECT_THAT(printers->Trouble(), HasSubstr("cannot be reached"));
    service.Start();
    service.Freeze();
    std::vector<std::string> warnings;
    InstalledPrinters frozen(std::nullopt, cups::PrinterAsker(),
                             [&](const std::string& trouble) { warnings.push_back(trouble); });
    EXPECT_LT(TimeOf([&] { EXPECT_THAT(*frozen.All(), IsEmpty()); }).count(), 4);
    frozen.Refresh();
    EXPECT_LT(TimeOf([&] { EXPECT_THAT(*frozen.All(), IsEmpty()); }).count(), 1.5);
    EXPECT_EQ(warnings, std::vector<std::string>{"The printer service does not answer."});
    service.Thaw();
}

/// No file of this process grows any more: as a full disk, for any user.
class FullDisk {
public:
    FullDisk() {
        ::getrlimit(RLIMIT_FSIZE, &mBefore);
        const struct rlimit small { 20'000, mBefore.rlim_max };
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &mBefore);
        ::signal(SIGXFSZ, SIG_DFL);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    struct rlimit mBefore {};
};

TEST_F(PrintFaults, AFullDiskLeavesNoFileOfThePdfPrinter) {
    const auto report = Payments(std::string(PdfPrinterName));
    {
        const FullDisk full;
        EXPECT_THAT(FailureOf([&] { report->PrintOut(false); }), HasSubstr("File too large"));
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder / "pages"));
    EXPECT_EQ(FailureOf([&] { report->PrintOut(false); }), "");
    EXPECT_EQ(PagesIn(folder / "pages/qbrpt - تقرير المصروفات.pdf").size(), 5U);
}

TEST_F(PrintFaults, SixHundredPapersAreListed) {
    test::QueueKind kind;
    kind.sizes = {{"A4", 595, 842}};
    for (int i = 0; i < 599; ++i)
        kind.sizes.push_back({"w" + std::to_string(200 + i) + "h1500", 200 + i, 1500});
    service.AddFolderQueue("many", kind);
    const auto many = printers->Find("many");
    ASSERT_TRUE(many.has_value());
    EXPECT_EQ(many->papers.size(), 600U);
    EXPECT_EQ(many->info.paperSize, 9);
}

} // namespace
} // namespace qbrpt
