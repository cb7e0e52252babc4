#include "base/calendar.h"
#include "base/failure.h"
#include "base/pictures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace qbrpt {
namespace {

struct NumberRow {
    const char* name;
    double value;
    const char* picture;
    const char* text;
};

class NumberPictures : public testing::TestWithParam<NumberRow> {};

TEST_P(NumberPictures, Print) {
    EXPECT_EQ(FormatNumber(GetParam().value, GetParam().picture), GetParam().text);
}

const NumberRow NumberRows[] = {
    {"CardNumberShort", 42, "#00000", "00042"},
    {"CardNumberSix", 123456, "#00000", "123456"},
    {"CardNumberLong", 1234567, "#00000", "1234567"},
    {"CardNumberNegative", -42, "#00000", "-00042"},
    {"Whole", 7.5, "0", "8"},
    {"TwoPlaces", 7, "0.00", "7.00"},
    {"ZeroTwoPlaces", 0, "0.00", "0.00"},
    {"HalfAwayFromZero", 0.125, "0.00", "0.13"},
    {"HalfAwayFromZeroNegative", -0.125, "0.00", "-0.13"},
    {"HalfOfTheWrittenDigits", 1.005, "0.00", "1.01"},
    {"HalfAfterArithmetic", 1.005 * 3, "0.000", "3.015"},
    {"SumOfTenths", 0.1 + 0.2, "0.0000000000000000", "0.3000000000000000"},
    {"CarriesOver", 9.995, "0.00", "10.00"},
    {"CarriesIntoGroups", 999.995, "#,##0.00", "1,000.00"},
    {"NoMinusOnZero", -0.001, "0.00", "0.00"},
    {"Grouped", 1234567.891, "#,##0.00", "1,234,567.89"},
    {"GroupedSmall", 5, "#,##0.00", "5.00"},
    {"GroupedNegative", -1234.5, "#,##0.00", "-1,234.50"},
    {"OptionalThirdPlaceNotNeeded", 1234.5, "#,##.00#", "1,234.50"},
    {"OptionalThirdPlaceNeeded", 1234.567, "#,##.00#", "1,234.567"},
    {"OptionalThirdPlaceRounds", 1234.5678, "#,##.00#", "1,234.568"},
    {"OptionalWholeOfFraction", 0.5, "#,##.00#", ".50"},
    {"OptionalWholeOfZero", 0, "#,##.00#", ".00"},
    {"OptionalPlaces", 1.5, "0.##", "1.5"},
    {"OptionalPlacesKeepPoint", 2, "0.##", "2."},
    {"OptionalOnly", 0, "#", ""},
    {"Percent", 0.256, "0%", "26%"},
    {"PercentPlaces", 0.125, "0.0%", "12.5%"},
    {"PercentOfMore", 2.5, "0%", "250%"},
    {"Thousands", 1234567, "0,", "1235"},
    {"Millions", 1234567, "0.0,,", "1.2"},
    {"ThousandsBeforePoint", 1234567, "#,##0,.0", "1,234.6"},
    {"Literal", 5, "0 \"min\"", "5 min"},
    {"Backslash", 5, "\\#0", "#5"},
    {"ArabicLiteral", 5, "0 دقيقة", "5 دقيقة"},
    {"InsideDigits", 12345, "0-00-00", "1-23-45"},
    {"Parentheses", -5, "0;(0)", "(5)"},
    {"TwoSectionsPositive", 5, "0;(0)", "5"},
    {"TwoSectionsZero", 0, "0;(0)", "0"},
    {"ThreeSectionsZero", 0, "0;-0;\"zero\"", "zero"},
    {"ThreeSectionsNegative", -3, "0;\"minus \"0;\"zero\"", "minus 3"},
    {"EmptySecondSection", -5, "0.0;", "-5.0"},
    {"SemicolonInQuotes", 5, "0\";\"", "5;"},
    {"Scientific", 12345, "0.00E+00", "1.23E+04"},
    {"ScientificSmall", 0.00012, "0.0E+0", "1.2E-4"},
    {"ScientificCarries", 9.996, "0.00E+00", "1.00E+01"},
    {"ScientificMinusOnly", 12345, "0.0E-0", "1.2E4"},
    {"ScientificZero", 0, "0.0E+0", "0.0E+0"},
    {"GeneralNumber", 1234.5, "General Number", "1234.5"},
    {"NoPicture", 5.0, "", "5"},
    {"Currency", 1234.5, "Currency", "1,234.50"},
    {"Fixed", 1234.5, "fixed", "1234.50"},
    {"Standard", 1234.5, "Standard", "1,234.50"},
    {"PercentNamed", 0.5, "Percent", "50.00%"},
    {"ScientificNamed", 1234, "Scientific", "1.23E+03"},
    {"Yes", -1, "Yes/No", "Yes"},
    {"No", 0, "Yes/No", "No"},
    {"TrueWord", 5, "True/False", "True"},
    {"OffWord", 0, "On/Off", "Off"},
    {"NotANumber", std::numeric_limits<double>::quiet_NaN(), "0.00", ""},
    {"Infinity", std::numeric_limits<double>::infinity(), "0.00", ""},
    {"Huge", 1e20, "#,##0", "100,000,000,000,000,000,000"},
    {"Tiny", 1e-20, "0.00", "0.00"},
    {"OnlyLiterals", 5, "\"abc\"", "abc"},
    {"OpenQuote", 5, "0\"abc", "5abc"},
    {"BackslashAtTheEnd", 5, "0\\", "5"},
};

std::string NumberName(const testing::TestParamInfo<NumberRow>& row) {
    return row.param.name;
}
INSTANTIATE_TEST_SUITE_P(Rows, NumberPictures, testing::ValuesIn(NumberRows), NumberName);

struct DateRow {
    const char* name;
    double value;
    const char* picture;
    const char* text;
};

class DatePictures : public testing::TestWithParam<DateRow> {};

TEST_P(DatePictures, PrintInArabic) {
    EXPECT_EQ(FormatDate(GetParam().value, GetParam().picture, ArabicNames()), GetParam().text);
}

constexpr double Day = 37787;                             // Sunday, 15 June 2003
constexpr double Morning = 37787 + 9.0 / 24 + 5.0 / 1440; // 09:05
constexpr double Afternoon = 37787 + 14.0 / 24 + 30.0 / 1440 + 7.0 / 86400;

const DateRow DateRows[] = {
    {"DayMonthYear", Day, "ddd dd MMM yyyy", "الأحد 15 يونيو 2003"},
    {"DayCommaMonthYear", Day, "ddd, dd MMM yyyy", "الأحد, 15 يونيو 2003"},
    {"Monday", Day + 1, "dddd", "الاثنين"},
    {"NoLeadingZero", Day - 10, "d/m/yy", "5/6/03"},
    {"LeadingZeros", Day - 10, "dd/mm/yyyy", "05/06/2003"},
    {"LongMonth", Day, "mmmm", "يونيو"},
    {"Dashes", Day, "dd-mm-yyyy", "15-06-2003"},
    {"CapitalMonthBehindHour", Morning, "dd-mm-yyyy hh:MM", "15-06-2003 09:06"},
    {"SmallMinuteBehindHour", Morning, "hh:mm", "09:05"},
    {"SmallMinuteBehindHourAndWords", Morning, "h \"and\" m", "9 and 5"},
    {"MonthBeforeHour", Morning, "mm hh", "06 09"},
    {"MonthNotRightBehindHour", Morning, "hh dd mm", "09 15 06"},
    {"LongMonthBehindHour", Morning, "hh mmm", "09 يونيو"},
    {"Minutes", Morning, "h:n", "9:5"},
    {"Seconds", Afternoon, "hh:nn:ss", "14:30:07"},
    {"TwelveHours", Afternoon, "hh:nn AM/PM", "02:30 PM"},
    {"TwelveHoursSmall", Morning, "h:nn am/pm", "9:05 am"},
    {"TwelveHoursLetter", Afternoon, "h A/P", "2 P"},
    {"TwelveHoursSmallLetter", Morning, "h a/p", "9 a"},
    {"TwelveHoursOwnWords", Afternoon, "h:nn AMPM", "2:30 م"},
    {"TwelveHoursOwnWordsMorning", Morning, "h:nn AMPM", "9:05 ص"},
    {"NoonIsTwelve", Day + 0.5, "h AM/PM", "12 PM"},
    {"MidnightIsTwelve", Day, "h AM/PM", "12 AM"},
    {"Quarter", Day, "q", "2"},
    {"Weekday", Day, "w", "1"},
    {"Week", Day, "ww", "25"},
    {"DayOfYear", Day, "y", "166"},
    {"Quoted", Day, "\"day \"dd", "day 15"},
    {"BackslashLetter", Day, "\\ddd", "d15"},
    {"OtherLettersStay", Day, "dd T", "15 T"},
    {"ArabicLettersStay", Day, "dd من MMM", "15 من يونيو"},
    {"OpenQuote", Day, "dd \"x", "15 x"},
    {"GeneralDate", Day, "General Date", "15/06/2003"},
    {"GeneralDateWithTime", Afternoon, "General Date", "15/06/2003 02:30:07 م"},
    {"GeneralTime", 0.25, "General Date", "06:00:00 ص"},
    {"GeneralNothing", 0, "General Date", "30/12/1899"},
    {"NoPicture", Day, "", "15/06/2003"},
    {"LongDate", Day, "Long Date", "الأحد 15 يونيو 2003"},
    {"MediumDate", Day, "Medium Date", "15-يونيو-03"},
    {"ShortDate", Day, "short date", "15/06/2003"},
    {"LongTime", Afternoon, "Long Time", "02:30:07 م"},
    {"MediumTime", Afternoon, "Medium Time", "02:30 م"},
    {"ShortTime", Afternoon, "Short Time", "14:30"},
    {"FiveDs", Day, "ddddd", "15/06/2003"},
    {"SixDs", Day, "dddddd", "الأحد 15 يونيو 2003"},
    {"FiveTs", Morning, "ttttt", "09:05:00 ص"},
    {"JustBeforeTheMinute", Morning - 0.4 / 86400, "hh:nn", "09:05"},
    {"JustBeforeTheMinuteWithSeconds", Morning - 0.4 / 86400, "hh:nn:ss", "09:05:00"},
    {"HalfASecondBeforeStays", Morning - 0.5 / 86400, "hh:nn", "09:04"},
    {"LongerBeforeTheMinute", Morning - 0.6 / 86400, "hh:nn", "09:04"},
    {"JustBeforeMidnight", Day - 0.3 / 86400, "dd hh:nn", "15 00:00"},
    {"BeforeDayZero", -1.25, "dd/mm/yyyy hh:nn", "29/12/1899 06:00"},
    {"FirstDay", -657434, "dd/mm/yyyy", "01/01/0100"},
    {"LastDay", 2958465, "dd/mm/yyyy", "31/12/9999"},
};

std::string DateName(const testing::TestParamInfo<DateRow>& row) {
    return row.param.name;
}
INSTANTIATE_TEST_SUITE_P(Rows, DatePictures, testing::ValuesIn(DateRows), DateName);

TEST(DatePicture, PrintsInEnglish) {
    EXPECT_EQ(FormatDate(Day, "ddd dd MMM yyyy", EnglishNames()), "Sun 15 Jun 2003");
    EXPECT_EQ(FormatDate(Afternoon, "dddd, mmmm d, h:nn AMPM", EnglishNames()), "Sunday, June 15, 2:30 PM");
}

TEST(DatePicture, RefusesWhatIsNoDate) {
    EXPECT_THROW((void)FormatDate(1e9, "dd", ArabicNames()), Failure);
    EXPECT_THROW((void)FormatDate(std::nan(""), "dd", ArabicNames()), Failure);
}

TEST(Picture, IsOfDatesOrOfNumbers) {
    for (const char* picture :
         {"dd", "hh:nn", "yyyy", "General Date", "short time", "q", "c", "ddd \"0\"", "M"})
        EXPECT_TRUE(IsDatePicture(picture)) << picture;
    for (const char* picture : {"0", "#,##0.00", "0 \"days\"", "General Number", "Standard", "Yes/No",
                                "Currency", "Scientific", "0.0E+00", "", "\"day\"", "\\d"})
        EXPECT_FALSE(IsDatePicture(picture)) << picture;
}

} // namespace
} // namespace qbrpt
