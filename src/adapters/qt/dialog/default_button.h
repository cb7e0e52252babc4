// Which buttons of a form answer to the enter and escape keys.
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QAbstractButton>

namespace qbrpt::qt {

/// A button that has the focus answers to the enter key itself; the default button does so otherwise.
class DefaultButton {
public:
    void Set(QAbstractButton& button, bool isDefault);
    void SetCancel(QAbstractButton& button) { mCancel = &button; }

    /// Whether `button` answers to the enter key now.
    [[nodiscard]] bool IsOn(const QAbstractButton& button) const;
    /// Whether the default button can be pressed now.
    [[nodiscard]] bool CanAnswer() const { return CanPress(mDefault); }
    /// Presses the button that answers to `key`; false where none does.
    bool Answer(int key) const;

private:
    [[nodiscard]] static bool CanPress(const QAbstractButton* button);

    QPointer<QAbstractButton> mDefault;
    QPointer<QAbstractButton> mCancel;
};

} // namespace qbrpt::qt
