#include "adapters/qt/host_window.h"

#include "adapters/window/top_window.h"
#include "adapters/window/window_icon.h"
#include "adapters/window/xcb_windows.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QImage>

namespace qbrpt::qt {

QWindow* HostQtWindow(WindowHandle window) {
    if (window == 0) return nullptr;
    for (QWindow* top : QGuiApplication::topLevelWindows()) {
        // Asking one that has no number yet for it would make it.
        if (top->handle() != nullptr && top->type() != Qt::ForeignWindow && top->winId() == window)
            return top;
    }
    return nullptr;
}

void ShowHostQtWindow(QWindow& window, bool show) {
    // A widget keeps count of its window's state; a window by itself stands for all others.
    QWidget* widget = QWidget::find(window.winId());
    if (!show) {
        if (widget != nullptr) return widget->hide();
        return window.hide();
    }
    // Else the window manager would find a new place for it, at least where it had found the first one.
    if ((window.windowStates() & (Qt::WindowMaximized | Qt::WindowFullScreen)) == 0)
        window.setGeometry(window.geometry());
    if (widget != nullptr)
        widget->show();
    else
        window.show();
    if ((window.windowStates() & Qt::WindowMinimized) == 0) {
        window.raise();
        window.requestActivate();
    }
}

void StandOverHost(QWidget& dialog) {
    if (QGuiApplication::platformName() != "xcb") return;
    const WindowHandle host = XcbWindows().GetForegroundWindow();
    if (host == 0) return;
    dialog.winId(); // so that it has a window to be told of
    QWindow* owner = HostQtWindow(host);
    // The foreign window is only a name for the host's; nothing is ever done to it.
    if (owner == nullptr) {
        owner = QWindow::fromWinId(host);
        QObject::connect(&dialog, &QObject::destroyed, owner, &QObject::deleteLater);
    }
    dialog.windowHandle()->setTransientParent(owner);
}

QMargins HostFrame(WindowHandle window) {
    const XSession session;
    const auto place = session.Connected() ? TopWindow(session, window).Where() : std::nullopt;
    if (!place) return {};
    const TopWindow::Frame& frame = place->frame;
    const qreal ratio = qGuiApp ? qGuiApp->devicePixelRatio() : 1; // a host of another toolkit may have none
    return QMargins(frame.left, frame.top, frame.right, frame.bottom) / ratio;
}

QIcon HostIcon(IconHandle window) {
    QIcon icon;
    for (const IconPicture& picture : IconPicturesOf(window)) {
        const QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width,
                           picture.height, QImage::Format_ARGB32);
        icon.addPixmap(QPixmap::fromImage(image.copy()));
    }
    return icon;
}

} // namespace qbrpt::qt
