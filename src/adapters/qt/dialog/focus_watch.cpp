#include "adapters/qt/dialog/focus_watch.h"

#include <QtCore/QEvent>
#include <QtWidgets/QWidget>

#include <utility>

namespace qbrpt::qt {

FocusWatch::FocusWatch(std::function<void(const std::string& name)> gotFocus)
    : mGotFocus(std::move(gotFocus)) {}

void FocusWatch::Add(QWidget& widget, const std::string& name) {
    QWidget* keys = widget.focusProxy() == nullptr ? &widget : widget.focusProxy();
    mNames[keys] = name;
    keys->installEventFilter(this);
}

bool FocusWatch::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::FocusIn) return false;
    const std::string name = mNames.value(watched);
    if (std::exchange(mFocused, name) == name) return false;
    // The control itself first: it would select what it likes behind the rules' back.
    static_cast<void>(watched->event(event));
    mGotFocus(name);
    return true;
}

} // namespace qbrpt::qt
