// Windows of the host, as Qt knows them: its own, or those that another toolkit has made.
#pragma once

#include "platform/windows.h"

#include <QtCore/QMargins>
#include <QtGui/QIcon>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

namespace qbrpt::qt {

/// The host's window of this number, if it has made it with Qt; else null.
[[nodiscard]] QWindow* HostQtWindow(WindowHandle window);

/// Hides a host's window, or shows it where and as it was.
void ShowHostQtWindow(QWindow& window, bool show);

/// Has a dialog without a parent stand over the host's window in front.
void StandOverHost(QWidget& dialog);

/// How wide the frame of a host's window is, in logical pixels.
[[nodiscard]] QMargins HostFrame(WindowHandle window);

/// The icon of a host's window, of any toolkit.
[[nodiscard]] QIcon HostIcon(IconHandle window);

} // namespace qbrpt::qt
