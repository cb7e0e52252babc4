#include "adapters/window/xcb_windows.h"

#include "adapters/window/top_window.h"
#include "adapters/window/x_session.h"
#include "base/utf8.h"

#include <unistd.h>

#include <chrono>
#include <optional>
#include <thread>

namespace qbrpt {

namespace {

bool IsOfThisProcess(const XSession& session, xcb_window_t window) {
    const auto process = session.Number(window, "_NET_WM_PID", XCB_ATOM_CARDINAL);
    return process && *process == static_cast<std::uint32_t>(::getpid());
}

bool IsTopWindow(const XSession& session, xcb_window_t window) {
    return session.HasProperty(window, "WM_STATE");
}

} // namespace

WindowHandle XcbWindows::DoGetForegroundWindow() {
    const XSession session;
    if (!session.Connected() || !IsManaged(session)) return 0;
    const auto active = session.Number(session.Root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW);
    // The property may name a window that was closed or hidden meanwhile.
    if (!active || *active == XCB_WINDOW_NONE || !session.IsViewable(*active)) return 0;
    return IsOfThisProcess(session, *active) ? *active : 0;
}

WindowHandle XcbWindows::DoGetParent(WindowHandle window) {
    if (window == XCB_WINDOW_NONE) return 0;
    const XSession session;
    if (!session.Connected()) return 0;
    const auto owner = session.Number(window, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW);
    if (owner && *owner != XCB_WINDOW_NONE && *owner != session.Root() && *owner != window) return *owner;
    // The tree parent of a top window is the frame that the window manager has put around it, not an owner.
    if (IsTopWindow(session, window)) return 0;
    constexpr int deepest = 64; // the tree changes while it is climbed: the climb must end all the same
    xcb_window_t holder = session.TreeParent(window);
    for (int depth = 0; depth < deepest && holder != XCB_WINDOW_NONE && holder != session.Root(); ++depth) {
        if (IsTopWindow(session, holder)) return holder;
        holder = session.TreeParent(holder);
    }
    return 0;
}

bool XcbWindows::DoGetWindowPlacement(WindowHandle window, WindowPlace& place) {
    const XSession session;
    const auto found = session.Connected() ? TopWindow(session, window).Where() : std::nullopt;
    if (!found) return false;
    place.flags = 0;
    place.showCmd = PlaceCode::Normal;
    if (found->maximised) place.showCmd = PlaceCode::Maximised;
    if (found->minimised) place.showCmd = PlaceCode::Minimised;
    place.minX = place.minY = place.maxX = place.maxY = -1;
    place.left = found->left - found->frame.left;
    place.top = found->top - found->frame.top;
    place.right = found->left + found->width + found->frame.right;
    place.bottom = found->top + found->height + found->frame.bottom;
    return true;
}

// A window that has an icon stands for it.
IconHandle XcbWindows::DoGetClassIcon(WindowHandle window) {
    const XSession session;
    return session.Connected() && session.HasProperty(window, "_NET_WM_ICON") ? window : 0;
}

void XcbWindows::DoSetIcon(WindowHandle window, IconSize, IconHandle icon) {
    const XSession session;
    if (session.Connected()) TopWindow(session, window).TakeIconOf(icon);
}

std::size_t XcbWindows::DoGetWindowTextLength(WindowHandle window) {
    const XSession session;
    return session.Connected() ? TopWindow(session, window).Title().size() : 0;
}

std::string XcbWindows::DoGetWindowText(WindowHandle window, std::size_t size) {
    const XSession session;
    if (!session.Connected() || size == 0) return {};
    return std::string(WholeCharacters(TopWindow(session, window).Title(), size - 1));
}

void XcbWindows::DoShowWindow(WindowHandle window, ShowCommand command) {
    const XSession session;
    if (!session.Connected() || window == XCB_WINDOW_NONE) return;
    const TopWindow top(session, window);
    if (command == ShowCommand::Hide) {
        // Hidden twice it is remembered as it was before the first time.
        if (const auto before = top.Where()) mHidden.emplace(window, *before);
        top.Withdraw();
    } else {
        const auto before = mHidden.find(window);
        top.Return(before == mHidden.end() ? std::nullopt : std::optional(before->second));
        if (before != mHidden.end()) mHidden.erase(before);
    }
}

void XcbWindows::DoMoveWindow(WindowHandle window, std::int32_t left, std::int32_t top, std::int32_t width,
                              std::int32_t height) {
    const XSession session;
    if (session.Connected()) TopWindow(session, window).MoveTo(left, top, width, height);
}

void XcbWindows::DoBringWindowToTop(WindowHandle window) {
    const XSession session;
    if (session.Connected()) TopWindow(session, window).Raise();
}

void XcbWindows::DoSetActiveWindow(WindowHandle window) {
    const XSession session;
    if (session.Connected()) TopWindow(session, window).Activate();
}

void XcbWindows::DoSetFocus(WindowHandle window) {
    DoSetActiveWindow(window);
}

// A process that shows no windows of its own has no messages to handle.
std::int32_t XcbWindows::DoDoEvents() {
    return 0;
}

void XcbWindows::DoSleepEx(std::int32_t milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

} // namespace qbrpt
