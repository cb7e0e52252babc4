// A month to choose a day from, below a date field.
#pragma once

#include "base/calendar.h"

#include <QtWidgets/QFrame>

#include <functional>

namespace qbrpt::qt {

struct Day {
    int year = 0;
    int month = 0;
    int day = 0;
    friend bool operator==(const Day&, const Day&) = default;
};

/// Weeks begin with Saturday, at the right.
class MonthView final : public QFrame {
public:
    explicit MonthView(QWidget* parent);

    /// Opens below `field` with this day chosen; `today` is marked.
    void Open(const QWidget& field, const Day& day, const Day& today);
    std::function<void(const Day& day)> chosen = [](const Day&) {};

    /// Where a day of the month shown stands; empty for another month's.
    [[nodiscard]] QRect CellOf(const Day& day) const;
    [[nodiscard]] QRect ArrowRect(bool next) const;

private:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

    void PaintHead(QPainter& painter) const;
    void PaintDay(QPainter& painter, int day) const;
    void GoBy(int days);
    void GoByMonths(int months);
    [[nodiscard]] int FirstColumn() const;
    [[nodiscard]] Day With(int day) const { return {mDay.year, mDay.month, day}; }

    Day mDay;
    Day mToday;
};

} // namespace qbrpt::qt
