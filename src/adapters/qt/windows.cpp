#include "adapters/qt/windows.h"

#include "adapters/qt/application.h"
#include "adapters/qt/handles.h"
#include "adapters/qt/host_window.h"
#include "adapters/qt/shown_text.h"
#include "base/utf8.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <cmath>

namespace qbrpt::qt {

namespace {

FormWindow* OwnForm(WindowHandle window) {
    TreeWindow* found = Handles::Table().Find(window);
    return found == nullptr ? nullptr : dynamic_cast<FormWindow*>(found->widget.data());
}

bool IsOurs(WindowHandle window) {
    return window >= FirstHandle;
}

/// Our own handle for an X11 number that stands for one of our forms.
WindowHandle ByOwnHandle(WindowHandle window) {
    if (!ApplicationIsThere()) return window;
    const WindowHandle own = Handles::Table().HandleOf(QWidget::find(window));
    return own == 0 ? window : own;
}

int Scaled(int pixels, double scale) {
    return static_cast<int>(std::lround(pixels * scale));
}

/// The normal rectangle of a place, of logical pixels.
void SetPlace(WindowPlace& place, const QRect& outer, double scale) {
    place.left = Scaled(outer.x(), scale);
    place.top = Scaled(outer.y(), scale);
    place.right = Scaled(outer.x() + outer.width(), scale);
    place.bottom = Scaled(outer.y() + outer.height(), scale);
}

/// Activation would bring a minimised window back.
bool MayComeToTheFront(const FormWindow& form) {
    return !form.isMinimized();
}

} // namespace

bool QtWindows::OnX() {
    return !ApplicationIsThere() || QGuiApplication::platformName() == "xcb";
}

WindowHandle QtWindows::DoGetForegroundWindow() {
    return OnX() ? ByOwnHandle(XcbWindows::DoGetForegroundWindow()) : 0;
}

WindowHandle QtWindows::DoGetParent(WindowHandle window) {
    return IsOurs(window) || !OnX() ? 0 : ByOwnHandle(XcbWindows::DoGetParent(window));
}

bool QtWindows::DoGetWindowPlacement(WindowHandle window, WindowPlace& place) {
    const FormWindow* form = OwnForm(window);
    if (form == nullptr) {
        mHostFrame = {};
        if (IsOurs(window) || !OnX() || !XcbWindows::DoGetWindowPlacement(window, place)) return false;
        mHostFrame = HostFrame(window);
        // The window system does not know where a maximised window stood before, but its toolkit does.
        if (const QWidget* host = QWidget::find(window); host != nullptr && host->isMaximized())
            SetPlace(place, host->normalGeometry().marginsAdded(mHostFrame), host->devicePixelRatio());
        return true;
    }
    place.flags = 0;
    place.showCmd = PlaceCode::Normal;
    if (form->isMaximized()) place.showCmd = PlaceCode::Maximised;
    if (form->isMinimized()) place.showCmd = PlaceCode::Minimised;
    place.minX = place.minY = place.maxX = place.maxY = -1;
    const QRect inner =
        form->isMaximized() || form->isMinimized() ? form->normalGeometry() : form->geometry();
    SetPlace(place, inner.marginsAdded(form->Frame()), form->devicePixelRatio());
    return true;
}

IconHandle QtWindows::DoGetClassIcon(WindowHandle window) {
    return IsOurs(window) || !OnX() ? 0 : XcbWindows::DoGetClassIcon(window);
}

void QtWindows::DoSetIcon(WindowHandle window, IconSize size, IconHandle icon) {
    FormWindow* form = OwnForm(window);
    if (form == nullptr) {
        if (!IsOurs(window) && OnX()) XcbWindows::DoSetIcon(window, size, icon);
        return;
    }
    // All sizes come at once; which of them stands where is the window manager's choice.
    if (const QIcon pictures = HostIcon(icon); !pictures.isNull()) form->setWindowIcon(pictures);
}

std::size_t QtWindows::DoGetWindowTextLength(WindowHandle window) {
    if (const FormWindow* form = OwnForm(window)) return TitleOf(*form).size();
    return IsOurs(window) || !OnX() ? 0 : XcbWindows::DoGetWindowTextLength(window);
}

std::string QtWindows::DoGetWindowText(WindowHandle window, std::size_t size) {
    if (const FormWindow* form = OwnForm(window))
        return std::string(WholeCharacters(TitleOf(*form), size == 0 ? 0 : size - 1));
    return IsOurs(window) || !OnX() ? std::string{} : XcbWindows::DoGetWindowText(window, size);
}

void QtWindows::DoShowWindow(WindowHandle window, ShowCommand command) {
    if (FormWindow* form = OwnForm(window)) return form->setVisible(command == ShowCommand::Show);
    if (IsOurs(window) || !OnX()) return;
    // What Qt has made is hidden through Qt, which would lose count of it otherwise.
    if (QWindow* host = HostQtWindow(window))
        ShowHostQtWindow(*host, command == ShowCommand::Show);
    else
        XcbWindows::DoShowWindow(window, command);
}

void QtWindows::DoMoveWindow(WindowHandle window, std::int32_t left, std::int32_t top, std::int32_t width,
                             std::int32_t height) {
    FormWindow* form = OwnForm(window);
    if (form == nullptr) {
        if (!IsOurs(window) && OnX()) XcbWindows::DoMoveWindow(window, left, top, width, height);
        return;
    }
    const double scale = 1 / form->devicePixelRatio();
    form->PlaceOuter({Scaled(left, scale), Scaled(top, scale), Scaled(width, scale), Scaled(height, scale)},
                     mHostFrame);
}

void QtWindows::DoBringWindowToTop(WindowHandle window) {
    if (FormWindow* form = OwnForm(window)) {
        if (MayComeToTheFront(*form)) form->raise();
    } else if (!IsOurs(window) && OnX()) {
        XcbWindows::DoBringWindowToTop(window);
    }
}

void QtWindows::DoSetActiveWindow(WindowHandle window) {
    if (FormWindow* form = OwnForm(window)) {
        if (MayComeToTheFront(*form)) form->activateWindow();
    } else if (!IsOurs(window) && OnX()) {
        XcbWindows::DoSetActiveWindow(window);
    }
}

void QtWindows::DoSetFocus(WindowHandle window) {
    if (FormWindow* form = OwnForm(window)) {
        if (MayComeToTheFront(*form)) form->setFocus(Qt::ActiveWindowFocusReason);
    } else if (!IsOurs(window) && OnX()) {
        XcbWindows::DoSetFocus(window);
    }
}

std::int32_t QtWindows::DoDoEvents() {
    if (!ApplicationIsThere()) return 0;
    QCoreApplication::processEvents();
    return static_cast<std::int32_t>(Handles::Table().Tops().size());
}

// Ends at the first event: what a wait waits for may come by one.
void QtWindows::DoSleepEx(std::int32_t milliseconds) {
    if (!ApplicationIsThere()) return XcbWindows::DoSleepEx(milliseconds);
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, qApp, [] {});
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace qbrpt::qt
