#include "adapters/window/xcb_windows.h"

#include "adapters/window/x_session.h"

#include <unistd.h>

namespace qbrpt {

namespace {

/// Whether a window manager is running: one that has gone leaves its properties behind on the root.
bool IsManaged(const XSession& session) {
    constexpr std::string_view check = "_NET_SUPPORTING_WM_CHECK";
    const auto manager = session.Number(session.Root(), check, XCB_ATOM_WINDOW);
    return manager && session.Number(*manager, check, XCB_ATOM_WINDOW) == manager;
}

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

bool XcbWindows::DoGetWindowPlacement(WindowHandle, WindowPlace&) {
    return false;
}

IconHandle XcbWindows::DoGetClassIcon(WindowHandle) {
    return 0;
}

void XcbWindows::DoSetIcon(WindowHandle, IconSize, IconHandle) {}

std::size_t XcbWindows::DoGetWindowTextLength(WindowHandle) {
    return 0;
}

std::string XcbWindows::DoGetWindowText(WindowHandle, std::size_t) {
    return {};
}

void XcbWindows::DoShowWindow(WindowHandle, ShowCommand) {}

void XcbWindows::DoMoveWindow(WindowHandle, std::int32_t, std::int32_t, std::int32_t, std::int32_t) {}

void XcbWindows::DoBringWindowToTop(WindowHandle) {}

void XcbWindows::DoSetActiveWindow(WindowHandle) {}

void XcbWindows::DoSetFocus(WindowHandle) {}

std::int32_t XcbWindows::DoDoEvents() {
    return 0;
}

void XcbWindows::DoSleepEx(std::int32_t) {}

} // namespace qbrpt
