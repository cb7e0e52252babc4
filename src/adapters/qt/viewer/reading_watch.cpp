#include "adapters/qt/viewer/reading_watch.h"

#include "base/failure.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QKeyEvent>

namespace qbrpt::viewer {

namespace {

constexpr qint64 MillisecondsALook = 50;

} // namespace

ReadingWatch::ReadingWatch() {
    mSinceLook.start();
    QCoreApplication::instance()->installEventFilter(this);
}

ReadingWatch::~ReadingWatch() {
    QCoreApplication::instance()->removeEventFilter(this);
}

void ReadingWatch::Look() {
    if (mSinceLook.elapsed() < MillisecondsALook) return;
    QCoreApplication::processEvents();
    mSinceLook.restart();
    if (mStopped) throw Failure(FailureNumber::Cancelled, "The reading of the report was stopped.");
}

bool ReadingWatch::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) mStopped = true;
        return true;
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::Drop:
        return true;
    case QEvent::Close:
        event->ignore();
        return true;
    default:
        return false;
    }
}

} // namespace qbrpt::viewer
