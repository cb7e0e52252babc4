#include "base/calendar.h"
#include "base/calendar_names.h"
#include "base/failure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

namespace qbrpt {
namespace {

std::string Text(const Moment& m) {
    char text[64];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d.%03d %d", m.year, m.month, m.day, m.hour,
                  m.minute, m.second, m.millisecond, m.weekday);
    return text;
}

TEST(Moment, OfADayNumber) {
    const std::pair<double, const char*> rows[] = {{0, "1899-12-30 00:00:00.000 6"},
                                                   {1, "1899-12-31 00:00:00.000 0"},
                                                   {2, "1900-01-01 00:00:00.000 1"},
                                                   {60, "1900-02-28 00:00:00.000 3"},
                                                   {61, "1900-03-01 00:00:00.000 4"},
                                                   {-1, "1899-12-29 00:00:00.000 5"},
                                                   {-1.25, "1899-12-29 06:00:00.000 5"},
                                                   {0.5, "1899-12-30 12:00:00.000 6"},
                                                   {36585, "2000-02-29 00:00:00.000 2"},
                                                   {36586, "2000-03-01 00:00:00.000 3"},
                                                   {37787.604166666664, "2003-06-15 14:30:00.000 0"},
                                                   {37787.4166666667, "2003-06-15 10:00:00.000 0"},
                                                   {37786.9999999999, "2003-06-15 00:00:00.000 0"},
                                                   {-657434, "0100-01-01 00:00:00.000 5"},
                                                   {2958465.999988426, "9999-12-31 23:59:59.000 5"}};
    for (const auto& [number, text] : rows) {
        SCOPED_TRACE(text);
        EXPECT_EQ(Text(MomentOf(number)), text);
    }
}

TEST(Moment, OutsideOfTheCalendarIsAFailure) {
    for (const double number : {-657435.0, 2958466.0, 1e300, -1e300, std::nan("")})
        EXPECT_THROW((void)MomentOf(number), Failure) << number;
}

TEST(Moment, ComesBackFromItsDayNumber) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937_64 random(seed);
    for (int i = 0; i < 20'000; ++i) {
        const auto days = static_cast<double>(static_cast<std::int64_t>(random() % 3'615'899) - 657'434);
        const double number =
            days + (days < 0 ? -1 : 1) * static_cast<double>(random() % 86'400'000) / 86'400'000;
        const Moment moment = MomentOf(number);
        ASSERT_EQ(Text(MomentOf(DayNumberOf(moment))), Text(moment)) << number;
        ASSERT_EQ(DayNumberOf(moment), SnapToMillisecond(number)) << number;
    }
}

TEST(ClockMoment, BelongsToTheSecondThatIsLessThanHalfASecondAway) {
    const double ten = 37787.416666666664;
    EXPECT_EQ(Text(MomentToTheSecond(ten - 0.499 / 86400)), "2003-06-15 10:00:00.000 0");
    EXPECT_EQ(Text(MomentToTheSecond(ten - 0.5 / 86400)), "2003-06-15 09:59:59.000 0");
    EXPECT_EQ(Text(MomentToTheSecond(ten + 0.4 / 86400)), "2003-06-15 10:00:00.000 0");
    EXPECT_EQ(Text(MomentToTheSecond(37788 - 0.2 / 86400)), "2003-06-16 00:00:00.000 1");
}

TEST(DaysFromCivil, CarriesMonthsAndDays) {
    EXPECT_EQ(DaysFromCivil(2003, 6, 15), 37787);
    EXPECT_EQ(DaysFromCivil(2003, 14, 1), DaysFromCivil(2004, 2, 1));
    EXPECT_EQ(DaysFromCivil(2003, 0, 1), DaysFromCivil(2002, 12, 1));
    EXPECT_EQ(DaysFromCivil(2003, -11, 1), DaysFromCivil(2002, 1, 1));
    EXPECT_EQ(DaysFromCivil(2004, 3, 0), DaysFromCivil(2004, 2, 29));
    EXPECT_EQ(DaysFromCivil(2100, 3, 0), DaysFromCivil(2100, 2, 28));
}

TEST(SnapToMillisecond, MakesOneNumberOfTheTextsOfOneMoment) {
    EXPECT_EQ(SnapToMillisecond(37787.4166666667), 37787.416666666664);
    EXPECT_EQ(SnapToMillisecond(37787.4166666666), 37787.416666666664);
    EXPECT_EQ(SnapToMillisecond(37787), 37787);
    for (int second = 0; second < 86'400; ++second) {
        const double stored = 37787 + static_cast<double>(second) / 86'400;
        char text[40];
        std::snprintf(text, sizeof text, "%.15g", stored);
        ASSERT_EQ(SnapToMillisecond(std::strtod(text, nullptr)), SnapToMillisecond(stored)) << second;
    }
}

TEST(CalendarNames, AreOfTheirLanguage) {
    EXPECT_EQ(ArabicNames().months[0], "يناير");
    EXPECT_EQ(ArabicNames().months[11], "ديسمبر");
    EXPECT_EQ(ArabicNames().days[0], "الأحد");
    EXPECT_EQ(ArabicNames().days[1], "الاثنين");
    EXPECT_EQ(ArabicNames().shortDays, ArabicNames().days);
    EXPECT_EQ(ArabicNames().shortMonths, ArabicNames().months);
    EXPECT_EQ(ArabicNames().am, "ص");
    EXPECT_EQ(ArabicNames().pm, "م");
    EXPECT_EQ(EnglishNames().days[6], "Saturday");
    EXPECT_EQ(EnglishNames().shortMonths[8], "Sep");
}

} // namespace
} // namespace qbrpt
