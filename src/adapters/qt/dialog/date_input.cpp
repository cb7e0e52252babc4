// What keys and the mouse do to a date field.
#include "adapters/qt/dialog/date_field.h"
#include "adapters/qt/dialog/month_view.h"

#include <QtCore/QDate>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <utility>

namespace qbrpt::qt {

namespace {

constexpr int ShortYear = 2; ///< digits that stand for a year of these times
constexpr int FirstOldYear = 30;

int WholeYear(int number) {
    return number + (number < FirstOldYear ? 2000 : 1900);
}

bool StartsMorning(QChar letter) {
    return letter == QChar(u'ص') || letter.toLower() == 'a';
}

bool StartsEvening(QChar letter) {
    return letter == QChar(u'م') || letter.toLower() == 'p';
}

} // namespace

void DateField::Become(const Moment& moment) {
    mMoment = moment;
    mIsOn = true;
    setAccessibleDescription(ShownText());
    update();
    changed();
}

void DateField::Switch(bool on) {
    EndTyping();
    if (on == mIsOn || !mCanBeEmpty) return;
    mIsOn = on;
    update();
    changed();
}

void DateField::GoTo(int step) {
    EndTyping();
    for (auto next = static_cast<std::ptrdiff_t>(mAt) + step;
         next >= 0 && next < static_cast<std::ptrdiff_t>(mSections.size()); next += step) {
        if (mSections[static_cast<std::size_t>(next)].part == DatePart::Words) continue;
        mAt = static_cast<std::size_t>(next);
        break;
    }
    update();
}

void DateField::Step(int step) {
    EndTyping();
    if (mIsOn) Become(Stepped(mSections[mAt], mMoment, step));
}

void DateField::TypeDigit(int digit) {
    const DateSection& section = mSections[mAt];
    const PartRange range = RangeOf(section, mMoment);
    if (range.digits == 0 || !mIsOn) return QApplication::beep();
    QString typed = mTyped + QString::number(digit);
    // A second digit that leads nowhere begins anew.
    if (typed.toInt() > range.highest) typed = QString::number(digit);
    mTyped = typed;
    const int number = typed.toInt();
    const bool isYear = section.part == DatePart::Year;
    const bool isWhole = typed.size() == range.digits || (!isYear && number * 10 > range.highest);
    const bool fits = number >= range.lowest && number <= range.highest;
    if (isWhole && !fits) {
        mTyped.clear();
        QApplication::beep();
    } else if (isWhole) {
        mTyped.clear();
        Become(WithNumber(section, mMoment, number));
        GoTo(1);
        mWentOn = true;
    }
    update();
}

/// What was typed counts also when it is left half done.
void DateField::EndTyping() {
    if (mTyped.isEmpty()) return;
    const DateSection& section = mSections[mAt];
    int number = mTyped.toInt();
    if (section.part == DatePart::Year && mTyped.size() <= ShortYear) number = WholeYear(number);
    mTyped.clear();
    const PartRange range = RangeOf(section, mMoment);
    if (number >= range.lowest && number <= range.highest) Become(WithNumber(section, mMoment, number));
    update();
}

void DateField::TypeHalfDay(const QString& text) {
    if (text.isEmpty() || !mIsOn || mSections[mAt].part != DatePart::HalfDay) return;
    if (StartsMorning(text.front())) Become(WithNumber(mSections[mAt], mMoment, 0));
    if (StartsEvening(text.front())) Become(WithNumber(mSections[mAt], mMoment, 1));
}

void DateField::OpenMonth() {
    EndTyping();
    const QDate today = QDate::currentDate();
    mMonth->Open(*this, {mMoment.year, mMoment.month, mMoment.day},
                 {today.year(), today.month(), today.day()});
}

void DateField::keyPressEvent(QKeyEvent* event) {
    const bool alt = (event->modifiers() & Qt::AltModifier) != 0;
    const bool wentOn = std::exchange(mWentOn, false);
    switch (event->key()) {
    case Qt::Key_Left:
        return GoTo(-1);
    case Qt::Key_Right:
        return GoTo(1);
    case Qt::Key_Slash:
    case Qt::Key_Colon:
    case Qt::Key_Minus:
        return wentOn ? void() : GoTo(1);
    case Qt::Key_F4:
        return OpenMonth();
    case Qt::Key_Up:
        return Step(1);
    case Qt::Key_Down:
        return alt ? OpenMonth() : Step(-1);
    case Qt::Key_Space:
        return Switch(!mIsOn);
    case Qt::Key_Delete:
        return Switch(false);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        EndTyping();
        return event->ignore(); // also the default button's
    default:
        break;
    }
    const QString text = event->text();
    // Arabic digits are digits too.
    if (!text.isEmpty() && text.front().digitValue() >= 0) return TypeDigit(text.front().digitValue());
    TypeHalfDay(text);
    QWidget::keyPressEvent(event);
}

void DateField::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPoint place = event->position().toPoint();
    if (DropRect().contains(place)) return OpenMonth();
    if (CheckRect().adjusted(-3, -5, 3, 5).contains(place)) return Switch(!mIsOn);
    EndTyping();
    for (std::size_t section = 0; section < mSections.size(); ++section) {
        if (mSections[section].part != DatePart::Words &&
            SectionRect(section).adjusted(-2, 0, 2, 0).contains(place))
            mAt = section;
    }
    update();
}

void DateField::wheelEvent(QWheelEvent* event) {
    if (!hasFocus() || event->angleDelta().y() == 0) return event->ignore();
    Step(event->angleDelta().y() > 0 ? 1 : -1);
}

void DateField::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (mSections.empty()) return;
    if (event->reason() == Qt::TabFocusReason || mSections[mAt].part == DatePart::Words) mAt = 0;
    if (mSections[mAt].part == DatePart::Words) GoTo(1);
    update();
}

void DateField::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    EndTyping();
    update();
}

} // namespace qbrpt::qt
