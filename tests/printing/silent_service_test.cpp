// A print service that falls silent while its printers are listed: the user waits once, and it is found
// again.
#include "print_fixture.h"
#include "tools/relay.h"

#include <algorithm>
#include <cstdlib>
#include <thread>

namespace qbrpt {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

/// Printers of a machine whose clock leaps from one counting to the next.
class SilentService : public PrintTest {
protected:
    void Count(std::int32_t expected) {
        now += std::chrono::seconds(10);
        const auto begin = std::chrono::steady_clock::now();
        EXPECT_EQ(current.Count(), expected);
        const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
        longest = std::max(longest, took.count());
    }
    /// Counts until the service is no trouble any more.
    [[nodiscard]] bool ComesBack() {
        for (int i = 0; i < 300; ++i) {
            now += std::chrono::seconds(10);
            static_cast<void>(current.Count());
            if (machine->Trouble().empty()) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
        return false;
    }

    InstalledPrinters::Clock::time_point now;
    std::vector<std::string> warnings;
    double longest = 0; ///< seconds that a counting took
    std::shared_ptr<InstalledPrinters> machine = std::make_shared<InstalledPrinters>(
        PdfPrinter(folder / "pages"), cups::PrinterAsker(),
        [this](const std::string& trouble) { warnings.push_back(trouble); }, [this] { return now; });
    PrinterList current{machine};
};

TEST_F(SilentService, CostsTheUserTwoSecondsOnceAndIsFoundWhenItIsBack) {
    service.AddFolderQueue("folder");
    service.Tell({"lpadmin", "-d", "folder"});
    service.Freeze();
    Count(1);
    EXPECT_GT(longest, 1.9);
    EXPECT_LT(longest, 4);
    longest = 0;
    for (int i = 0; i < 5; ++i)
        Count(1);
    EXPECT_LT(longest, 1) << "nobody waits for it a second time";
    EXPECT_THAT(warnings, ::testing::ElementsAre("The printer service does not answer."));
    EXPECT_EQ(current.Current().deviceName, PdfPrinterName);
    service.Thaw();
    EXPECT_TRUE(ComesBack());
    EXPECT_EQ(current.Current().deviceName, "folder");
    EXPECT_THAT(*machine->All(), SizeIs(2));
    EXPECT_THAT(warnings, SizeIs(1));
}

TEST_F(SilentService, TheDefaultPrinterIsKnownThoughTheServiceStopsInTheMiddle) {
    service.AddFolderQueue("first");
    test::QueueKind small;
    small.defaultSize = "A5";
    service.AddFolderQueue("last", small);
    service.Tell({"lpadmin", "-d", "last"});
    test::Relay relay(service.Socket(), (folder / "relay").string(), "POST /printers/");
    ::setenv("CUPS_SERVER", (folder / "relay").c_str(), 1);
    Count(3);
    EXPECT_TRUE(relay.Silent()) << "printers are listed by other words now";
    EXPECT_LT(longest, 4);
    EXPECT_EQ(machine->Trouble(), "The printer service does not answer.");
    EXPECT_EQ(current.Item(0).deviceName, "last");
    EXPECT_EQ(current.Item(1).deviceName, "first");
    EXPECT_EQ(current.Item(2).deviceName, PdfPrinterName);
    EXPECT_EQ(current.Current().deviceName, "last");
    EXPECT_THAT(machine->Find("last")->papers, IsEmpty());

    relay.Open();
    EXPECT_TRUE(ComesBack());
    EXPECT_THAT(machine->Find("last")->papers, SizeIs(4));
    EXPECT_EQ(current.Current().deviceName, "last");
    EXPECT_EQ(current.Current().paperSize, 11) << "its own, though it was not told at first";
}

} // namespace
} // namespace qbrpt
