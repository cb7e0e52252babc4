// Date numbers, typed and from the calendar.
#include "date_field.h"
#include "day_numbers.h"
#include "host_stage.h"

#include <QtWidgets/QCalendarWidget>
#include <QtWidgets/QTimeEdit>

namespace qbrpt::test {
namespace {

using cafe::DateField;

struct MomentRow {
    const char* name;
    double number;
    const char* moment;
};

class DayNumbers : public ::testing::TestWithParam<MomentRow> {};

TEST_P(DayNumbers, ReadBothWays) {
    const QDateTime moment = cafe::MomentOf(GetParam().number);
    EXPECT_EQ(moment.toString("yyyy-MM-dd HH:mm"), GetParam().moment);
    EXPECT_NEAR(cafe::DayNumberOf(moment.date(), moment.time()), GetParam().number, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Rows, DayNumbers,
                         ::testing::Values(MomentRow{"Zero", 0, "1899-12-30 00:00"},
                                           MomentRow{"First2025", 45658, "2025-01-01 00:00"},
                                           MomentRow{"HalfPast", 45658.5, "2025-01-01 12:00"},
                                           MomentRow{"BeforeZero", -1.25, "1899-12-29 06:00"},
                                           MomentRow{"LastDay", 2958465, "9999-12-31 00:00"}),
                         [](const auto& row) { return row.param.name; });

TEST(DayNumbersOutside, AreNoMoments) {
    EXPECT_FALSE(cafe::MomentOf(-657435).isValid());
    EXPECT_FALSE(cafe::MomentOf(2958466).isValid());
}

class DateFields : public HostStage {
protected:
    /// The calendar of a field, opened by its button.
    QWidget* Calendar(const char* field) {
        Part<QWidget>(field)->findChild<QAbstractButton*>("calendar")->click();
        EXPECT_TRUE(Waits([] { return QApplication::activePopupWidget() != nullptr; }));
        return QApplication::activePopupWidget();
    }
};

TEST_F(DateFields, TakeAWholeDayFromTheCalendar) {
    Choose("PrintInternetUsage");
    QWidget* popup = Calendar("d1");
    ASSERT_NE(popup, nullptr);
    auto* calendar = popup->findChild<QCalendarWidget*>();
    calendar->setSelectedDate({2025, 3, 1});
    emit calendar->clicked(calendar->selectedDate());
    EXPECT_TRUE(Waits([] { return QApplication::activePopupWidget() == nullptr; }));
    EXPECT_EQ(std::get<std::int32_t>(Form().Arguments()[0]), 45717);
    EXPECT_EQ(Part<QWidget>("d1")->findChild<QLabel*>()->text(), "01/03/2025");
}

TEST_F(DateFields, TakeADayWithItsTimeFromTheCalendar) {
    Choose("PrintPCUsage");
    QWidget* popup = Calendar("date1");
    ASSERT_NE(popup, nullptr);
    auto* calendar = popup->findChild<QCalendarWidget*>();
    calendar->setSelectedDate({2025, 3, 1});
    emit calendar->clicked(calendar->selectedDate());
    popup->findChild<QTimeEdit*>()->setTime({18, 0});
    EXPECT_EQ(std::get<double>(Form().Arguments()[0]), 45717.75);
    EXPECT_EQ(Part<QWidget>("date1")->findChild<QLabel*>()->text(), "01/03/2025 18:00");
    popup->close();
}

TEST_F(DateFields, OpenTheCalendarAtWhatIsTyped) {
    Choose("PrintPCUsage");
    auto* field = dynamic_cast<DateField*>(Part<QWidget>("date2"));
    ASSERT_NE(field, nullptr);
    field->SetNumber(45658.25);
    QWidget* popup = Calendar("date2");
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->findChild<QCalendarWidget*>()->selectedDate(), QDate(2025, 1, 1));
    EXPECT_EQ(popup->findChild<QTimeEdit*>()->time(), QTime(6, 0));
    popup->close();
    EXPECT_EQ(field->Number(), 45658.25) << "looking changes nothing";
}

} // namespace
} // namespace qbrpt::test
