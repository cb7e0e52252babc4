// A scroll bar of two arrows.
#pragma once

#include "adapters/qt/control_events.h"
#include "adapters/qt/dialog/built_control.h"
#include "base/ref.h"
#include "platform/forms.h"

#include <QtCore/QBasicTimer>
#include <QtWidgets/QAbstractSlider>

namespace qbrpt::qt {

/// The arrow at the top goes to the lower numbers, as a scroll bar's does; so do the keys and the wheel.
class ArrowPair final : public QAbstractSlider {
public:
    explicit ArrowPair(QWidget* parent);

private:
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    int mDirection = 0; ///< of the arrow that is held down
    QBasicTimer mRepeat;
};

[[nodiscard]] BuiltControl BuildScrollBar(QWidget& parent, const ControlRow& row,
                                          const ControlEvents& events);

} // namespace qbrpt::qt
