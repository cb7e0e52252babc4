// What keys and mouse do in the reading area.
#include "adapters/qt/viewer/desk_area.h"
#include "base/failure.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <cmath>

namespace qbrpt::viewer {

namespace {

/// What an arrow key moves, and a notch of the wheel.
constexpr int ArrowStep = 60;
constexpr int WheelStep = 120;
/// Of the old view stays in sight when a screenful is turned.
constexpr Pixels KeptInSight = 48;
constexpr int WheelUnit = 120; ///< a notch, as Qt counts

} // namespace

void DeskArea::keyPressEvent(QKeyEvent* event) {
    const Pixels from = mGlide.state() == QAbstractAnimation::Running ? mGlideTo : mTop;
    const Pixels screen = std::max<Pixels>(mLayout.ViewHeight() - KeptInSight, ArrowStep);
    switch (event->key()) {
    case Qt::Key_PageDown:
        GlideTo(from + screen);
        break;
    case Qt::Key_PageUp:
        GlideTo(from - screen);
        break;
    case Qt::Key_Down:
        GlideTo(from + ArrowStep);
        break;
    case Qt::Key_Up:
        GlideTo(from - ArrowStep);
        break;
    case Qt::Key_Left:
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() - ArrowStep);
        break;
    case Qt::Key_Right:
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + ArrowStep);
        break;
    case Qt::Key_Home:
    case Qt::Key_End: {
        const std::int32_t before = mCurrent;
        ShowPage(event->key() == Qt::Key_Home ? 0 : PageCount() - 1);
        ShowTip();
        if (before != mCurrent && pageChanged) pageChanged();
        break;
    }
    default:
        QAbstractScrollArea::keyPressEvent(event);
        return;
    }
    event->accept();
}

void DeskArea::wheelEvent(QWheelEvent* event) {
    event->accept();
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        mWheel += event->angleDelta().y();
        while (std::abs(mWheel) >= WheelUnit) {
            const bool in = mWheel > 0;
            mWheel += in ? -WheelUnit : WheelUnit;
            if (zoomStep) zoomStep(in);
        }
        return;
    }
    const QPoint pixels = event->pixelDelta();
    QPoint notches = event->angleDelta();
    if (event->modifiers().testFlag(Qt::ShiftModifier) && notches.x() == 0) notches = {notches.y(), 0};
    if (!pixels.isNull() || notches.x() != 0) {
        // Touch pads give the way itself.
        const QPoint way = pixels.isNull() ? notches * WheelStep / WheelUnit : pixels;
        mGlide.stop();
        GoTo(mLeft - way.x(), mTop - way.y());
        Moved();
        ShowTip();
        return;
    }
    const Pixels from = mGlide.state() == QAbstractAnimation::Running ? mGlideTo : mTop;
    GlideTo(from - Pixels{notches.y()} * WheelStep / WheelUnit);
}

std::optional<TextPlace> DeskArea::PlaceAt(QPointF position) const {
    if (!mPages || PageCount() == 0) return std::nullopt;
    const PagePoint point =
        mLayout.PointAt(mLeft + std::llround(position.x()), mTop + std::llround(position.y()));
    const report::Sheet sheet = mPages->Source().SheetSize();
    try {
        const auto page = mPages->At(point.page);
        const std::size_t word =
            page->Reading().WordNear(static_cast<report::Twips>(point.across * sheet.width),
                                     static_cast<report::Twips>(point.down * sheet.height));
        if (word >= page->Reading().Words().size()) return std::nullopt;
        return TextPlace{point.page, word};
    } catch (const Failure&) {
        return std::nullopt;
    }
}

void DeskArea::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton) {
        mGlide.stop();
        mPanning = true;
        mPanAt = event->position();
        viewport()->setCursor(Qt::ClosedHandCursor);
    }
    if (event->button() == Qt::LeftButton) {
        mSelection.Clear();
        mPressed = PlaceAt(event->position());
        mPressedAt = event->position();
        mDragging = false;
        viewport()->update();
    }
}

void DeskArea::mouseMoveEvent(QMouseEvent* event) {
    if (mPanning) {
        const QPointF way = event->position() - mPanAt;
        mPanAt = event->position();
        GoTo(mLeft - std::llround(way.x()), mTop - std::llround(way.y()));
        Moved();
        ShowTip();
        return;
    }
    if (!mPressed || !event->buttons().testFlag(Qt::LeftButton)) return;
    const QPointF way = event->position() - mPressedAt;
    if (!mDragging && way.manhattanLength() < QApplication::startDragDistance()) return;
    mDragging = true;
    Drag(event->position());
    const bool outside = !viewport()->rect().contains(event->position().toPoint());
    if (outside && !mDragScroll.isActive()) mDragScroll.start();
    if (!outside) mDragScroll.stop();
}

void DeskArea::Drag(QPointF position) {
    mDragAt = position;
    const auto place = PlaceAt(position);
    if (!place) return;
    mSelection.Begin(*mPressed);
    mSelection.Extend(*place);
    viewport()->update();
}

void DeskArea::ScrollWhileDragging() {
    const double below = std::max(mDragAt.y() - viewport()->height(), 0.0);
    const double above = std::max(-mDragAt.y(), 0.0);
    const double right = std::max(mDragAt.x() - viewport()->width(), 0.0);
    const double left = std::max(-mDragAt.x(), 0.0);
    GoTo(mLeft + std::llround(right - left), mTop + std::llround(below - above));
    Moved();
    Drag(mDragAt);
}

void DeskArea::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::MiddleButton && mPanning) {
        mPanning = false;
        viewport()->unsetCursor();
    }
    if (event->button() == Qt::LeftButton) {
        mPressed.reset();
        mDragging = false;
        mDragScroll.stop();
    }
}

void DeskArea::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    if (const auto place = PlaceAt(event->position())) mSelection.Begin(*place);
    viewport()->update();
}

QString DeskArea::SelectedText() const {
    if (!mPages) return {};
    return QString::fromStdString(mSelection.Text(
        [this](std::int32_t page, const auto& show) { show(mPages->Passing(page)->Reading()); }));
}

} // namespace qbrpt::viewer
