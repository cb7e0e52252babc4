#include "service/host_session.h"

#include "base/numbers.h"
#include "platform/desktop.h"
#include "platform/platform.h"
#include "platform/printing.h"
#include "support/owner_window.h"

namespace qbrpt {

std::int16_t PrinterCount() {
    return CheckedShort(Platform::Current().printers->Count());
}

void FindOwnerWindow() {
    Windows& windows = *Platform::Current().windows;
    hOwnerWnd = windows.GetForegroundWindow();
    if (windows.GetParent(hOwnerWnd) != 0) hOwnerWnd = windows.GetParent(hOwnerWnd);
}

} // namespace qbrpt
