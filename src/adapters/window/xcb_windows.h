// Windows of the process by their X11 numbers, whatever toolkit has made them.
#pragma once

#include "adapters/window/top_window.h"
#include "platform/windows.h"

#include <map>

namespace qbrpt {

/// Asks the display of the process anew at each call; without a display every answer is 0, and nothing is
/// done.
class XcbWindows : public Windows {
protected:
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

private:
    std::map<WindowHandle, TopWindow::Place> mHidden; ///< as they stood before they were hidden
};

} // namespace qbrpt
