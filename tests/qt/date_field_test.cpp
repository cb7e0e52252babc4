// Date pickers: their formats, keys, and the month that drops down.
#include "adapters/qt/dialog/date_field.h"
#include "adapters/qt/dialog/month_view.h"
#include "dialog_fixture.h"

namespace qbrpt::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double FifteenthOfMarch = 45731;                 // 15/03/2025
constexpr double Afternoon = FifteenthOfMarch + 16.5 / 24; // 16:30

struct FormatRow {
    const char* name;
    const char* format;
    double moment;
    const char* shown;
};

class DateFormats : public ::testing::TestWithParam<FormatRow> {};

TEST_P(DateFormats, ShowTheMoment) {
    QString shown;
    for (const qt::DateSection& section : qt::SectionsOf(GetParam().format))
        shown += qt::ShownPart(section, MomentOf(GetParam().moment));
    EXPECT_EQ(shown.toStdString(), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, DateFormats,
    ::testing::Values(FormatRow{"Day", "dd/MM/yyyy", Afternoon, "15/03/2025"},
                      FormatRow{"Entry", "dd/MM/yyyy hh:mmtt", Afternoon, "15/03/2025 04:30م"},
                      FormatRow{"Morning", "dd/MM/yyyy hh:mmtt", FifteenthOfMarch + 1.0 / 24,
                                "15/03/2025 01:00ص"},
                      FormatRow{"Midnight", "hh:mmtt", FifteenthOfMarch, "12:00ص"},
                      FormatRow{"Noon", "hh:mmtt", FifteenthOfMarch + 0.5, "12:00م"},
                      FormatRow{"MonthInTheTimePart", "dd/MM/yyyy hh:MMtt", Afternoon, "15/03/2025 04:03م"},
                      FormatRow{"Short", "d/M/yy H:m", FifteenthOfMarch + 5.0 / 24, "15/3/25 5:0"},
                      FormatRow{"Names", "dddd d MMMM", Afternoon, "السبت 15 مارس"},
                      FormatRow{"Words", "yyyy-MM", Afternoon, "2025-03"},
                      FormatRow{"Seconds", "HH:mm:ss", FifteenthOfMarch + 5.0 / 86400, "00:00:05"}),
    [](const auto& row) { return row.param.name; });

class Dates : public DialogTest {
protected:
    Dates() { Since()->SetValue(Afternoon); }
    [[nodiscard]] Ref<DatePicker> Since() const { return Get<DatePicker>("since"); }
    [[nodiscard]] Ref<DatePicker> Until() const { return Get<DatePicker>("until"); }
    [[nodiscard]] qt::DateField& Field(const char* name = "since") const { return Find<qt::DateField>(name); }
    [[nodiscard]] std::string Shown() const { return Field().ShownText().toStdString(); }
    void OnSince(const std::function<void()>& act) {
        WhileOpen([&] {
            Field().setFocus(Qt::TabFocusReason);
            act();
        });
    }
};

TEST_F(Dates, HoldTheirNumberWhole) {
    const double now = Afternoon + 17.25 / 86400;
    Since()->SetValue(now);
    EXPECT_NEAR(*Since()->Value(), now, 1e-8);
    EXPECT_THAT(events.Of("change"), IsEmpty()) << "rules know what they set";
}

TEST_F(Dates, NoDateIsOnlyForThoseThatCanBeEmpty) {
    EXPECT_THROW(Since()->SetValue(std::nullopt), Failure);
    EXPECT_EQ(*Since()->Value(), Afternoon);
    Until()->SetValue(std::nullopt);
    EXPECT_FALSE(Until()->Value().has_value());
    Until()->SetValue(FifteenthOfMarch);
    EXPECT_EQ(*Until()->Value(), FifteenthOfMarch);
    EXPECT_THROW(Since()->SetValue(1e9), Failure);
}

TEST_F(Dates, AreTypedPartByPart) {
    struct {
        const char* name;
        const char* typed;
        const char* shown;
    } const rows[] = {{"AllDigits", "020120260945", "02/01/2026 09:45م"},
                      {"ShortParts", "9/7/", "09/07/2025 04:30م"},
                      {"OneDigitThatCanOnlyBeWhole", "47", "04/07/2025 04:30م"},
                      {"SecondDigitBeginsAnew", "35", "05/03/2025 04:30م"},
                      {"ShortYear", "15/03/99/", "15/03/1999 04:30م"},
                      {"YearOfTheseDays", "15/03/26/", "15/03/2026 04:30م"},
                      {"YearOfNoUse", "15/03/0001", "15/03/2025 04:30م"},
                      {"DayStaysInsideItsMonth", "31/02/", "28/02/2025 04:30م"},
                      {"Morning", "15/03/2025/04:30a", "15/03/2025 04:30ص"}};
    OnSince([&] {
        for (const auto& row : rows) {
            Since()->SetValue(Afternoon);
            for (int i = 0; i < 6; ++i)
                Press(Qt::Key_Left);
            Type(row.typed);
            EXPECT_EQ(Shown(), row.shown) << row.name;
        }
    });
}

TEST_F(Dates, StepsStayInTheirPartAndGoRound) {
    OnSince([&] {
        Press(Qt::Key_Up);
        EXPECT_EQ(Shown(), "16/03/2025 04:30م");
        Press(Qt::Key_Right);
        for (int i = 0; i < 4; ++i)
            Press(Qt::Key_Down);
        EXPECT_EQ(Shown(), "16/11/2025 04:30م") << "before January comes December";
        for (int i = 0; i < 4; ++i)
            Press(Qt::Key_Right);
        Press(Qt::Key_Up);
        EXPECT_EQ(Shown(), "16/11/2025 04:30ص");
    });
    EXPECT_EQ(events.Of("change since").size(), 6U);
}

TEST_F(Dates, TheCheckBoxTakesTheDateAwayAndGivesItBack) {
    Until()->SetValue(FifteenthOfMarch);
    WhileOpen([&] {
        ClickOn(Field("until"), Field("until").CheckRect().center());
        EXPECT_FALSE(Until()->Value().has_value());
        Press(Qt::Key_Up); // nothing to step
        EXPECT_FALSE(Until()->Value().has_value());
        Press(Qt::Key_Space);
        EXPECT_EQ(*Until()->Value(), FifteenthOfMarch);
        Press(Qt::Key_Delete);
        EXPECT_FALSE(Until()->Value().has_value());
    });
    EXPECT_EQ(events.Of("change until").size(), 3U);
}

TEST_F(Dates, APartIsChosenByTheMouse) {
    OnSince([&] {
        ClickOn(Field(), Field().SectionRect(4).center()); // the year
        Press(Qt::Key_Up);
    });
    EXPECT_EQ(Shown(), "15/03/2026 04:30م");
}

TEST_F(Dates, TheMonthGivesADayAndLeavesTheTime) {
    OnSince([&] {
        qt::MonthView& month = Field().Month();
        Press(Qt::Key_F4);
        EXPECT_TRUE(month.isVisible());
        Press(Qt::Key_Left); // the next day
        Press(Qt::Key_Down); // the next week
        Press(Qt::Key_PageDown);
        Press(Qt::Key_Return);
        EXPECT_FALSE(month.isVisible());
        EXPECT_EQ(Shown(), "23/04/2025 04:30م");
        ClickOn(Field(), Field().DropRect().center());
        EXPECT_TRUE(month.isVisible());
        ClickOn(month, month.ArrowRect(false).center());
        ClickOn(month, month.CellOf({2025, 3, 31}).center());
        EXPECT_EQ(Shown(), "31/03/2025 04:30م");
        Press(Qt::Key_Down, Qt::AltModifier);
        Press(Qt::Key_Escape);
        EXPECT_FALSE(month.isVisible());
    });
    EXPECT_EQ(events.Of("change since").size(), 2U);
    EXPECT_THAT(events.Of("focus since"), ElementsAre("focus since"));
}

TEST_F(Dates, WeeksBeginWithSaturdayAtTheRight) {
    OnSince([&] {
        Press(Qt::Key_F4);
        qt::MonthView& month = Field().Month();
        EXPECT_GT(month.CellOf({2025, 3, 15}).x(), month.CellOf({2025, 3, 16}).x()) << "a Saturday";
        EXPECT_LT(month.CellOf({2025, 3, 14}).y(), month.CellOf({2025, 3, 15}).y());
        month.hide();
    });
}

TEST_F(Dates, EnterInAFieldIsTheDefaultButtonsToo) {
    OnSince([&] {
        Type("7");
        Press(Qt::Key_Return);
    });
    EXPECT_THAT(events.Of("click"), ElementsAre("click ok"));
    EXPECT_EQ(Shown(), "07/03/2025 04:30م");
}

} // namespace
} // namespace qbrpt::test
