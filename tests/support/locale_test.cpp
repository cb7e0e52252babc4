#include "adapters/locale/system_clock.h"
#include "support/locale_text.h"
#include "support_fixture.h"

#include <array>
#include <chrono>
#include <string>

namespace qbrpt {
namespace {

struct DatePictureRow {
    const char* name;
    std::int32_t locale;
    LocaleDate date;
    const char* picture;
    const char* text;
};

class DatePictures : public SupportTest, public ::testing::WithParamInterface<DatePictureRow> {};

TEST_P(DatePictures, Print) {
    const DatePictureRow& row = GetParam();
    EXPECT_EQ(LocaleDateText(row.locale, static_cast<std::int16_t>(row.date.day),
                             static_cast<std::int16_t>(row.date.month),
                             static_cast<std::int16_t>(row.date.year), row.picture),
              row.text);
}

constexpr std::int32_t Ar = LocaleArabicQatar;
constexpr std::int32_t En = LocaleEnglishUs;

INSTANTIATE_TEST_SUITE_P(
    Rows, DatePictures,
    ::testing::Values(DatePictureRow{"EnglishDays", En, {5, 1, 2004}, "d dd ddd dddd", "5 05 Mon Monday"},
                      DatePictureRow{"ArabicDays", Ar, {5, 1, 2004}, "d dd ddd dddd", "5 05 الاثنين الاثنين"},
                      DatePictureRow{"EnglishMonths", En, {5, 8, 2004}, "M MM MMM MMMM", "8 08 Aug August"},
                      DatePictureRow{"ArabicMonths", Ar, {5, 8, 2004}, "M MM MMM MMMM", "8 08 أغسطس أغسطس"},
                      DatePictureRow{"Years", En, {5, 8, 2004}, "y yy yyyy", "4 04 2004"},
                      DatePictureRow{"EarlyYears", En, {5, 8, 812}, "y yy yyyy", "12 12 0812"},
                      DatePictureRow{
                          "LongRunsAreTheLongestKnown", En, {5, 8, 2004}, "ddddd MMMMM", "Thursday August"},
                      DatePictureRow{"QuotedText", En, {5, 8, 2004}, "'day' d 'o''clock'", "day 5 o'clock"},
                      DatePictureRow{"UnclosedQuote", En, {5, 8, 2004}, "d 'day d", "5 day d"},
                      DatePictureRow{"EmptyPicture", En, {5, 8, 2004}, "", ""},
                      DatePictureRow{"OtherLettersStand", En, {5, 8, 2004}, "dd/MM-yyyy hm", "05/08-2004 hm"},
                      DatePictureRow{"ArabicTextInThePicture", Ar, {5, 8, 2004}, "يوم dd", "يوم 05"},
                      DatePictureRow{"Era", En, {5, 8, 2004}, "yyyy gg", "2004 A.D."},
                      DatePictureRow{"LeapDay", En, {29, 2, 2004}, "dd MMM", "29 Feb"},
                      DatePictureRow{"NoLeapDay", En, {29, 2, 2003}, "dd MMM", ""},
                      DatePictureRow{"DayZero", En, {0, 2, 2003}, "dd MMM", ""},
                      DatePictureRow{"MonthZero", En, {1, 0, 2003}, "dd MMM", ""},
                      DatePictureRow{"MonthThirteen", En, {1, 13, 2003}, "dd MMM", ""},
                      DatePictureRow{"YearZero", En, {1, 1, 0}, "dd MMM", ""},
                      DatePictureRow{"YearTenThousand", En, {1, 1, 10'000}, "dd MMM", ""},
                      DatePictureRow{"UnknownLocale", 0x040C, {5, 8, 2004}, "dd MMM", ""}),
    [](const auto& row) { return row.param.name; });

TEST_F(SupportTest, EveryArabicNameIsThatOfTheGregorianCalendar) {
    const std::array<const char*, 12> months = {"يناير", "فبراير", "مارس",   "أبريل",  "مايو",   "يونيو",
                                                "يوليو", "أغسطس",  "سبتمبر", "أكتوبر", "نوفمبر", "ديسمبر"};
    for (std::int16_t month = 1; month <= 12; ++month)
        EXPECT_EQ(LocaleDateText(Ar, 1, month, 2004, "MMM"), months[static_cast<std::size_t>(month - 1)]);
    // 4 January 2004 was a Sunday.
    const std::array<const char*, 7> days = {"الأحد",  "الاثنين", "الثلاثاء", "الأربعاء",
                                             "الخميس", "الجمعة",  "السبت"};
    for (std::int16_t day = 0; day < 7; ++day) {
        EXPECT_EQ(LocaleDateText(Ar, static_cast<std::int16_t>(4 + day), 1, 2004, "ddd"),
                  days[static_cast<std::size_t>(day)]);
    }
}

struct TimePictureRow {
    const char* name;
    std::int32_t locale;
    std::int16_t hour;
    std::int16_t minute;
    const char* picture;
    const char* text;
};

class TimePictures : public SupportTest, public ::testing::WithParamInterface<TimePictureRow> {};

TEST_P(TimePictures, Print) {
    const TimePictureRow& row = GetParam();
    EXPECT_EQ(LocaleTimeText(row.locale, row.hour, row.minute, row.picture), row.text);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, TimePictures,
    ::testing::Values(TimePictureRow{"Midnight", En, 0, 0, "hh:mmtt", "12:00AM"},
                      TimePictureRow{"MidnightArabic", Ar, 0, 0, "hh:mmtt", "12:00ص"},
                      TimePictureRow{"Morning", Ar, 9, 5, "hh:mmtt", "09:05ص"},
                      TimePictureRow{"LastOfTheMorning", Ar, 11, 59, "hh:mmtt", "11:59ص"},
                      TimePictureRow{"Noon", Ar, 12, 0, "hh:mmtt", "12:00م"},
                      TimePictureRow{"Evening", Ar, 23, 59, "hh:mmtt", "11:59م"},
                      TimePictureRow{"ShortForms", En, 13, 5, "h H m s t", "1 13 5 0 P"},
                      TimePictureRow{"ShortArabicMarker", Ar, 13, 5, "t", "م"},
                      TimePictureRow{"LongForms", En, 3, 5, "hh HH mm ss tt", "03 03 05 00 AM"},
                      TimePictureRow{"DateLettersStand", En, 3, 5, "d h", "d 3"},
                      TimePictureRow{"HourTooLarge", En, 24, 0, "hh:mm", ""},
                      TimePictureRow{"HourNegative", En, -1, 0, "hh:mm", ""},
                      TimePictureRow{"MinuteTooLarge", En, 0, 60, "hh:mm", ""},
                      TimePictureRow{"UnknownLocale", 0x0401, 0, 0, "hh:mm", ""}),
    [](const auto& row) { return row.param.name; });

TEST_F(SupportTest, TheFormattersAnswerTheLengthFirst) {
    Locale& locale = *Platform::Current().locale;
    const LocaleDate date{5, 1, 2004};
    std::array<char, 32> buffer{};
    buffer.fill('x');
    const int length = locale.GetDateFormat(Ar, 0, date, "ddd", nullptr, 0);
    EXPECT_EQ(length, static_cast<int>(std::string("الاثنين").size()) + 1);
    EXPECT_EQ(locale.GetDateFormat(Ar, 0, date, "ddd", buffer.data(), length - 1), 0);
    EXPECT_EQ(locale.GetDateFormat(Ar, 0, date, "ddd", nullptr, length), 0);
    EXPECT_EQ(locale.GetDateFormat(Ar, 1, date, "ddd", nullptr, 0), 0);
    EXPECT_EQ(locale.GetDateFormat(Ar, 0, date, "ddd", buffer.data(), length), length);
    EXPECT_STREQ(buffer.data(), "الاثنين");
    EXPECT_EQ(locale.GetTimeFormat(En, 0, {9, 5}, "h:mm", buffer.data(), 5), 5);
    EXPECT_STREQ(buffer.data(), "9:05");
    EXPECT_EQ(locale.GetTimeFormat(En, 0, {9, 5}, "h:mm", buffer.data(), 4), 0);
}

TEST_F(SupportTest, TheTextEndsAtTheFirstNulOfThePlatform) {
    class Chatty final : public Locale {
        int DoGetDateFormat(std::int32_t, std::int32_t, const LocaleDate&, const std::string&, char* buffer,
                            int size) override {
            if (size > 0) std::string("ab\0cd", 6).copy(buffer, 6);
            return 6;
        }
        int DoGetTimeFormat(std::int32_t, std::int32_t, const LocaleTime&, const std::string&, char*,
                            int size) override {
            return size == 0 ? 4 : 0; // promises a text and then does not give it
        }
    };
    Platform::Current().locale = std::make_shared<Chatty>();
    EXPECT_EQ(LocaleDateText(En, 1, 1, 2004, "d"), "ab");
    EXPECT_EQ(LocaleTimeText(En, 1, 1, "h"), "");
}

TEST_F(SupportTest, AZeroDateHasNoText) {
    EXPECT_EQ(FormatLocaleDate(En, 0, "ddd dd MMM yyyy"), "");
    EXPECT_EQ(FormatLocaleDate(En, -0.0, "ddd dd MMM yyyy"), "");
    EXPECT_EQ(FormatLocaleDate(En, 1e-9, "ddd dd MMM yyyy"), "Sat 30 Dec 1899");
    EXPECT_EQ(FormatLocaleDate(En, 2, "dd MMM yyyy"), "01 Jan 1900");
}

TEST(LocaleIdentifiers, AreJoinedFromTheirParts) {
    EXPECT_EQ(MakeLangId(1, 16), 0x4001);
    EXPECT_EQ(MakeLangId(9, 1), 0x0409);
    EXPECT_EQ(MakeLangId(0x12345, 0x10001), (1 << 10) | 0x2345);
    EXPECT_EQ(MakeLcid(0x4001, 0), 0x4001);
    EXPECT_EQ(MakeLcid(0x0409, 5), 0x0409); // the sort order leaves no trace
    EXPECT_EQ(MakeLcid(-1, 0x7FFFFFFF), -1);
}

TEST(SystemClock, TellsThePresentDay) {
    const fakes::FakePlatform platform;
    const double days =
        std::chrono::duration<double, std::ratio<86'400>>(std::chrono::system_clock::now().time_since_epoch())
            .count() +
        25'569.0; // 1 January 1970
    const double now = MakeSystemClock()->Now();
    EXPECT_NEAR(now, days, 0.6); // any zone of the earth
    EXPECT_GE(MakeSystemClock()->Now(), now - 1.0 / 24);
}

} // namespace
} // namespace qbrpt
