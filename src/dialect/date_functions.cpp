#include "base/calendar.h"
#include "base/calendar_names.h"
#include "base/failure.h"
#include "base/numbers.h"
#include "dialect/convert.h"
#include "dialect/date_text.h"
#include "dialect/function_groups.h"
#include "dialect/words.h"

#include <array>
#include <cmath>
#include <string>

namespace qbrpt::dialect {

namespace {

enum class Interval : std::uint8_t {
    Year,
    Quarter,
    Month,
    DayOfYear,
    Day,
    Weekday,
    Week,
    Hour,
    Minute,
    Second
};

Interval IntervalOf(const Value& value) {
    constexpr std::array<std::string_view, 10> Words = {"yyyy", "q", "m", "y", "d", "w", "ww", "h", "n", "s"};
    const std::string text = TextOf(value);
    for (std::size_t i = 0; i < Words.size(); ++i) {
        if (SameName(text, Words.at(i))) return static_cast<Interval>(i);
    }
    throw Failure(FailureNumber::InvalidArgument,
                  "\"" + text + "\" is no interval; write yyyy, q, m, y, d, w, ww, h, n or s.");
}

Moment MomentOfValue(const Value& value) {
    return MomentToTheSecond(DayOf(value));
}

Value Checked(double dayNumber) {
    (void)MomentOf(dayNumber); // raises outside of the calendar
    return dayNumber;
}

std::int64_t DaysOf(const Moment& moment) {
    return DaysFromCivil(moment.year, moment.month, moment.day);
}

std::int64_t SecondsOf(const Moment& moment) {
    return DaysOf(moment) * 86'400 + moment.hour * 3600LL + moment.minute * 60LL + moment.second;
}

std::int64_t FloorDivide(std::int64_t value, std::int64_t by) {
    return value / by - (value % by < 0 ? 1 : 0);
}

int DayOfYear(const Moment& moment) {
    return static_cast<int>(DaysOf(moment) - DaysFromCivil(moment.year, 1, 1)) + 1;
}

// Days from the first day of the week that begins on `first` (1 is Sunday, 0 the usual one) to `weekday`.
int DaysIntoWeek(int weekday, int first) {
    if (first < 0 || first > 7) throw Failure(FailureNumber::InvalidArgument, "Days of the week are 1 to 7.");
    return (weekday - (first == 0 ? 0 : first - 1) + 7) % 7;
}

Value Year(Arguments a, const FunctionWorld&) {
    return WholeValue(MomentOfValue(a[0]).year);
}
Value Month(Arguments a, const FunctionWorld&) {
    return WholeValue(MomentOfValue(a[0]).month);
}
Value Day(Arguments a, const FunctionWorld&) {
    return WholeValue(MomentOfValue(a[0]).day);
}
Value Hour(Arguments a, const FunctionWorld&) {
    return WholeValue(MomentOfValue(a[0]).hour);
}
Value Minute(Arguments a, const FunctionWorld&) {
    return WholeValue(MomentOfValue(a[0]).minute);
}
Value Second(Arguments a, const FunctionWorld&) {
    return WholeValue(MomentOfValue(a[0]).second);
}
Value Weekday(Arguments a, const FunctionWorld&) {
    return WholeValue(DaysIntoWeek(MomentOfValue(a[0]).weekday, a.size() > 1 ? SmallOf(a[1]) : 1) + 1);
}

Value DateAdd(Arguments a, const FunctionWorld&) {
    const Interval interval = IntervalOf(a[0]);
    const int count = SmallOf(a[1]);
    Moment moment = MomentOf(DayOf(a[2]));
    const int months = interval == Interval::Year ? 12 : interval == Interval::Quarter ? 3 : 1;
    switch (interval) {
    case Interval::Year:
    case Interval::Quarter:
    case Interval::Month: {
        if (std::abs(count) > 200'000) (void)SmallOf(a[1], 200'000);
        const int day = moment.day;
        moment.day = 1;
        moment.month += months * count;
        moment = MomentOf(DayNumberOf(moment));
        const std::int64_t length = DaysFromCivil(moment.year, moment.month + 1, 1) - DaysOf(moment);
        moment.day = static_cast<int>(std::min<std::int64_t>(day, length));
        break;
    }
    case Interval::Week:
        moment.day += 7 * SmallOf(a[1], 100'000'000);
        break;
    case Interval::Hour:
        moment.hour += count;
        break;
    case Interval::Minute:
        moment.minute += count;
        break;
    case Interval::Second:
        moment.second += count;
        break;
    default:
        moment.day += count;
        break;
    }
    return Checked(DayNumberOf(moment));
}

Value DateDiff(Arguments a, const FunctionWorld&) {
    const Interval interval = IntervalOf(a[0]);
    const Moment from = MomentOfValue(a[1]);
    const Moment to = MomentOfValue(a[2]);
    const int first = a.size() > 3 ? SmallOf(a[3]) : 1;
    const auto parts = [&](std::int64_t seconds) {
        return WholeValue(FloorDivide(SecondsOf(to), seconds) - FloorDivide(SecondsOf(from), seconds));
    };
    const std::int64_t days = DaysOf(to) - DaysOf(from);
    switch (interval) {
    case Interval::Year:
        return WholeValue(to.year - from.year);
    case Interval::Quarter:
        return WholeValue((to.year - from.year) * 4 + (to.month + 2) / 3 - (from.month + 2) / 3);
    case Interval::Month:
        return WholeValue((to.year - from.year) * 12 + to.month - from.month);
    case Interval::Weekday:
        return WholeValue(days / 7);
    case Interval::Week:
        return WholeValue((days - DaysIntoWeek(to.weekday, first) + DaysIntoWeek(from.weekday, first)) / 7);
    case Interval::Hour:
        return parts(3600);
    case Interval::Minute:
        return parts(60);
    case Interval::Second:
        return parts(1);
    default:
        return WholeValue(days);
    }
}

Value DatePart(Arguments a, const FunctionWorld&) {
    const Moment moment = MomentOfValue(a[1]);
    const int first = a.size() > 2 ? SmallOf(a[2]) : 1;
    switch (IntervalOf(a[0])) {
    case Interval::Year:
        return WholeValue(moment.year);
    case Interval::Quarter:
        return WholeValue((moment.month + 2) / 3);
    case Interval::Month:
        return WholeValue(moment.month);
    case Interval::DayOfYear:
        return WholeValue(DayOfYear(moment));
    case Interval::Day:
        return WholeValue(moment.day);
    case Interval::Weekday:
        return WholeValue(DaysIntoWeek(moment.weekday, first) + 1);
    case Interval::Week: {
        const int newYear = ((moment.weekday - (DayOfYear(moment) - 1)) % 7 + 7) % 7;
        return WholeValue((DayOfYear(moment) - 1 + DaysIntoWeek(newYear, first)) / 7 + 1);
    }
    case Interval::Hour:
        return WholeValue(moment.hour);
    case Interval::Minute:
        return WholeValue(moment.minute);
    case Interval::Second:
        break;
    }
    return WholeValue(moment.second);
}

Value DateSerial(Arguments a, const FunctionWorld&) {
    constexpr int Farthest = 1'000'000;
    int year = SmallOf(a[0], Farthest);
    if (year >= 0 && year < 100) year += year < 30 ? 2000 : 1900;
    return Checked(
        static_cast<double>(DaysFromCivil(year, SmallOf(a[1], Farthest), SmallOf(a[2], 10 * Farthest))));
}
Value TimeSerial(Arguments a, const FunctionWorld&) {
    Moment moment;
    moment.hour = SmallOf(a[0], 1'000'000);
    moment.minute = SmallOf(a[1], 1'000'000);
    moment.second = SmallOf(a[2], 1'000'000);
    return Checked(DayNumberOf(moment));
}
Value DateValue(Arguments a, const FunctionWorld&) {
    return static_cast<double>(DaysOf(MomentOf(DayOf(a[0]))));
}
Value TimeValue(Arguments a, const FunctionWorld&) {
    Moment moment = MomentOf(DayOf(a[0]));
    moment.year = 1899;
    moment.month = 12;
    moment.day = 30;
    return DayNumberOf(moment);
}
Value ToDate(Arguments a, const FunctionWorld&) {
    return Checked(DayOf(a[0]));
}
Value Snap(Arguments a, const FunctionWorld&) {
    return SnapToMillisecond(DayOf(a[0]));
}
Value DayNumber(Arguments a, const FunctionWorld&) {
    return WholeValue(RoundToLong(SnapToMillisecond(DayOf(a[0]))));
}
Value IsDate(Arguments a, const FunctionWorld&) {
    const auto* text = std::get_if<std::string>(a.data());
    return WholeValue(text != nullptr ? ParseDateText(*text, DateOrder::DayFirst).has_value()
                                      : !IsNull(a[0]));
}

bool IsShort(Arguments a) {
    return a.size() > 1 && NumberOf(a[1]) != 0;
}
Value MonthName(Arguments a, const FunctionWorld&) {
    const int month = SmallOf(a[0]);
    if (month < 1 || month > 12) throw Failure(FailureNumber::InvalidArgument, "Months are 1 to 12.");
    const auto index = static_cast<std::size_t>(month - 1);
    return std::string(IsShort(a) ? ArabicNames().shortMonths.at(index) : ArabicNames().months.at(index));
}
Value WeekdayName(Arguments a, const FunctionWorld&) {
    const int day = SmallOf(a[0]);
    const int first = a.size() > 2 ? SmallOf(a[2]) : 1;
    if (day < 1 || day > 7 || first < 0 || first > 7)
        throw Failure(FailureNumber::InvalidArgument, "Days of the week are 1 to 7.");
    const auto index = static_cast<std::size_t>((day - 1 + (first == 0 ? 0 : first - 1)) % 7);
    return std::string(IsShort(a) ? ArabicNames().shortDays.at(index) : ArabicNames().days.at(index));
}

Value Now(Arguments, const FunctionWorld& world) {
    return world.now;
}
Value Today(Arguments, const FunctionWorld& world) {
    return std::floor(world.now);
}
Value TimeOfDay(Arguments, const FunctionWorld& world) {
    return world.now - std::floor(world.now);
}

constexpr auto Functions = std::to_array<ScalarFunction>({
    {"qb_now", 0, 0, true, Now},
    {"qb_today", 0, 0, true, Today},
    {"qb_timeofday", 0, 0, true, TimeOfDay},
    {"qb_year", 1, 1, false, UnlessNull<Year>},
    {"qb_month", 1, 1, false, UnlessNull<Month>},
    {"qb_day", 1, 1, false, UnlessNull<Day>},
    {"qb_hour", 1, 1, false, UnlessNull<Hour>},
    {"qb_minute", 1, 1, false, UnlessNull<Minute>},
    {"qb_second", 1, 1, false, UnlessNull<Second>},
    {"qb_weekday", 1, 2, false, UnlessNull<Weekday>},
    {"qb_dateadd", 3, 3, false, UnlessNull<DateAdd>},
    {"qb_datediff", 3, 4, false, UnlessNull<DateDiff>},
    {"qb_datepart", 2, 3, false, UnlessNull<DatePart>},
    {"qb_dateserial", 3, 3, false, UnlessNull<DateSerial>},
    {"qb_timeserial", 3, 3, false, UnlessNull<TimeSerial>},
    {"qb_datevalue", 1, 1, false, UnlessNull<DateValue>},
    {"qb_timevalue", 1, 1, false, UnlessNull<TimeValue>},
    {"qb_cdate", 1, 1, false, UnlessNull<ToDate>},
    {"qb_snap", 1, 1, false, UnlessNull<Snap>},
    {"qb_cday", 1, 1, false, UnlessNull<DayNumber>},
    {"qb_isdate", 1, 1, false, IsDate},
    {"qb_monthname", 1, 2, false, UnlessNull<MonthName>},
    {"qb_weekdayname", 1, 3, false, UnlessNull<WeekdayName>},
});

} // namespace

std::span<const ScalarFunction> DateFunctions() {
    return Functions;
}

} // namespace qbrpt::dialect
