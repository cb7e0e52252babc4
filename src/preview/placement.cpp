// The preview window takes the place of the host's window, and remembers where it stood.
#include "base/numbers.h"
#include "platform/platform.h"
#include "platform/registry.h"
#include "platform/window_tree.h"
#include "preview/frmPrntServer.h"
#include "support/error_trap.h"
#include "support/owner_window.h"
#include "support/words.h"

#include <cstring>
#include <string>
#include <vector>

namespace qbrpt {

namespace {

constexpr const char* PlaceKey = ".Default\\Software\\Tollmere\\Printing";
constexpr const char* PlaceName = "Window Place";
constexpr std::int32_t PlaceSize = sizeof(WindowPlace);
/// Whatever the screen's own ratio is.
constexpr double TwipsAPixel = 15;

std::string TitleOf(WindowHandle window) {
    Windows& windows = *Platform::Current().windows;
    const std::size_t length = windows.GetWindowTextLength(window);
    return length == 0 ? std::string{} : windows.GetWindowText(window, length + 1);
}

} // namespace

void frmPrntServer::LoadLastPos() {
    ErrorTrap trap(ErrorTrap::BoxWithRetry, {.prefix = "LoadLastPos\r\n"});
    WindowPlace place;
    if (hOwnerWnd != 0) {
        trap.Step(
            [&] { static_cast<void>(Platform::Current().windows->GetWindowPlacement(hOwnerWnd, place)); });
    } else {
        std::vector<std::uint8_t> data;
        const bool found = trap.Test([&] {
            return Platform::Current().registry->ReadValue(HKEY_USERS, PlaceKey, PlaceName, data,
                                                           RegistryBinary);
        });
        if (!found || data.size() != sizeof place) return;
        // With no host window the preview stays where it opens: what was read is never applied.
        std::memcpy(&place, data.data(), sizeof place);
    }
    WindowHandle me = 0;
    trap.Step([&] { me = Window().hWnd(); });
    if (hOwnerWnd != 0 && hOwnerWnd != me) TakePlaceOf(trap, hOwnerWnd, me, place);
}

void frmPrntServer::TakePlaceOf(ErrorTrap& trap, WindowHandle host, WindowHandle me,
                                const WindowPlace& place) {
    // An owned window would be hidden with its owner.
    if (trap.Test([&] { return Platform::Current().tree->GetWindow(me, WindowRelation::Owner) != 0; }))
        trap.Step([&] { Platform::Current().tree->SetWindowLong(me, WindowLong::Owner, 0); });
    const Ref<Windows>& windows = Platform::Current().windows;
    IconHandle icon = 0;
    trap.Step([&] { icon = windows->GetClassIcon(host); });
    if (icon != 0) {
        trap.Step([&] { windows->SetIcon(me, IconSize::Large, icon); });
        trap.Step([&] { windows->SetIcon(me, IconSize::Small, icon); });
    }
    std::string title;
    trap.Step([&] { title = TitleOf(host); });
    trap.Step([&] {
        windows->ShowWindow(host, ShowCommand::Hide);
        mHiddenHost = host;
    });
    trap.Step([&] { mLeft = RoundToLong(place.left * TwipsAPixel); });
    trap.Step([&] { mTop = RoundToLong(place.top * TwipsAPixel); });
    trap.Step([&] {
        const Rect normal{place.left, place.top, place.right, place.bottom};
        windows->MoveWindow(me, normal.left, normal.top, RectWidth(normal), RectHeight(normal));
    });
    if (place.showCmd == PlaceCode::Maximised)
        trap.Step([&] { Window().SetState(WindowState::Maximized); });
    else if (place.showCmd == PlaceCode::Minimised)
        trap.Step([&] { Window().SetState(WindowState::Minimized); });
    trap.Step([&] {
        Window().SetCaption(title.empty() ? std::string("Printing") : TrimAtNul(title) + " [Printing]");
    });
    if (!trap.Left()) mFirstResize = true;
}

void frmPrntServer::SavePos() {
    ErrorTrap trap(ErrorTrap::BoxWithRetry, {.prefix = "SavePos\r\n"});
    WindowPlace place;
    place.length = PlaceSize;
    if (!trap.Test([&] { return Platform::Current().windows->GetWindowPlacement(Window().hWnd(), place); }))
        return;
    trap.Step([&] {
        const std::vector<std::uint8_t> bytes = BytesFromMemory(&place, PlaceSize);
        const std::string data(bytes.begin(), bytes.end());
        Platform::Current().registry->WriteValue(HKEY_USERS, PlaceKey, PlaceName, data, RegistryBinary);
    });
}

} // namespace qbrpt
