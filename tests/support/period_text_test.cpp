#include "support/period_text.h"
#include "support_fixture.h"

#include <limits>
#include <string>

namespace qbrpt {
namespace {

struct PeriodRow {
    const char* name;
    double from;
    double to;
    bool withTime;
    const char* arabic;
    const char* english;
};

class PeriodTextTest : public SupportTest, public ::testing::WithParamInterface<PeriodRow> {};

TEST_P(PeriodTextTest, NamesThePeriod) {
    const PeriodRow& row = GetParam();
    EXPECT_EQ(GetPeriodText(row.from, row.to, true, row.withTime), row.arabic);
    EXPECT_EQ(GetPeriodText(row.from, row.to, false, row.withTime), row.english);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PeriodTextTest,
    ::testing::Values(
        PeriodRow{"SingleDate", Day(2004, 1, 15), 0, false, "ليوم الخميس 15 يناير 2004", "Thu 15 Jan 2004"},
        PeriodRow{"SingleDateOnMonday", Day(2004, 1, 5), 0, false, "ليوم الاثنين 05 يناير 2004",
                  "Mon 05 Jan 2004"},
        PeriodRow{"SingleDateWithTime", Day(2004, 1, 15, 9, 5), 0, true, "ليوم الخميس 15 يناير 2004  09:05ص",
                  "Thu 15 Jan 2004  09:05AM"},
        PeriodRow{"EqualDates", Day(2004, 1, 15), Day(2004, 1, 15), false, "ليوم الخميس 15 يناير 2004",
                  "Thu 15 Jan 2004"},
        PeriodRow{"SameDayAtDifferentHoursPrintsTheEarlier", Day(2004, 1, 15, 22, 30),
                  Day(2004, 1, 15, 8, 15), true, "ليوم الخميس 15 يناير 2004  08:15ص",
                  "Thu 15 Jan 2004  08:15AM"},
        PeriodRow{"RangeInsideOneYear", Day(2004, 1, 15), Day(2004, 3, 2), false,
                  "من الخميس 15 يناير إلى الثلاثاء 02 مارس 2004", "From Thu 15 Jan Till Tue 02 Mar 2004"},
        PeriodRow{"ReverseOrderGivesTheSame", Day(2004, 3, 2), Day(2004, 1, 15), false,
                  "من الخميس 15 يناير إلى الثلاثاء 02 مارس 2004", "From Thu 15 Jan Till Tue 02 Mar 2004"},
        PeriodRow{"RangeAcrossYears", Day(2003, 12, 31), Day(2004, 1, 1), false,
                  "من الأربعاء 31 ديسمبر 2003 إلى الخميس 01 يناير 2004",
                  "From Wed 31 Dec 2003 Till Thu 01 Jan 2004"},
        PeriodRow{"RangeWithTime", Day(2004, 1, 15, 0, 0), Day(2004, 1, 16, 12, 0), true,
                  "من الخميس 15 يناير  12:00ص إلى الجمعة 16 يناير 2004  12:00م",
                  "From Thu 15 Jan  12:00AM Till Fri 16 Jan 2004  12:00PM"},
        PeriodRow{"WholeMonth", Day(2003, 2, 1), Day(2003, 2, 28), false, "لشهر فبراير 2003",
                  "For Month Feb 2003"},
        PeriodRow{"WholeMonthOfALeapYear", Day(2004, 2, 1), Day(2004, 2, 29), false, "لشهر فبراير 2004",
                  "For Month Feb 2004"},
        PeriodRow{"AMonthShortOfItsLeapDayIsAPlainRange", Day(2004, 2, 1), Day(2004, 2, 28), false,
                  "من الأحد 01 فبراير إلى السبت 28 فبراير 2004", "From Sun 01 Feb Till Sat 28 Feb 2004"},
        PeriodRow{"WholeMonthWithTimePrintsOnlyTheLastDate", Day(2003, 5, 1, 8), Day(2003, 5, 31, 23, 30),
                  true, "لشهر مايو 2003  11:30م", "For Month May 2003  11:30PM"},
        PeriodRow{"WholeMonthsInsideOneYear", Day(2003, 1, 1), Day(2003, 3, 31), false,
                  "من يناير إلى مارس 2003", "From Jan Till Mar 2003"},
        PeriodRow{"WholeMonthsWithTime", Day(2003, 1, 1, 7), Day(2003, 3, 31, 19, 45), true,
                  "من يناير  07:00ص إلى مارس 2003  07:45م", "From Jan  07:00AM Till Mar 2003  07:45PM"},
        PeriodRow{"SameMonthOfAnotherYear", Day(2002, 1, 1), Day(2003, 1, 31), false,
                  "من يناير 2002 إلى يناير 2003", "From Jan 2002 Till Jan 2003"},
        PeriodRow{"WholeMonthsAcrossYears", Day(2002, 11, 1), Day(2003, 2, 28), false,
                  "من نوفمبر 2002 إلى فبراير 2003", "From Nov 2002 Till Feb 2003"},
        PeriodRow{"NoDatesAtAll", 0, 0, false, "ليوم ", ""},
        PeriodRow{"NoDatesWithTime", 0, 0, true, "ليوم   12:00ص", "  12:00AM"},
        PeriodRow{"AZeroFirstDate", 0, Day(2004, 1, 15), false, "من  إلى الخميس 15 يناير 2004",
                  "From  Till Thu 15 Jan 2004"},
        PeriodRow{"ATimeOnDayZeroIsADate", 0.25, 0, false, "ليوم السبت 30 ديسمبر 1899", "Sat 30 Dec 1899"},
        PeriodRow{"BeforeDayZero", -1, 0, false, "ليوم الجمعة 29 ديسمبر 1899", "Fri 29 Dec 1899"},
        PeriodRow{"LessThanHalfASecondBeforeAMinuteBelongsToIt", Day(2004, 1, 15, 9, 59, 59, 600), 0, true,
                  "ليوم الخميس 15 يناير 2004  10:00ص", "Thu 15 Jan 2004  10:00AM"},
        PeriodRow{"MoreThanHalfASecondBeforeAMinuteDoesNot", Day(2004, 1, 15, 9, 59, 59, 400), 0, true,
                  "ليوم الخميس 15 يناير 2004  09:59ص", "Thu 15 Jan 2004  09:59AM"}),
    [](const auto& row) { return row.param.name; });

struct FlagRow {
    const char* name;
    double start;
    double end;
    int flags;
};

class PeriodFlagsTest : public SupportTest, public ::testing::WithParamInterface<FlagRow> {};

TEST_P(PeriodFlagsTest, Says) {
    EXPECT_EQ(GetPeriodFlags(GetParam().start, GetParam().end), GetParam().flags);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PeriodFlagsTest,
    ::testing::Values(FlagRow{"PlainRange", Day(2003, 1, 2), Day(2003, 1, 31), 0},
                      FlagRow{"NotFromTheFirst", Day(2003, 1, 2), Day(2003, 2, 28), 0},
                      FlagRow{"NotToTheLast", Day(2003, 1, 1), Day(2003, 1, 30), 0},
                      FlagRow{"OneWholeMonth", Day(2003, 4, 1), Day(2003, 4, 30), 1},
                      FlagRow{"WholeMonths", Day(2003, 1, 1), Day(2003, 4, 30), 2},
                      FlagRow{"WholeYear", Day(2003, 1, 1), Day(2003, 12, 31), 2},
                      FlagRow{"PlainRangeAcrossYears", Day(2003, 12, 30), Day(2004, 1, 2), 4},
                      FlagRow{"SameMonthAnotherYear", Day(2002, 1, 1), Day(2003, 1, 31), 5},
                      FlagRow{"WholeMonthsAcrossYears", Day(2002, 12, 1), Day(2003, 1, 31), 6},
                      FlagRow{"CenturyThatIsNoLeapYear", Day(1900, 2, 1), Day(1900, 2, 28), 1},
                      FlagRow{"CenturyThatIsALeapYear", Day(2000, 2, 1), Day(2000, 2, 28), 0}),
    [](const auto& row) { return row.param.name; });

TEST_F(SupportTest, ARefusingFormatterLeavesItsTextEmpty) {
    class Refusing final : public Locale {
        int DoGetDateFormat(std::int32_t, std::int32_t, const LocaleDate&, const std::string&, char*,
                            int) override {
            return 0;
        }
        int DoGetTimeFormat(std::int32_t, std::int32_t, const LocaleTime&, const std::string&, char*,
                            int) override {
            return 0;
        }
    };
    Platform::Current().locale = std::make_shared<Refusing>();
    EXPECT_EQ(GetPeriodText(38'000, 38'100, false, true), "From    Till   ");
    EXPECT_EQ(GetPeriodText(38'000, 0, true, false), "ليوم ");
}

TEST_F(SupportTest, AnOverflowReachesTheCallerOfThePeriodText) {
    for (const double date : {3e9, -3e9, 1e300, std::numeric_limits<double>::infinity()}) {
        SCOPED_TRACE(date);
        try {
            static_cast<void>(GetPeriodText(date, 0, true, false));
            FAIL() << "no failure";
        } catch (const Failure& failure) {
            EXPECT_EQ(failure.Number(), FailureNumber::Overflow);
        }
    }
    EXPECT_THROW(static_cast<void>(GetPeriodText(std::numeric_limits<double>::quiet_NaN(), 0, true, false)),
                 Failure);
}

TEST_F(SupportTest, ADayOutsideTheCalendarHasNoText) {
    EXPECT_EQ(GetPeriodText(3e6, 0, true, false), "ليوم ");
    EXPECT_EQ(GetPeriodText(3e6, 0, false, true), "  ");
    EXPECT_EQ(GetPeriodText(1, 5e6, false, false), "From Sun 31 Dec 1899 Till ");
    EXPECT_EQ(GetPeriodText(-7e5, 5e6, false, false), "From  Till ");
    EXPECT_EQ(DateTextArabic(3e9, "MMM", false), "");
}

TEST_F(SupportTest, DateTextsCarryTheTimeBehindTwoBlanks) {
    const double moment = Day(2004, 7, 9, 0, 7);
    EXPECT_EQ(DateTextArabic(moment, "ddd dd MMM", true), "الجمعة 09 يوليو  12:07ص");
    EXPECT_EQ(DateTextArabic(moment, "MMM yyyy", false), "يوليو 2004");
    EXPECT_EQ(DateTextEnglish(moment, "MMM", true), "Jul  12:07AM");
}

} // namespace
} // namespace qbrpt
