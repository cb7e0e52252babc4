#include "base/calendar.h"
#include "report/value_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace qbrpt::report {
namespace {

CellView Number(double number) {
    CellView cell;
    cell.kind = ValueKind::Number;
    cell.number = number;
    return cell;
}
CellView Whole(std::int64_t whole) {
    CellView cell;
    cell.kind = ValueKind::Whole;
    cell.whole = whole;
    cell.number = static_cast<double>(whole);
    return cell;
}
CellView Day(double number) {
    CellView cell = Number(number);
    cell.kind = ValueKind::Date;
    return cell;
}
CellView Text(std::string_view text) {
    CellView cell;
    cell.kind = ValueKind::Text;
    cell.text = text;
    return cell;
}
CellView Truth(bool truth) {
    CellView cell = Whole(truth ? 1 : 0);
    cell.kind = ValueKind::Boolean;
    return cell;
}

struct NumberRow {
    std::string name;
    double value;
    ValueFormat format;
    std::string text;
    bool zero = false;
};

class NumberText : public testing::TestWithParam<NumberRow> {};

TEST_P(NumberText, IsWrittenAsPeopleRoundIt) {
    ValueWriter writer;
    const ValueText text = writer.Write(Number(GetParam().value), GetParam().format, {});
    EXPECT_EQ(text.text, GetParam().text);
    EXPECT_EQ(text.zero, GetParam().zero);
    EXPECT_EQ(text.figures, !GetParam().text.empty());
}

constexpr double Infinity = std::numeric_limits<double>::infinity();

INSTANTIATE_TEST_SUITE_P(
    Money, NumberText,
    testing::Values(NumberRow{"Plain", 1234.5, ValueFormat::Money, "1,234.50"},
                    NumberRow{"Zero", 0, ValueFormat::Money, "0.00", true},
                    NumberRow{"NegativeZero", -0.0, ValueFormat::Money, "0.00", true},
                    NumberRow{"ShowsAsZero", -0.004, ValueFormat::Money, "0.00", true},
                    NumberRow{"ExactHalf", 0.125, ValueFormat::Money, "0.13"},
                    NumberRow{"NegativeHalf", -0.125, ValueFormat::Money, "-0.13"},
                    NumberRow{"HalfInDecimalOnly", 1.005, ValueFormat::Money, "1.01"},
                    NumberRow{"HalfOfEight", 8.345, ValueFormat::Money, "8.35"},
                    NumberRow{"JustBelowHalf", 1.00499999999999, ValueFormat::Money, "1.00"},
                    NumberRow{"CarriesOver", 999.995, ValueFormat::Money, "1,000.00"},
                    NumberRow{"Million", 1e6, ValueFormat::Money, "1,000,000.00"},
                    NumberRow{"Negative", -1234567.891, ValueFormat::Money, "-1,234,567.89"},
                    NumberRow{"Trillions", 123456789012345.67, ValueFormat::Money, "123,456,789,012,345.67"},
                    NumberRow{"Tiny", 5e-324, ValueFormat::Money, "0.00", true},
                    NumberRow{"Huge", 1.5e300, ValueFormat::Money, "1.5e+300"},
                    NumberRow{"NegativeHuge", -1e15, ValueFormat::Money, "-1e+15"},
                    NumberRow{"NotANumber", std::nan(""), ValueFormat::Money, ""},
                    NumberRow{"Infinite", Infinity, ValueFormat::Money, ""}),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    OtherFormats, NumberText,
    testing::Values(NumberRow{"Count", 1234, ValueFormat::Count, "1,234"},
                    NumberRow{"CountZero", 0, ValueFormat::Count, "0", true},
                    NumberRow{"CountHalf", 2.5, ValueFormat::Count, "3"},
                    NumberRow{"CountNegativeHalf", -2.5, ValueFormat::Count, "-3"},
                    NumberRow{"DecimalWhole", 5, ValueFormat::Decimal, "5"},
                    NumberRow{"DecimalOnePlace", 1234.5, ValueFormat::Decimal, "1,234.5"},
                    NumberRow{"DecimalTwoPlaces", 0.666, ValueFormat::Decimal, "0.67"},
                    NumberRow{"DecimalZero", 0, ValueFormat::Decimal, "0", true},
                    NumberRow{"Percent", 0.125, ValueFormat::Percent, "12.5%"},
                    NumberRow{"PercentHalf", 0.0005, ValueFormat::Percent, "0.1%"},
                    NumberRow{"PercentThird", 1.0 / 3, ValueFormat::Percent, "33.3%"},
                    NumberRow{"PercentAll", 1, ValueFormat::Percent, "100.0%"},
                    NumberRow{"PercentZero", 0, ValueFormat::Percent, "0.0%", true},
                    NumberRow{"PercentNegative", -0.25, ValueFormat::Percent, "-25.0%"},
                    NumberRow{"DurationShort", 45, ValueFormat::Duration, "0:45"},
                    NumberRow{"DurationLong", 28420, ValueFormat::Duration, "473:40"},
                    NumberRow{"DurationGrouped", 194100, ValueFormat::Duration, "3,235:00"},
                    NumberRow{"DurationZero", 0, ValueFormat::Duration, "0:00", true},
                    NumberRow{"DurationRoundsUp", 59.99, ValueFormat::Duration, "1:00"},
                    NumberRow{"DurationHalfMinute", 0.5, ValueFormat::Duration, "0:01"},
                    NumberRow{"DurationNegative", -95, ValueFormat::Duration, "-1:35"},
                    NumberRow{"PlainNumber", 12.25, ValueFormat::Text, "12.25"},
                    NumberRow{"PlainZero", 0, ValueFormat::Text, "0", true},
                    NumberRow{"PlainNotANumber", std::nan(""), ValueFormat::Text, ""}),
    [](const auto& row) { return row.param.name; });

struct DateRow {
    std::string name;
    Moment moment;
    ValueFormat format;
    std::string text;
};

class DateText : public testing::TestWithParam<DateRow> {};

TEST_P(DateText, IsWrittenInOneForm) {
    ValueWriter writer;
    const ValueText text = writer.Write(Day(DayNumberOf(GetParam().moment)), GetParam().format, {});
    EXPECT_EQ(text.text, GetParam().text);
    EXPECT_TRUE(text.figures);
}

INSTANTIATE_TEST_SUITE_P(
    Dates, DateText,
    testing::Values(
        DateRow{"Date", {2025, 3, 1, 14, 5}, ValueFormat::Date, "01/03/2025"},
        DateRow{"Time", {2025, 3, 1, 9, 5}, ValueFormat::Time, "09:05"},
        DateRow{"DateTime", {2025, 12, 31, 23, 59}, ValueFormat::DateTime, "31/12/2025 23:59"},
        DateRow{"PlainDate", {2025, 12, 31, 0, 0}, ValueFormat::Text, "31/12/2025 00:00"},
        DateRow{"SecondsAreDropped", {2025, 3, 1, 9, 5, 59}, ValueFormat::Time, "09:05"},
        DateRow{"LastHalfSecond", {2025, 3, 1, 9, 59, 59, 700}, ValueFormat::Time, "10:00"},
        DateRow{"ExactlyHalfASecond", {2025, 3, 1, 9, 59, 59, 500}, ValueFormat::Time, "09:59"},
        DateRow{"HalfSecondToMidnight",
                {2025, 3, 31, 23, 59, 59, 800},
                ValueFormat::DateTime,
                "01/04/2025 00:00"},
        DateRow{"BeforeDayZero", {1899, 12, 29, 6, 0}, ValueFormat::DateTime, "29/12/1899 06:00"},
        DateRow{"YearHundred", {100, 1, 1}, ValueFormat::Date, "01/01/0100"},
        DateRow{"LastMoment", {9999, 12, 31, 23, 59, 59, 900}, ValueFormat::DateTime, "31/12/9999 23:59"}),
    [](const auto& row) { return row.param.name; });

TEST(ValueText, DatesOutsideTheCalendarAreEmpty) {
    ValueWriter writer;
    for (const double day : {-657435.5, 2958466.0, 1e9, -1e300, std::nan("")}) {
        SCOPED_TRACE(day);
        EXPECT_EQ(writer.Write(Day(day), ValueFormat::DateTime, {}).text, "");
        EXPECT_EQ(writer.Write(Day(day), ValueFormat::Picture, "dd/mm/yyyy").text, "");
        EXPECT_EQ(writer.Write(Number(day), ValueFormat::Date, {}).text, "");
    }
}

TEST(ValueText, NullIsEmptyInEveryFormat) {
    ValueWriter writer;
    for (int format = 0; format <= static_cast<int>(ValueFormat::Picture); ++format) {
        SCOPED_TRACE(format);
        const ValueText text = writer.Write({}, static_cast<ValueFormat>(format), "0.00");
        EXPECT_EQ(text.text, "");
        EXPECT_FALSE(text.zero);
    }
}

TEST(ValueText, OtherKindsThanTheFormatIsForStayReadable) {
    ValueWriter writer;
    EXPECT_EQ(writer.Write(Text("abc"), ValueFormat::Money, {}).text, "abc");
    EXPECT_FALSE(writer.Write(Text("12"), ValueFormat::Money, {}).figures);
    EXPECT_EQ(writer.Write(Truth(true), ValueFormat::YesNo, {}).text, "نعم");
    EXPECT_EQ(writer.Write(Truth(false), ValueFormat::Text, {}).text, "لا");
    EXPECT_EQ(writer.Write(Truth(true), ValueFormat::Date, {}).text, "نعم");
    EXPECT_EQ(writer.Write(Whole(3), ValueFormat::YesNo, {}).text, "نعم");
    EXPECT_EQ(writer.Write(Whole(1234567), ValueFormat::Money, {}).text, "1,234,567.00");
    EXPECT_EQ(writer.Write(Whole(std::numeric_limits<std::int64_t>::min()), ValueFormat::Text, {}).text,
              "-9223372036854775808");
    EXPECT_EQ(writer.Write(Day(45000.5), ValueFormat::Money, {}).text, "15/03/2023 12:00");
    EXPECT_EQ(writer.Write(Number(45000.5), ValueFormat::Time, {}).text, "12:00");
}

TEST(ValueText, PicturesAreApplied) {
    ValueWriter writer;
    EXPECT_EQ(writer.Write(Number(1234.5), ValueFormat::Picture, "#,##0.00").text, "1,234.50");
    EXPECT_TRUE(writer.Write(Number(1234.5), ValueFormat::Picture, "#,##0.00").figures);
    EXPECT_EQ(writer.Write(Day(45000.5), ValueFormat::Picture, "yyyy/mm/dd").text, "2023/03/15");
    // In a date '-' is no minus sign: it must go through the text port.
    EXPECT_FALSE(writer.Write(Day(45000.5), ValueFormat::Picture, "yyyy-mm-dd").figures);
    EXPECT_TRUE(writer.Write(Number(-5), ValueFormat::Picture, "0.0").figures);
}

const CountedNoun Entries = {"قيد واحد", "قيدان", "قيود", "قيدًا", "قيد"};

TEST(CountedText, FollowsTheNumber) {
    const std::vector<std::pair<std::size_t, std::string>> rows = {
        {0, "0 قيد"},     {1, "قيد واحد"},   {2, "قيدان"},        {3, "3 قيود"},       {8, "8 قيود"},
        {10, "10 قيود"},  {11, "11 قيدًا"},   {99, "99 قيدًا"},     {100, "100 قيد"},    {101, "101 قيد"},
        {102, "102 قيد"}, {103, "103 قيود"}, {110, "110 قيود"},   {111, "111 قيدًا"},   {199, "199 قيدًا"},
        {200, "200 قيد"}, {202, "202 قيد"},  {1000, "1,000 قيد"}, {1011, "1,011 قيدًا"}};
    for (const auto& [count, text] : rows) {
        SCOPED_TRACE(count);
        EXPECT_EQ(CountedText(count, Entries), text);
    }
}

// Rounding by text is the rule; the fast way must agree with it everywhere.
TEST(RoundedUnits, AgreesWithDecimalTextNearEveryHalf) {
    for (int cents = 0; cents < 20000; ++cents) {
        const std::string text = std::to_string(cents / 100) + "." + (cents % 100 < 10 ? "0" : "") +
                                 std::to_string(cents % 100) + "5";
        const double value = std::stod(text);
        ASSERT_EQ(RoundedUnits(value, 2), static_cast<std::uint64_t>(cents) + 1) << text;
        ASSERT_EQ(RoundedUnits(std::stod(text.substr(0, text.size() - 1) + "4999"), 2),
                  static_cast<std::uint64_t>(cents))
            << text;
    }
}

} // namespace
} // namespace qbrpt::report
