#include "adapters/qt/dialog/date_field.h"

#include "adapters/qt/dialog/control_port.h"
#include "adapters/qt/dialog/month_view.h"
#include "adapters/qt/dialog/painting.h"
#include "adapters/qt/shown_text.h"

#include <QtCore/QDateTime>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>

#include <algorithm>
#include <memory>

namespace qbrpt::qt {

namespace {

class DatePort final : public ControlOver<DatePicker, DateField> {
public:
    using ControlOver::ControlOver;

private:
    [[nodiscard]] std::optional<double> DoValue() const override { return Shown().Value(); }
    void DoSetValue(std::optional<double> value) override { Shown().SetValue(value); }
};

Moment Now() {
    const QDateTime now = QDateTime::currentDateTime();
    Moment moment;
    moment.year = now.date().year();
    moment.month = now.date().month();
    moment.day = now.date().day();
    return moment;
}

} // namespace

DateField::DateField(QWidget* parent, std::string_view format, bool canBeEmpty)
    : QWidget(parent), mSections(SectionsOf(format)), mMoment(Now()), mCanBeEmpty(canBeEmpty),
      mMonth(new MonthView(this)) {
    setFocusPolicy(Qt::StrongFocus);
    setFixedHeight(DialogMeasure::Field);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    setAccessibleDescription(ShownText());
    mMonth->chosen = [this](const Day& day) {
        Moment moment = mMoment;
        moment.year = day.year;
        moment.month = day.month;
        moment.day = day.day;
        Become(moment);
    };
}

std::optional<double> DateField::Value() const {
    if (!mIsOn) return std::nullopt;
    return DayNumberOf(mMoment);
}

void DateField::SetValue(std::optional<double> value) {
    if (!value && !mCanBeEmpty) throw Failure(FailureNumber::InvalidArgument, "The field must hold a date.");
    if (value) mMoment = MomentOf(*value);
    mIsOn = value.has_value();
    mTyped.clear();
    setAccessibleDescription(ShownText());
    update();
}

QString DateField::TextOf(std::size_t section) const {
    if (section == mAt && !mTyped.isEmpty()) return mTyped;
    return ShownPart(mSections[section], mMoment);
}

QString DateField::ShownText() const {
    QString text;
    for (std::size_t section = 0; section < mSections.size(); ++section)
        text += TextOf(section);
    return text;
}

int DateField::WidthOf(std::size_t section) const {
    return fontMetrics().horizontalAdvance(TextOf(section));
}

int DateField::TextWidth() const {
    int width = 0;
    for (std::size_t section = 0; section < mSections.size(); ++section)
        width += WidthOf(section);
    return width;
}

QSize DateField::sizeHint() const {
    const int check = mCanBeEmpty ? DialogMeasure::ToggleMark + DialogMeasure::LabelGap : 0;
    constexpr int spare = 12; // for longer names of months and wider digits
    return {TextWidth() + check + DialogMeasure::DropButton + 2 * DialogMeasure::FieldPadding + spare,
            DialogMeasure::Field};
}

QRect DateField::CheckRect() const {
    if (!mCanBeEmpty) return {};
    constexpr int size = DialogMeasure::ToggleMark;
    const bool fromRight = layoutDirection() == Qt::RightToLeft;
    const int left = fromRight ? width() - DialogMeasure::FieldPadding - size : DialogMeasure::FieldPadding;
    return {left, (height() - size) / 2, size, size};
}

QRect DateField::DropRect() const {
    const bool fromRight = layoutDirection() == Qt::RightToLeft;
    return {fromRight ? 0 : width() - DialogMeasure::DropButton, 0, DialogMeasure::DropButton, height()};
}

QRect DateField::SectionRect(std::size_t section) const {
    const int check = mCanBeEmpty ? DialogMeasure::ToggleMark + DialogMeasure::LabelGap : 0;
    const int before = DialogMeasure::FieldPadding + check;
    int left = layoutDirection() == Qt::RightToLeft ? width() - before - TextWidth() : before;
    for (std::size_t each = 0; each < section; ++each)
        left += WidthOf(each);
    return {left, 3, WidthOf(section), height() - 6};
}

void DateField::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Edge edge = !isEnabled() ? Edge::Faint : hasFocus() ? Edge::Strong : Edge::Plain;
    PaintBox(painter, rect(), isEnabled() ? DialogColor::Field : DialogColor::ReadOnly, edge);
    const QRgb ink = isEnabled() && mIsOn ? DialogColor::Ink : DialogColor::Faint;
    PaintArrow(painter, QRectF(DropRect()).center(), Arrow::Down,
               isEnabled() ? DialogColor::Ink : DialogColor::Faint);
    if (mCanBeEmpty) {
        PaintBox(painter, CheckRect(), DialogColor::Field, isEnabled() ? Edge::Plain : Edge::Faint);
        if (mIsOn) PaintTick(painter, CheckRect(), isEnabled() ? DialogColor::Accent : DialogColor::Faint);
    }
    for (std::size_t section = 0; section < mSections.size(); ++section) {
        const QRect room = SectionRect(section);
        const bool edited = hasFocus() && mIsOn && section == mAt;
        if (edited) painter.fillRect(room.adjusted(-1, 0, 1, 0), QColor(DialogColor::Chosen));
        painter.setPen(QColor(edited ? DialogColor::Field : ink));
        painter.drawText(room, Qt::AlignCenter | Qt::TextDontClip, TextOf(section));
    }
}

BuiltControl BuildDatePicker(QWidget& parent, const ControlRow& row, const ControlEvents& events) {
    auto* field = new DateField(&parent, row.format, row.canBeEmpty);
    field->changed = [name = std::string(row.name), told = events.change] { told(name); };
    return {field, std::make_shared<DatePort>(*field)};
}

} // namespace qbrpt::qt
