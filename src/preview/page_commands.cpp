// The commands of the preview window: pages, zoom, and the state of menu and buttons that follows from them.
#include "base/numbers.h"
#include "platform/platform.h"
#include "preview/frmPrntServer.h"
#include "preview/print_dialogs.h"
#include "support/error_trap.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace qbrpt {

namespace {

constexpr std::int16_t Smallest = 25;
constexpr std::int16_t Largest = 400;

struct ButtonOfItem {
    std::string_view key;
    std::string_view item;
};

// In the order in which a clicked key is looked for.
constexpr std::array ButtonItems = {
    ButtonOfItem{"zoomin", "mnZoomIn"},   ButtonOfItem{"zoomout", "mnZoomOut"},
    ButtonOfItem{"zoom25", "mnZoom25"},   ButtonOfItem{"zoom50", "mnZoom50"},
    ButtonOfItem{"zoom100", "mnZoom100"}, ButtonOfItem{"zoom200", "mnZoom200"},
    ButtonOfItem{"zoom400", "mnZoom400"}, ButtonOfItem{"first", "mnFirstPage"},
    ButtonOfItem{"last", "mnLastPage"},   ButtonOfItem{"next", "mnNextPage"},
    ButtonOfItem{"prev", "mnPrevPage"},   ButtonOfItem{"close", "mnClose"},
};

/// Gives a scope its flag back, also when a wait ends in a failure.
class Waiting {
public:
    explicit Waiting(bool& flag) : mFlag(flag) { mFlag = true; }
    ~Waiting() { mFlag = false; }
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

private:
    bool& mFlag;
};

} // namespace

void frmPrntServer::RunButton(const std::string& key) {
    if (key == "print") return PrintData(false);
    const auto* found = std::find_if(ButtonItems.begin(), ButtonItems.end(),
                                     [&](const ButtonOfItem& row) { return row.key == key; });
    if (found != ButtonItems.end()) RunCommand(std::string(found->item));
}

void frmPrntServer::RunCommand(const std::string& name) {
    if (name == "mnPrint") return PrintData(true);
    if (name == "mnClose") return Window().Unload();
    if (name == "mnPrintSetup") {
        if (GetPrinterSetup()) RefreshReportprinter();
        return;
    }
    if (name == "mnFirstPage") return SetPage(1);
    if (prntViewer()->IsBusy()) return;
    if (name == "mnLastPage") return SetPage(CheckedShort(mReport->Report()->NumberOfPages()));
    if (name == "mnNextPage") return SetPage(CheckedShort(prntViewer()->GetCurrentPageNumber() + 1));
    if (name == "mnPrevPage") return SetPage(CheckedShort(prntViewer()->GetCurrentPageNumber() - 1));
    if (name == "mnZoom25") return SetZoom(25);
    if (name == "mnZoom50") return SetZoom(50);
    if (name == "mnZoom100") return SetZoom(100);
    if (name == "mnZoom200") return SetZoom(200);
    if (name == "mnZoom400") return SetZoom(400);
    if (name == "mnZoomIn")
        return SetZoom(std::min(Largest, std::max(CheckedShort(std::int64_t{mZoom} * 2), Smallest)));
    if (name == "mnZoomOut") {
        constexpr double largestHalf = 200;
        const double half = std::max<double>(Smallest, std::min(mZoom / 2.0, largestHalf));
        return SetZoom(CheckedShort(RoundToLong(half)));
    }
}

// While one wait runs the window is live: a second one, of a command pressed meanwhile, ends at once.
bool frmPrntServer::WaitViewerReady() {
    static bool bWaiting = false;
    if (bWaiting) return false;
    const Waiting waiting(bWaiting);
    constexpr std::int32_t milliseconds = 10;
    Windows& windows = *Platform::Current().windows;
    for (;;) {
        const bool busy = prntViewer()->IsBusy();
        const std::int32_t openWindows = windows.DoEvents();
        if (!busy || openWindows == 0) return true;
        windows.SleepEx(milliseconds);
    }
}

void frmPrntServer::SetPage(std::int16_t n) {
    ErrorTrap trap(ErrorTrap::BoxThenLeave, {.prefix = "SetPage cose Error No.", .numbered = true});
    if (!trap.Test([&] { return WaitViewerReady(); }) && !trap.Left()) return;
    if (trap.Test([&] { return n != prntViewer()->GetCurrentPageNumber(); })) {
        trap.Step([] { Platform::Current().screen->SetMousePointer(Pointer::Wait); });
        trap.Step([&] { prntViewer()->ShowNthPage(n); });
    }
    trap.Always([&] { static_cast<void>(WaitViewerReady()); });
    UpdateViewCommands();
    trap.Always([] { Platform::Current().screen->SetMousePointer(Pointer::Default); });
}

void frmPrntServer::SetZoom(std::int16_t n) {
    if (prntViewer()->IsBusy()) return;
    // Not held inside the levels here: the commands see to that.
    mZoom = std::max(std::min(Largest, n), n);
    if (!WaitViewerReady()) return;
    prntViewer()->Zoom(mZoom);
    UpdateViewCommands();
}

void frmPrntServer::UpdateViewCommands() {
    ErrorTrap trap(ErrorTrap::SilentGoOn);
    if (!trap.Test([&] { return !prntViewer()->IsBusy(); })) return;
    std::int32_t c = 0;
    std::int32_t p = 0;
    trap.Step([&] { c = prntViewer()->GetCurrentPageNumber(); });
    trap.Step([&] { p = mReport->Report()->NumberOfPages(); });
    const auto enable = [&](std::string_view item, bool enabled) {
        trap.Step([&] { Window().Menu(std::string(item))->SetEnabled(enabled); });
    };
    const auto follow = [&](std::string_view item, std::string_view other) {
        trap.Step([&] {
            const bool enabled = Window().Menu(std::string(other))->Enabled();
            Window().Menu(std::string(item))->SetEnabled(enabled);
        });
    };
    enable("mnNextPage", c != p);
    follow("mnLastPage", "mnNextPage");
    enable("mnFirstPage", c != 1);
    follow("mnPrevPage", "mnFirstPage");
    enable("mnZoomIn", mZoom < Largest);
    enable("mnZoomOut", mZoom > Smallest);
    enable("mnZoom25", mZoom != 25);
    enable("mnZoom50", mZoom != 50);
    enable("mnZoom100", mZoom != 100);
    enable("mnZoom200", mZoom != 200);
    enable("mnZoom400", mZoom != 400);
    for (const auto& [key, item] : ButtonItems) {
        if (item == "mnClose") continue; // never disabled
        trap.Step([&] {
            const bool enabled = Window().Menu(std::string(item))->Enabled();
            Window().ToolbarOf("Toolbar1")->ButtonOf(std::string(key))->SetEnabled(enabled);
        });
    }
}

} // namespace qbrpt
