#include "adapters/qt/screen.h"

#include "adapters/qt/application.h"

#include <QtGui/QCursor>
#include <QtWidgets/QApplication>

namespace qbrpt::qt {

void QtScreen::DoSetMousePointer(Pointer pointer) {
    // Without an application there is no window yet over which a pointer could stand.
    if (!ApplicationIsThere()) return;
    if (pointer == Pointer::Default) {
        if (mSet) QGuiApplication::restoreOverrideCursor();
        mSet = false;
        return;
    }
    const QCursor cursor(pointer == Pointer::ArrowHourglass ? Qt::BusyCursor : Qt::WaitCursor);
    if (mSet)
        QGuiApplication::changeOverrideCursor(cursor);
    else
        QGuiApplication::setOverrideCursor(cursor);
    mSet = true;
}

void QtScreen::DoBeep() {
    if (ApplicationIsThere()) QApplication::beep();
}

UsualPointer::UsualPointer() : mSet(QGuiApplication::overrideCursor() != nullptr) {
    if (mSet) QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
}

UsualPointer::~UsualPointer() {
    if (mSet) QGuiApplication::restoreOverrideCursor();
}

} // namespace qbrpt::qt
