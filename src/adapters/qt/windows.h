// Windows by their handles: our forms by their own, the host's by their X11 numbers.
#pragma once

#include "adapters/qt/form_window.h"
#include "adapters/window/xcb_windows.h"

#include <QtCore/QMargins>

namespace qbrpt::qt {

class QtWindows final : public XcbWindows {
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

    /// Whether X11 is spoken at all; elsewhere a host's windows are nobody's business.
    [[nodiscard]] static bool OnX();

    QMargins mHostFrame; ///< in logical pixels, of the host's window that was last looked at
};

} // namespace qbrpt::qt
