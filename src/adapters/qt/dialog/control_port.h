// What all controls have in common as widgets.
#pragma once

#include "adapters/qt/handles.h"
#include "base/failure.h"
#include "platform/controls.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace qbrpt::qt {

/// Where a widget stands in its container, in twips.
[[nodiscard]] ControlPlace PlaceOf(const QWidget& widget);
/// Takes a widget out of its container's rows and columns and puts it at `place`.
void PutAt(QWidget& widget, const ControlPlace& place);
[[nodiscard]] bool IsHiddenByItself(const QWidget& widget);
/// Whether nobody has hidden the widget or what it stands in; its window need not be shown yet.
[[nodiscard]] bool IsToBeSeen(const QWidget& widget);
/// Raises InvalidArgument for a widget that is disabled or not to be seen.
void Focus(QWidget& widget);
[[noreturn]] void FailGone();

/// The port over a control's widget, which goes with its window.
template <class Kind, class Widget>
class ControlOver : public Kind {
public:
    explicit ControlOver(Widget& widget) : mWidget(&widget) {}

protected:
    [[nodiscard]] Widget& Shown() const {
        if (mWidget.isNull()) FailGone();
        return *static_cast<Widget*>(mWidget.data());
    }

private:
    [[nodiscard]] WindowHandle DohWnd() const override { return Handles::Table().HandleOf(mWidget.data()); }
    [[nodiscard]] bool DoEnabled() const override { return Shown().isEnabledTo(Shown().parentWidget()); }
    void DoSetEnabled(bool enabled) override { Shown().setEnabled(enabled); }
    [[nodiscard]] bool DoVisible() const override { return !IsHiddenByItself(Shown()); }
    void DoSetVisible(bool visible) override { Shown().setVisible(visible); }
    [[nodiscard]] ControlPlace DoPlace() const override { return PlaceOf(Shown()); }
    void DoMove(const ControlPlace& place) override { PutAt(Shown(), place); }
    void DoZOrder() override { Shown().raise(); }
    void DoSetFocus() override { Focus(Shown()); }

    QPointer<QWidget> mWidget;
};

} // namespace qbrpt::qt
