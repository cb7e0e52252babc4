#include "adapters/qt/dialog/buttons.h"

#include "adapters/qt/caption_painter.h"
#include "adapters/qt/dialog/control_port.h"
#include "adapters/qt/dialog/painting.h"
#include "adapters/qt/shown_text.h"

#include <QtGui/QKeyEvent>

#include <algorithm>
#include <type_traits>

namespace qbrpt::qt {

namespace {

constexpr int ButtonPadding = 14;
constexpr int MarkGap = 8;
constexpr int FocusRoom = 3;

QString WithoutMarks(QString caption) {
    return caption.remove('&');
}

int WidthOf(const QWidget& widget, const QString& caption, bool bold) {
    QFont font = widget.font();
    font.setBold(bold);
    return QFontMetrics(font).horizontalAdvance(WithoutMarks(caption));
}

class PushPort final : public ControlOver<CommandButton, PushButton> {
public:
    using ControlOver::ControlOver;

private:
    void DoSetDefault(bool isDefault) override { Shown().Defaults().Set(Shown(), isDefault); }
};

class TogglePort final : public ControlOver<ToggleControl, QAbstractButton> {
public:
    using ControlOver::ControlOver;

private:
    [[nodiscard]] bool DoValue() const override { return Shown().isChecked(); }
    void DoSetValue(bool on) override {
        const bool exclusive = Shown().autoExclusive();
        if (!on) Shown().setAutoExclusive(false); // the one that is on could not be switched off
        Shown().setChecked(on);
        Shown().setAutoExclusive(exclusive);
    }
};

/// The tab key lands on the option of a group that is on; the arrow keys go from one to the next.
void KeepOneTabStop(const QWidget& option) {
    const auto options = option.parentWidget()->findChildren<QRadioButton*>(Qt::FindDirectChildrenOnly);
    const bool anyOn = std::any_of(options.begin(), options.end(),
                                   [](const QRadioButton* button) { return button->isChecked(); });
    for (QRadioButton* button : options)
        button->setFocusPolicy(button->isChecked() || !anyOn ? Qt::StrongFocus : Qt::ClickFocus);
}

void PaintRoundMark(QPainter& painter, const QRect& mark, bool on, bool enabled, Edge edge) {
    const QRgb strong = enabled ? DialogColor::Accent : DialogColor::Faint;
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal width = edge == Edge::Strong || on ? 2 : 1;
    painter.setPen(QPen(QColor(edge == Edge::Strong || on ? strong : DialogColor::Border), width));
    painter.setBrush(QColor(enabled ? DialogColor::Field : DialogColor::ReadOnly));
    painter.drawEllipse(QRectF(mark).adjusted(width / 2, width / 2, -width / 2, -width / 2));
    if (!on) return;
    constexpr qreal dot = 4.5;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(strong));
    painter.drawEllipse(QRectF(mark).adjusted(dot, dot, -dot, -dot));
}

void PaintSquareMark(QPainter& painter, const QRect& mark, bool on, bool enabled, Edge edge) {
    PaintBox(painter, mark, enabled ? DialogColor::Field : DialogColor::ReadOnly, edge);
    if (on) PaintTick(painter, mark, enabled ? DialogColor::Accent : DialogColor::Faint);
}

} // namespace

PushButton::PushButton(QWidget* parent, const QString& caption, std::shared_ptr<DefaultButton> defaults)
    : QPushButton(caption, parent), mDefaults(std::move(defaults)) {
    setAutoDefault(false);
    setFixedHeight(DialogMeasure::Button);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAttribute(Qt::WA_Hover);
    setAccessibleName(WithoutMarks(caption));
}

QSize PushButton::sizeHint() const {
    const int wide = WidthOf(*this, text(), true) + 2 * ButtonPadding;
    return {std::max(wide, DialogMeasure::ButtonWidth), DialogMeasure::Button};
}

void PushButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool answers = isEnabled() && mDefaults->IsOn(*this);
    QRgb ground = isEnabled() ? DialogColor::Field : DialogColor::Pane;
    if (isEnabled() && underMouse()) ground = DialogColor::Hot;
    if (isDown()) ground = DialogColor::Down;
    PaintBox(painter, rect(), ground, !isEnabled() ? Edge::Faint : answers ? Edge::Strong : Edge::Plain);
    QFont face = font();
    face.setBold(answers);
    painter.setFont(face);
    painter.setPen(QColor(isEnabled() ? DialogColor::Ink : DialogColor::Faint));
    DrawCaption(painter, rect(), CaptionPlace::Middle, layoutDirection(), text());
    if (!hasFocus()) return;
    painter.setPen(QPen(QColor(DialogColor::Border), 1, Qt::DotLine));
    painter.drawRect(rect().adjusted(FocusRoom + 1, FocusRoom + 1, -FocusRoom - 2, -FocusRoom - 2));
}

void PushButton::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QPushButton::keyPressEvent(event);
}

void PushButton::focusInEvent(QFocusEvent* event) {
    QPushButton::focusInEvent(event);
    window()->update(); // another button may answer to the enter key no more
}

void PushButton::focusOutEvent(QFocusEvent* event) {
    QPushButton::focusOutEvent(event);
    window()->update();
}

template <class Toggle>
MarkedToggle<Toggle>::MarkedToggle(QWidget* parent, const QString& caption) : Toggle(caption, parent) {
    this->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    this->setAttribute(Qt::WA_Hover);
    this->setAccessibleName(WithoutMarks(caption));
}

template <class Toggle>
QSize MarkedToggle<Toggle>::sizeHint() const {
    return {DialogMeasure::ToggleMark + MarkGap + WidthOf(*this, this->text(), false) + FocusRoom,
            DialogMeasure::Field};
}

template <class Toggle>
bool MarkedToggle<Toggle>::hitButton(const QPoint& place) const {
    return this->rect().contains(place);
}

template <class Toggle>
void MarkedToggle<Toggle>::paintEvent(QPaintEvent*) {
    constexpr int size = DialogMeasure::ToggleMark;
    QPainter painter(this);
    const QRect room = this->rect();
    const bool fromRight = this->layoutDirection() == Qt::RightToLeft;
    const QRect mark(fromRight ? room.right() + 1 - size : 0, (room.height() - size) / 2, size, size);
    const bool enabled = this->isEnabled();
    const Edge edge = this->hasFocus() ? Edge::Strong : enabled ? Edge::Plain : Edge::Faint;
    painter.save();
    if constexpr (std::is_same_v<Toggle, QRadioButton>)
        PaintRoundMark(painter, mark, this->isChecked(), enabled, edge);
    else
        PaintSquareMark(painter, mark, this->isChecked(), enabled, edge);
    painter.restore();
    painter.setPen(QColor(enabled ? DialogColor::Ink : DialogColor::Faint));
    painter.setFont(this->font());
    const QRect words =
        fromRight ? room.adjusted(0, 0, -size - MarkGap, 0) : room.adjusted(size + MarkGap, 0, 0, 0);
    DrawCaption(painter, words, CaptionPlace::Leading, this->layoutDirection(), this->text());
}

// Whichever had the focus is the tab key's until then.
template <class Toggle>
void MarkedToggle<Toggle>::focusOutEvent(QFocusEvent* event) {
    Toggle::focusOutEvent(event);
    if constexpr (std::is_same_v<Toggle, QRadioButton>) KeepOneTabStop(*this);
}

BuiltControl BuildPushButton(QWidget& parent, const ControlRow& row, const ControlEvents& events,
                             const std::shared_ptr<DefaultButton>& defaults) {
    auto* button = new PushButton(&parent, Text(row.caption), defaults);
    if (row.isDefault) defaults->Set(*button, true);
    if (row.isCancel) defaults->SetCancel(*button);
    QObject::connect(button, &QAbstractButton::clicked, button,
                     [name = std::string(row.name), told = events.click] { told(name); });
    return {button, std::make_shared<PushPort>(*button)};
}

BuiltControl BuildToggle(QWidget& parent, const ControlRow& row, const ControlEvents& events) {
    const bool isOption = row.kind == ControlKind::OptionButton;
    QAbstractButton* button = nullptr;
    if (isOption)
        button = new MarkedToggle<QRadioButton>(&parent, Text(row.caption));
    else
        button = new MarkedToggle<QCheckBox>(&parent, Text(row.caption));
    button->setChecked(row.on);
    QObject::connect(button, &QAbstractButton::toggled, button,
                     [isOption, name = std::string(row.name), told = events.click](bool on) {
                         if (on || !isOption) told(name);
                     });
    if (isOption) {
        QObject::connect(button, &QAbstractButton::toggled, button, [button] { KeepOneTabStop(*button); });
        KeepOneTabStop(*button);
    }
    return {button, std::make_shared<TogglePort>(*button)};
}

} // namespace qbrpt::qt
