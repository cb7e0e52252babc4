// Foreground and owner windows, as an X server and its window manager tell them.
#pragma once

#include "platform/desktop.h"

namespace qbrpt {

/// Asks the display of the process anew at each call; without a display every answer is 0.
class XcbWindows : public Windows {
private:
    WindowHandle DoGetForegroundWindow() override;
    WindowHandle DoGetParent(WindowHandle window) override;
};

} // namespace qbrpt
