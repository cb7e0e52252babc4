// A date number: typed, or chosen in a calendar.
#pragma once

#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>

class QCalendarWidget;
class QTimeEdit;

namespace cafe {

/// Shows a number with as many decimals as it has.
class NumberBox : public QDoubleSpinBox {
public:
    using QDoubleSpinBox::QDoubleSpinBox;
    [[nodiscard]] QString textFromValue(double value) const override;
};

class DateField : public QWidget {
public:
    enum class Kind : std::uint8_t { WholeDays, WithTime };
    DateField(Kind kind, QWidget* parent);

    [[nodiscard]] double Number() const { return mNumber->value(); }
    void SetNumber(double number) { mNumber->setValue(number); }
    void OpenCalendar();

private:
    void MakePopup();
    void ShowMoment();
    void TakeFromCalendar();

    Kind mKind;
    NumberBox* mNumber;
    QLabel* mMoment;
    QWidget* mPopup = nullptr;
    QCalendarWidget* mCalendar = nullptr;
    QTimeEdit* mTime = nullptr;
};

} // namespace cafe
