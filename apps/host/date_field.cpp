#include "date_field.h"

#include "day_numbers.h"
#include "look.h"

#include <QtCore/QSignalBlocker>
#include <QtGui/QScreen>
#include <QtGui/QTextCharFormat>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QCalendarWidget>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QTableView>
#include <QtWidgets/QTimeEdit>
#include <QtWidgets/QToolButton>

#include <algorithm>
#include <limits>

namespace cafe {

namespace {

constexpr int Decimals = 10; // tells a millisecond of any day
constexpr int NumberWidth = 150;
constexpr int CalendarWidth = 260;

/// Arabic names, with the digits of the reports.
QLocale CalendarLocale() {
    return {QLocale::Arabic, QLocale::UnitedArabEmirates};
}

} // namespace

QString NumberBox::textFromValue(double value) const {
    QString text = QString::number(value, 'f', decimals());
    if (!text.contains('.')) return text;
    while (text.endsWith('0'))
        text.chop(1);
    if (text.endsWith('.')) text.chop(1);
    return text == "-0" ? "0" : text;
}

DateField::DateField(Kind kind, QWidget* parent)
    : QWidget(parent), mKind(kind), mNumber(new NumberBox(this)), mMoment(new QLabel(this)) {
    mNumber->setLocale(QLocale::c());
    mNumber->setButtonSymbols(QAbstractSpinBox::NoButtons);
    mNumber->setFixedWidth(NumberWidth);
    mNumber->setAlignment(Qt::AlignRight | Qt::AlignAbsolute);
    mMoment->setAlignment(Qt::AlignRight | Qt::AlignAbsolute | Qt::AlignVCenter);
    if (kind == Kind::WholeDays) {
        mNumber->setDecimals(0);
        mNumber->setRange(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max());
    } else {
        mNumber->setDecimals(Decimals);
        mNumber->setRange(FirstDayNumber, LastDayNumber);
    }
    auto* button = new QToolButton(this);
    button->setObjectName("calendar");
    button->setIcon(CalendarIcon());
    button->setAccessibleName(QStringLiteral("التقويم"));
    button->setToolTip(QStringLiteral("التقويم"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(LabelGap);
    row->addWidget(mNumber);
    row->addWidget(button);
    row->addWidget(mMoment, 1);
    setFocusProxy(mNumber);
    MakePopup();
    connect(button, &QToolButton::clicked, this, &DateField::OpenCalendar);
    connect(mNumber, &QDoubleSpinBox::valueChanged, this, &DateField::ShowMoment);
}

void DateField::MakePopup() {
    auto* popup = new QFrame(this, Qt::Popup);
    mPopup = popup;
    popup->setObjectName("calendarPopup");
    mCalendar = new QCalendarWidget(popup);
    mCalendar->setLocale(CalendarLocale());
    mCalendar->setFixedWidth(CalendarWidth);
    // By themselves they are as wide as the widest sign of the font, and an Arabic one has very wide signs.
    mCalendar->findChild<QTableView*>()->horizontalHeader()->setMinimumSectionSize(1);
    mCalendar->findChild<QToolButton*>("qt_calendar_prevmonth")->setIcon(ChevronIcon(Chevron::Right));
    mCalendar->findChild<QToolButton*>("qt_calendar_nextmonth")->setIcon(ChevronIcon(Chevron::Left));
    mCalendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    mCalendar->setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
    QTextCharFormat plain;
    for (const auto day : {Qt::Saturday, Qt::Sunday, Qt::Friday})
        mCalendar->setWeekdayTextFormat(day, plain);
    mTime = new QTimeEdit(popup);
    mTime->setLayoutDirection(Qt::LeftToRight); // first: the format follows it
    mTime->setDisplayFormat("HH:mm");
    mTime->setLocale(QLocale::c());
    mTime->setButtonSymbols(QAbstractSpinBox::NoButtons);
    mTime->setAlignment(Qt::AlignCenter);
    mTime->setVisible(mKind == Kind::WithTime);
    auto* column = new QVBoxLayout(popup);
    column->setContentsMargins(1, 1, 1, 1);
    column->addWidget(mCalendar);
    if (mKind == Kind::WithTime) {
        auto* timeRow = new QHBoxLayout;
        timeRow->setContentsMargins(LabelGap, 0, LabelGap, LabelGap);
        timeRow->addWidget(new QLabel(QStringLiteral("الساعة"), popup));
        timeRow->addWidget(mTime);
        timeRow->addStretch(1);
        column->addLayout(timeRow);
    }
    connect(mCalendar, &QCalendarWidget::clicked, this, &DateField::TakeFromCalendar);
    connect(mTime, &QTimeEdit::timeChanged, this, &DateField::TakeFromCalendar);
    connect(mCalendar, &QCalendarWidget::activated, popup, &QWidget::close);
}

void DateField::OpenCalendar() {
    const QDateTime moment = MomentOf(Number());
    const bool none = Number() == 0 || !moment.isValid();
    {
        const QSignalBlocker calendarBlocker(mCalendar);
        const QSignalBlocker timeBlocker(mTime);
        mCalendar->setSelectedDate(none ? QDate::currentDate() : moment.date());
        mTime->setTime(none ? QTime(0, 0) : moment.time());
    }
    mPopup->adjustSize();
    const QPoint under = mNumber->mapToGlobal(QPoint(mNumber->width() - mPopup->width(), mNumber->height()));
    const QRect screen = mNumber->screen()->availableGeometry();
    mPopup->move(std::max(screen.left(), under.x()), std::min(under.y(), screen.bottom() - mPopup->height()));
    mPopup->show();
    mCalendar->setFocus();
}

void DateField::ShowMoment() {
    // 0 mostly stands for no bound, which is no day to show.
    const QDateTime moment = Number() == 0 ? QDateTime{} : MomentOf(Number());
    mMoment->setText(moment.toString(mKind == Kind::WithTime ? "dd/MM/yyyy HH:mm" : "dd/MM/yyyy"));
}

void DateField::TakeFromCalendar() {
    SetNumber(DayNumberOf(mCalendar->selectedDate(), mKind == Kind::WithTime ? mTime->time() : QTime(0, 0)));
    if (mKind == Kind::WholeDays) mPopup->close();
}

} // namespace cafe
