// Fields for a date and time.
#pragma once

#include "adapters/qt/control_events.h"
#include "adapters/qt/dialog/built_control.h"
#include "adapters/qt/dialog/date_sections.h"
#include "base/ref.h"
#include "platform/forms.h"

#include <QtWidgets/QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace qbrpt::qt {

class MonthView;

/// Shows a day number in its format, from the left on. Each part is typed, or stepped through by the up and
/// down keys; left and right go from part to part, F4 opens the month.
class DateField final : public QWidget {
public:
    DateField(QWidget* parent, std::string_view format, bool canBeEmpty);

    [[nodiscard]] std::optional<double> Value() const;
    /// "No date" greys what is shown. Raises InvalidArgument for it where there must be a date, and for a day
    /// number that no calendar has.
    void SetValue(std::optional<double> value);
    [[nodiscard]] QString ShownText() const;
    [[nodiscard]] MonthView& Month() { return *mMonth; }
    /// Of the check box, the arrow, and a section by its position in the format.
    [[nodiscard]] QRect CheckRect() const;
    [[nodiscard]] QRect DropRect() const;
    [[nodiscard]] QRect SectionRect(std::size_t section) const;

    std::function<void()> changed = [] {}; ///< by the user

private:
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    [[nodiscard]] int WidthOf(std::size_t section) const;
    [[nodiscard]] QString TextOf(std::size_t section) const;
    [[nodiscard]] int TextWidth() const;
    void GoTo(int step);
    void Step(int step);
    void TypeDigit(int digit);
    void TypeHalfDay(const QString& text);
    void EndTyping();
    void Become(const Moment& moment);
    void Switch(bool on);
    void OpenMonth();

    std::vector<DateSection> mSections;
    Moment mMoment;
    bool mIsOn = true; ///< holds a date
    bool mCanBeEmpty;
    std::size_t mAt = 0;  ///< the section that is edited
    QString mTyped;       ///< digits of it, as far as they have come
    bool mWentOn = false; ///< by itself, behind the last digit of a section
    MonthView* mMonth;
};

[[nodiscard]] BuiltControl BuildDatePicker(QWidget& parent, const ControlRow& row,
                                           const ControlEvents& events);

} // namespace qbrpt::qt
