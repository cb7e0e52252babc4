#include "platform/windows.h"

namespace qbrpt {

namespace {

constexpr std::string_view PortName = "Windows";

} // namespace

WindowHandle Windows::GetForegroundWindow() {
    Announce(PortName, "GetForegroundWindow");
    return DoGetForegroundWindow();
}

WindowHandle Windows::GetParent(WindowHandle window) {
    Announce(PortName, "GetParent", {Number(window)});
    return DoGetParent(window);
}

bool Windows::GetWindowPlacement(WindowHandle window, WindowPlace& place) {
    Announce(PortName, "GetWindowPlacement", {Number(window), Number(place.length)});
    return DoGetWindowPlacement(window, place);
}

IconHandle Windows::GetClassIcon(WindowHandle window) {
    Announce(PortName, "GetClassIcon", {Number(window)});
    return DoGetClassIcon(window);
}

void Windows::SetIcon(WindowHandle window, IconSize size, IconHandle icon) {
    Announce(PortName, "SetIcon", {Number(window), Number(size), Number(icon)});
    DoSetIcon(window, size, icon);
}

std::size_t Windows::GetWindowTextLength(WindowHandle window) {
    Announce(PortName, "GetWindowTextLength", {Number(window)});
    return DoGetWindowTextLength(window);
}

std::string Windows::GetWindowText(WindowHandle window, std::size_t size) {
    Announce(PortName, "GetWindowText", {Number(window), Number(size)});
    return DoGetWindowText(window, size);
}

void Windows::ShowWindow(WindowHandle window, ShowCommand command) {
    Announce(PortName, "ShowWindow", {Number(window), Number(command)});
    DoShowWindow(window, command);
}

void Windows::MoveWindow(WindowHandle window, std::int32_t left, std::int32_t top, std::int32_t width,
                         std::int32_t height) {
    Announce(PortName, "MoveWindow",
             {Number(window), Number(left), Number(top), Number(width), Number(height)});
    DoMoveWindow(window, left, top, width, height);
}

void Windows::BringWindowToTop(WindowHandle window) {
    Announce(PortName, "BringWindowToTop", {Number(window)});
    DoBringWindowToTop(window);
}

void Windows::SetActiveWindow(WindowHandle window) {
    Announce(PortName, "SetActiveWindow", {Number(window)});
    DoSetActiveWindow(window);
}

void Windows::SetFocus(WindowHandle window) {
    Announce(PortName, "SetFocus", {Number(window)});
    DoSetFocus(window);
}

std::int32_t Windows::DoEvents() {
    Announce(PortName, "DoEvents");
    return DoDoEvents();
}

void Windows::SleepEx(std::int32_t milliseconds) {
    Announce(PortName, "SleepEx", {Number(milliseconds)});
    DoSleepEx(milliseconds);
}

} // namespace qbrpt
