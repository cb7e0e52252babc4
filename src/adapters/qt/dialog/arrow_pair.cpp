#include "adapters/qt/dialog/arrow_pair.h"

#include "adapters/qt/dialog/control_port.h"
#include "adapters/qt/dialog/painting.h"

#include <QtCore/QTimerEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>

#include <memory>

namespace qbrpt::qt {

namespace {

constexpr int Wide = 20;
constexpr int FirstRepeat = 400; ///< milliseconds
constexpr int NextRepeat = 60;

class ScrollPort final : public ControlOver<ScrollBar, ArrowPair> {
public:
    using ControlOver::ControlOver;

private:
    [[nodiscard]] std::int16_t DoMax() const override { return static_cast<std::int16_t>(Shown().maximum()); }
    [[nodiscard]] std::int16_t DoValue() const override { return static_cast<std::int16_t>(Shown().value()); }
    void DoSetValue(std::int16_t value) override {
        if (value < Shown().minimum() || value > Shown().maximum())
            throw Failure(FailureNumber::InvalidArgument, "The value is outside of the scroll bar's limits.");
        Shown().setValue(value);
    }
};

} // namespace

ArrowPair::ArrowPair(QWidget* parent) : QAbstractSlider(parent) {
    setOrientation(Qt::Vertical);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ArrowPair::sizeHint() const {
    return {Wide, DialogMeasure::Field};
}

void ArrowPair::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool enabled = isEnabled();
    PaintBox(painter, rect(), enabled ? DialogColor::Field : DialogColor::ReadOnly,
             !enabled     ? Edge::Faint
             : hasFocus() ? Edge::Strong
                          : Edge::Plain);
    const int half = height() / 2;
    if (mDirection != 0)
        painter.fillRect(QRect(2, mDirection < 0 ? 2 : half, width() - 4, half - 2),
                         QColor(DialogColor::Down));
    painter.fillRect(QRect(2, half, width() - 4, 1), QColor(DialogColor::Line));
    const QRgb ink = enabled ? DialogColor::Ink : DialogColor::Faint;
    PaintArrow(painter, {width() / 2.0, height() * 0.27}, Arrow::Up, ink);
    PaintArrow(painter, {width() / 2.0, height() * 0.75}, Arrow::Down, ink);
}

void ArrowPair::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
        return setValue(value() - singleStep());
    case Qt::Key_Down:
        return setValue(value() + singleStep());
    case Qt::Key_PageUp:
        return setValue(value() - pageStep());
    case Qt::Key_PageDown:
        return setValue(value() + pageStep());
    case Qt::Key_Home:
        return setValue(minimum());
    case Qt::Key_End:
        return setValue(maximum());
    default:
        QWidget::keyPressEvent(event);
    }
}

void ArrowPair::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    mDirection = event->position().y() < height() / 2.0 ? -1 : 1;
    setValue(value() + mDirection * singleStep());
    mRepeat.start(FirstRepeat, this);
    update();
}

void ArrowPair::mouseReleaseEvent(QMouseEvent*) {
    mDirection = 0;
    mRepeat.stop();
    update();
}

void ArrowPair::timerEvent(QTimerEvent* event) {
    if (event->timerId() != mRepeat.timerId()) return QAbstractSlider::timerEvent(event);
    setValue(value() + mDirection * singleStep());
    mRepeat.start(NextRepeat, this);
}

void ArrowPair::wheelEvent(QWheelEvent* event) {
    if (!hasFocus() || event->angleDelta().y() == 0) return event->ignore();
    setValue(value() + (event->angleDelta().y() > 0 ? -singleStep() : singleStep()));
}

BuiltControl BuildScrollBar(QWidget& parent, const ControlRow& row, const ControlEvents& events) {
    auto* bar = new ArrowPair(&parent);
    bar->setRange(row.minimum, row.maximum);
    bar->setValue(row.minimum);
    bar->setPageStep(1);
    QObject::connect(bar, &QAbstractSlider::valueChanged, bar,
                     [name = std::string(row.name), told = events.change] { told(name); });
    return {bar, std::make_shared<ScrollPort>(*bar)};
}

} // namespace qbrpt::qt
