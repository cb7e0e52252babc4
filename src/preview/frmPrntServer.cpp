#include "preview/frmPrntServer.h"

#include "platform/platform.h"
#include "preview/print_server_table.h"
#include "support/error_trap.h"
#include "support/mirroring.h"
#include "support/owner_window.h"

#include <algorithm>
#include <memory>

namespace qbrpt {

namespace {

constexpr std::string_view ShowBox = "ShowpReport\r";

std::unique_ptr<frmPrntServer>& TheInstance() {
    static std::unique_ptr<frmPrntServer> instance;
    return instance;
}

void SetPointer(Pointer pointer) {
    Platform::Current().screen->SetMousePointer(pointer);
}

} // namespace

frmPrntServer& frmPrntServer::Instance() {
    auto& instance = TheInstance();
    if (!instance) instance = std::make_unique<frmPrntServer>();
    return *instance;
}

bool frmPrntServer::Exists() {
    return TheInstance() != nullptr;
}

void frmPrntServer::Drop() {
    if (Exists() && !TheInstance()->mOpen) TheInstance().reset();
}

Form& frmPrntServer::Window() {
    if (mForm.Empty()) {
        mForm = Platform::Current().forms->Load(PrintServerTable(), *this);
        mClosed = false;
        Load();
    }
    return *mForm;
}

void frmPrntServer::Load() {
    ErrorTrap trap(ErrorTrap::SilentGoOn);
    trap.Step([&] { mForm->ToolbarOf("Toolbar1")->ButtonOf("prev")->SetEnabled(false); });
    trap.Step([&] { mForm->ToolbarOf("Toolbar1")->ButtonOf("first")->SetEnabled(false); });
    trap.Step([&] { mForm->ToolbarOf("Toolbar1")->ButtonOf("zoom100")->SetValue(1); });
    mZoom = 100;
    mGuestMode = false;
    vReceiver.clear();
    rcvCount = 0;
}

// Whatever refuses on the way: the window goes and the host's comes back.
void frmPrntServer::Unload() {
    ErrorTrap trap(ErrorTrap::BoxThenGoOn);
    const bool loaded = !mForm.Empty();
    if (loaded) trap.Step([&] { mForm->Unload(); });
    if (loaded && !mClosed) QueryUnload();
    if (mHiddenHost != 0) trap.Step([&] { ShowHost(mHiddenHost); });
    mForm.Clear();
}

void frmPrntServer::ShowHost(WindowHandle host) {
    Platform::Current().windows->ShowWindow(host, ShowCommand::Show);
    if (host == mHiddenHost) mHiddenHost = 0;
}

bool frmPrntServer::RefusesAnother(ErrorTrap& trap) {
    if (!Exists() || !TheInstance()->mOpen) return false;
    trap.Step(
        [] { throw Failure(FailureNumber::Report, "A report is open already. Close its window first."); });
    return true;
}

bool frmPrntServer::ShowpReport(const Ref<ReportTemplate>& pnRpt, bool bShowArabic) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry, {.prefix = ShowBox});
    if (RefusesAnother(trap)) return false;
    mOpen = true;
    const bool closedWell = ShowAsOpen(trap, pnRpt, bShowArabic);
    mOpen = false;
    return closedWell;
}

bool frmPrntServer::ShowAsOpen(ErrorTrap& trap, Ref<ReportTemplate> pnRpt, bool bShowArabic) {
    trap.Step([] { SetPointer(Pointer::Wait); });
    mArabic = bShowArabic;
    if (mArabic) {
        trap.Step([&] { MirrorWindow(Window().hWnd(), false, false); });
    } else {
        trap.Step([&] { Window().SetRightToLeft(false); });
        trap.Step([&] { UnmirrorWindow(Window().hWnd()); });
        trap.Step([&] { SetEnglishCaptions(); });
    }
    mReport = pnRpt;
    trap.Step([&] { prntViewer()->SetReportSource(mReport->Report()); });
    trap.Step([&] { static_cast<void>(WaitViewerReady()); });
    trap.Step([&] { RefreshReportprinter(); });
    trap.Step([&] { prntViewer()->ViewReport(mArabic); });
    trap.Step([&] { static_cast<void>(WaitViewerReady()); });
    trap.Step([&] { UpdateViewCommands(); });
    trap.Step([&] { LoadLastPos(); });
    trap.Step([] { SetPointer(Pointer::Default); });
    trap.Step([&] { Window().ShowModal(); });

    const bool closedWell = !trap.Left();
    trap.Always([] { SetPointer(Pointer::Default); });
    mReport.Clear();
    Unload();
    return closedWell;
}

void frmPrntServer::ShowGuestInfo(const Ref<ReportTemplate>& pnRpt, const ReceiverRows& receivers,
                                  std::int16_t count, bool bShow, bool bArabic) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    if (RefusesAnother(trap)) return;
    mOpen = true;
    trap.Step([&] { static_cast<void>(Window()); });
    mGuestMode = true;
    vReceiver = receivers;
    rcvCount = count;
    mReport = pnRpt;
    mReceiverIndex = 0;
    trap.Step([&] { UpdateInfoData(); });
    trap.Step([&] { RefreshReportprinter(); });
    if (bShow)
        trap.Step([&] {
            ErrorTrap shows(ErrorTrap::BoxWithRetry, {.prefix = ShowBox});
            static_cast<void>(ShowAsOpen(shows, pnRpt, bArabic));
        });
    else
        trap.Step([&] { PrintData(false); });
    mReport.Clear();
    Unload();
    mGuestMode = false;
    mOpen = false;
    trap.Always([] { SetPointer(Pointer::Default); });
}

void frmPrntServer::SetEnglishCaptions() {
    for (const EnglishWord& caption : EnglishCaptions())
        Window().Menu(std::string(caption.name))->SetCaption(std::string(caption.word));
    const Ref<Toolbar> bar = Window().ToolbarOf("Toolbar1");
    const std::int16_t count = bar->ButtonCount();
    std::vector<std::int16_t> images;
    for (std::int16_t button = 1; button <= count; ++button) {
        const Ref<ToolbarButton> shown = bar->Buttons(button);
        const ButtonStyle style = shown->Style();
        const bool hasImage = style != ButtonStyle::Separator && style != ButtonStyle::Placeholder;
        images.push_back(hasImage ? shown->Image() : std::int16_t{-1});
    }
    bar->SetImageList("ImageList2");
    // Another list takes the pictures off the buttons.
    for (std::int16_t button = 1; button <= count; ++button) {
        const std::int16_t image = images[static_cast<std::size_t>(button) - 1];
        if (image != -1) bar->Buttons(button)->SetImage(image);
    }
    for (const EnglishWord& tip : EnglishToolTips())
        bar->ButtonOf(std::string(tip.name))->SetToolTipText(std::string(tip.word));
}

void frmPrntServer::Resize() {
    HandleEvent([&] {
        constexpr std::int32_t leastHeight = 200;
        const std::int32_t h = Window().ToolbarOf("Toolbar2")->Height();
        const std::int32_t width = Window().ScaleWidth();
        prntViewer()->Move(0, h, width, std::max(Window().ScaleHeight() - h, leastHeight));
        if (mFirstResize) FinishPlacement();
        PlaceToolbar();
    });
}

void frmPrntServer::FinishPlacement() {
    mFirstResize = false;
    if (Window().State() != WindowState::Maximized) Window().Move(mLeft, mTop);
    Windows& windows = *Platform::Current().windows;
    const WindowHandle me = Window().hWnd();
    windows.BringWindowToTop(me);
    windows.SetActiveWindow(me);
    windows.SetFocus(me);
}

void frmPrntServer::PlaceToolbar() {
    constexpr std::int32_t top = 2;
    const std::int32_t width = Window().ScaleWidth();
    if (width == 0) return;
    const Ref<Toolbar> bar = Window().ToolbarOf("Toolbar1");
    bar->Move(mArabic ? width - bar->Width() : 0, top);
    bar->ZOrder();
}

// The host comes back whatever happened to the saving of the place, also by the window that it was hidden in
// where it has handed over another one since.
void frmPrntServer::QueryUnload() {
    mClosed = true;
    SavePos();
    HandleEvent([&] {
        if (hOwnerWnd != 0) ShowHost(hOwnerWnd);
    });
    HandleEvent([&] {
        if (mHiddenHost != 0 && mHiddenHost != hOwnerWnd) ShowHost(mHiddenHost);
    });
}

void frmPrntServer::Click(const std::string& name) {
    HandleEvent([&] { RunCommand(name); });
}

void frmPrntServer::ButtonClick(const std::string& key) {
    HandleEvent([&] { RunButton(key); });
}

void frmPrntServer::PageChanged() {
    UpdateViewCommands();
}

} // namespace qbrpt
