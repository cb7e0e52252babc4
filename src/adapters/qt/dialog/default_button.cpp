#include "adapters/qt/dialog/default_button.h"

#include <QtWidgets/QPushButton>

#include <utility>

namespace qbrpt::qt {

void DefaultButton::Set(QAbstractButton& button, bool isDefault) {
    if (!isDefault && mDefault != &button) return;
    const QPointer<QAbstractButton> before = std::exchange(mDefault, isDefault ? &button : nullptr);
    if (before) before->update();
    button.update();
}

bool DefaultButton::IsOn(const QAbstractButton& button) const {
    const QWidget* focused = button.window()->focusWidget();
    const bool another = qobject_cast<const QPushButton*>(focused) != nullptr;
    return another ? focused == &button : mDefault == &button;
}

bool DefaultButton::CanPress(const QAbstractButton* button) {
    return button != nullptr && button->isEnabled() && button->isVisible();
}

bool DefaultButton::Answer(int key) const {
    QAbstractButton* button = nullptr;
    if (key == Qt::Key_Return || key == Qt::Key_Enter) button = mDefault;
    if (key == Qt::Key_Escape) button = mCancel;
    if (!CanPress(button)) return false;
    button->click();
    return true;
}

} // namespace qbrpt::qt
