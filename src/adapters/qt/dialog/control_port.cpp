#include "adapters/qt/dialog/control_port.h"

#include "adapters/qt/twips.h"

#include <QtWidgets/QLayout>

namespace qbrpt::qt {

ControlPlace PlaceOf(const QWidget& widget) {
    const QRect place = widget.geometry();
    return {.left = static_cast<double>(Twips(place.x())),
            .top = static_cast<double>(Twips(place.y())),
            .width = static_cast<double>(Twips(place.width())),
            .height = static_cast<double>(Twips(place.height()))};
}

void PutAt(QWidget& widget, const ControlPlace& place) {
    if (QLayout* grid = widget.parentWidget()->layout()) grid->removeWidget(&widget);
    widget.setGeometry(Pixels(place.left), Pixels(place.top), Pixels(place.width), Pixels(place.height));
}

// Before its window is first shown Qt has every widget hidden.
bool IsHiddenByItself(const QWidget& widget) {
    return widget.isHidden() && widget.testAttribute(Qt::WA_WState_ExplicitShowHide);
}

bool IsToBeSeen(const QWidget& widget) {
    if (widget.isWindow()) return true;
    return !IsHiddenByItself(widget) && IsToBeSeen(*widget.parentWidget());
}

void Focus(QWidget& widget) {
    if (!widget.isEnabled() || !IsToBeSeen(widget))
        throw Failure(FailureNumber::InvalidArgument, "The control cannot take the focus.");
    widget.setFocus(Qt::OtherFocusReason);
}

void FailGone() {
    throw Failure(FailureNumber::ObjectNotSet, "The window of the control is gone.");
}

} // namespace qbrpt::qt
