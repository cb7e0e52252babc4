// Foreground and owner windows, as an X server and its window manager tell them.
#pragma once

#include "platform/desktop.h"

namespace qbrpt {

/// Asks the display of the process anew at each call; without a display every answer is 0.
class XcbWindows : public Windows {
private:
    WindowHandle DoGetForegroundWindow() override;
    WindowHandle DoGetParent(WindowHandle window) override;
    bool DoGetWindowPlacement(WindowHandle window, WindowPlace& place) override;
    IconHandle DoGetClassIcon(WindowHandle window) override;
    void DoSetIcon(WindowHandle window, IconSize size, IconHandle icon) override;
    std::size_t DoGetWindowTextLength(WindowHandle window) override;
    std::string DoGetWindowText(WindowHandle window, std::size_t size) override;
    void DoShowWindow(WindowHandle window, ShowCommand command) override;
    void DoMoveWindow(WindowHandle window, std::int32_t left, std::int32_t top, std::int32_t width,
                      std::int32_t height) override;
    void DoBringWindowToTop(WindowHandle window) override;
    void DoSetActiveWindow(WindowHandle window) override;
    void DoSetFocus(WindowHandle window) override;
    std::int32_t DoDoEvents() override;
    void DoSleepEx(std::int32_t milliseconds) override;
};

} // namespace qbrpt
