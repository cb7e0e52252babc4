// Command buttons, option buttons and check boxes.
#pragma once

#include "adapters/qt/control_events.h"
#include "adapters/qt/dialog/built_control.h"
#include "adapters/qt/dialog/default_button.h"
#include "base/ref.h"
#include "platform/forms.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>

#include <memory>

namespace qbrpt::qt {

class PushButton final : public QPushButton {
public:
    PushButton(QWidget* parent, const QString& caption, std::shared_ptr<DefaultButton> defaults);
    [[nodiscard]] DefaultButton& Defaults() const { return *mDefaults; }

private:
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    std::shared_ptr<DefaultButton> mDefaults;
};

/// `Toggle` is QCheckBox or QRadioButton: a mark where reading begins, and its caption beside it.
template <class Toggle>
class MarkedToggle final : public Toggle {
public:
    MarkedToggle(QWidget* parent, const QString& caption);

private:
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    [[nodiscard]] bool hitButton(const QPoint& place) const override;
    void paintEvent(QPaintEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

[[nodiscard]] BuiltControl BuildPushButton(QWidget& parent, const ControlRow& row,
                                           const ControlEvents& events,
                                           const std::shared_ptr<DefaultButton>& defaults);
/// A check box tells of each switch, an option button of being switched on.
[[nodiscard]] BuiltControl BuildToggle(QWidget& parent, const ControlRow& row, const ControlEvents& events);

} // namespace qbrpt::qt
