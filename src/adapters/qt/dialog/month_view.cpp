#include "adapters/qt/dialog/month_view.h"

#include "adapters/qt/dialog/date_sections.h"
#include "adapters/qt/dialog/painting.h"
#include "adapters/qt/look.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QScreen>

#include <algorithm>
#include <array>

namespace qbrpt::qt {

namespace {

constexpr int Cell = 30;
constexpr int CellHeight = 26;
constexpr int Head = 34;
constexpr int NamesRow = 24;
constexpr int Around = 6;
constexpr int DaysOfWeek = 7;
constexpr int Weeks = 6;
constexpr int FirstWeekday = 6; ///< Saturday
constexpr int Weekdays = 7;

// From Saturday on.
constexpr std::array WeekdayLetters = {"س", "ح", "ن", "ث", "ر", "خ", "ج"};

Day DayAfter(const Day& day, int days) {
    const Moment moment = MomentOf(static_cast<double>(DaysFromCivil(day.year, day.month, day.day) + days));
    return {moment.year, moment.month, moment.day};
}

bool CanShow(const Day& day) {
    const PartRange years = RangeOf({DatePart::Year, {}}, {});
    return day.year >= years.lowest && day.year <= years.highest;
}

} // namespace

MonthView::MonthView(QWidget* parent) : QFrame(parent, Qt::Popup) {
    setObjectName("monthView");
    setAttribute(Qt::WA_WindowPropagation);
    setFixedSize(DaysOfWeek * Cell + 2 * Around, Head + NamesRow + Weeks * CellHeight + Around);
}

void MonthView::Open(const QWidget& field, const Day& day, const Day& today) {
    mDay = day;
    mToday = today;
    setFont(WindowFont());
    const bool fromRight = field.layoutDirection() == Qt::RightToLeft;
    const QPoint below =
        field.mapToGlobal(QPoint(fromRight ? field.width() - width() : 0, field.height() + 1));
    const QRect room = field.screen()->availableGeometry();
    const bool fits = below.y() + height() <= room.bottom();
    const int top = fits ? below.y() : field.mapToGlobal(QPoint(0, 0)).y() - height() - 1;
    move(std::clamp(below.x(), room.left(), std::max(room.left(), room.right() - width())), top);
    show();
    setFocus(Qt::PopupFocusReason);
}

int MonthView::FirstColumn() const {
    const Moment first = MomentOf(static_cast<double>(DaysFromCivil(mDay.year, mDay.month, 1)));
    return (first.weekday - FirstWeekday + Weekdays) % Weekdays;
}

QRect MonthView::CellOf(const Day& day) const {
    if (day.year != mDay.year || day.month != mDay.month) return {};
    const int place = FirstColumn() + day.day - 1;
    const int fromRight = place % DaysOfWeek;
    return {width() - Around - (fromRight + 1) * Cell, Head + NamesRow + place / DaysOfWeek * CellHeight,
            Cell, CellHeight};
}

// What comes next lies to the left.
QRect MonthView::ArrowRect(bool next) const {
    return {next ? Around : width() - Around - Cell, 0, Cell, Head};
}

void MonthView::PaintHead(QPainter& painter) const {
    painter.fillRect(QRect(1, 1, width() - 2, Head - 1), QColor(DialogColor::Hot));
    PaintArrow(painter, QRectF(ArrowRect(false)).center(), Arrow::Right, DialogColor::Accent);
    PaintArrow(painter, QRectF(ArrowRect(true)).center(), Arrow::Left, DialogColor::Accent);
    QFont bold = font();
    bold.setBold(true);
    painter.setFont(bold);
    painter.setPen(QColor(DialogColor::Accent));
    painter.drawText(QRect(0, 0, width(), Head), Qt::AlignCenter, MonthTitle(mDay.year, mDay.month));
    painter.setFont(font());
    painter.setPen(QColor(DialogColor::Faint));
    for (int column = 0; column < DaysOfWeek; ++column)
        painter.drawText(QRect(width() - Around - (column + 1) * Cell, Head, Cell, NamesRow), Qt::AlignCenter,
                         QString::fromUtf8(WeekdayLetters[static_cast<std::size_t>(column)]));
}

void MonthView::PaintDay(QPainter& painter, int day) const {
    const QRect cell = CellOf(With(day));
    const bool isChosen = day == mDay.day;
    if (isChosen) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(DialogColor::Chosen));
        painter.drawRoundedRect(cell.adjusted(2, 2, -2, -2), 3, 3);
    } else if (With(day) == mToday) {
        painter.setPen(QColor(DialogColor::Accent));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(cell).adjusted(2.5, 2.5, -2.5, -2.5), 3, 3);
    }
    painter.setPen(QColor(isChosen ? DialogColor::Field : DialogColor::Ink));
    painter.drawText(cell, Qt::AlignCenter, QString::number(day));
}

void MonthView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(DialogColor::Field));
    PaintHead(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int day = 1; day <= DaysIn(mDay.year, mDay.month); ++day)
        PaintDay(painter, day);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QColor(DialogColor::Border));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void MonthView::GoBy(int days) {
    const Day day = DayAfter(mDay, days);
    if (CanShow(day)) mDay = day;
    update();
}

void MonthView::GoByMonths(int months) {
    const int count = mDay.year * 12 + mDay.month - 1 + months;
    Day day{count / 12, count % 12 + 1, 1};
    if (!CanShow(day)) return;
    day.day = std::min(mDay.day, DaysIn(day.year, day.month));
    mDay = day;
    update();
}

void MonthView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
        return GoBy(1);
    case Qt::Key_Right:
        return GoBy(-1);
    case Qt::Key_Up:
        return GoBy(-DaysOfWeek);
    case Qt::Key_Down:
        return GoBy(DaysOfWeek);
    case Qt::Key_PageUp:
        return GoByMonths(-1);
    case Qt::Key_PageDown:
        return GoByMonths(1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        hide();
        return chosen(mDay);
    case Qt::Key_Escape:
    case Qt::Key_F4:
        hide();
        return;
    default:
        event->ignore();
    }
}

void MonthView::mousePressEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    if (!rect().contains(place)) return QFrame::mousePressEvent(event); // closes it
    if (ArrowRect(true).contains(place)) return GoByMonths(1);
    if (ArrowRect(false).contains(place)) return GoByMonths(-1);
    for (int day = 1; day <= DaysIn(mDay.year, mDay.month); ++day) {
        if (!CellOf(With(day)).contains(place)) continue;
        hide();
        return chosen(With(day));
    }
}

void MonthView::wheelEvent(QWheelEvent* event) {
    if (event->angleDelta().y() != 0) GoByMonths(event->angleDelta().y() > 0 ? -1 : 1);
}

} // namespace qbrpt::qt
