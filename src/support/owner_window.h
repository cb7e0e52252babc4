// The host's top window, remembered when it handed over its database.
#pragma once

#include "platform/desktop.h"

namespace qbrpt {

/// Owner of the windows of this process; 0 until a database was set, and where no window was in front.
inline WindowHandle hOwnerWnd = 0;

} // namespace qbrpt
