#include "samples/sample_rows.h"

#include "base/calendar.h"
#include "base/calendar_names.h"
#include "base/utf8.h"
#include "samples/make_rows.h"

#include <array>
#include <cstdint>

namespace qbrpt::samples {

namespace {

double Day(int year, int month, int day, int minutes = 0) {
    return static_cast<double>(DaysFromCivil(year, month, day)) + minutes / 1440.0;
}

std::string DayWords(double dayNumber) {
    const Moment moment = MomentOf(dayNumber);
    const CalendarNames& names = ArabicNames();
    std::string text(names.days[static_cast<std::size_t>(moment.weekday)]);
    text += moment.day < 10 ? " 0" : " ";
    text += std::to_string(moment.day) + " ";
    text += names.months[static_cast<std::size_t>(moment.month - 1)];
    return text + " " + std::to_string(moment.year);
}

/// Quarters of a unit of money between two bounds, the same for the same seed.
double Money(std::size_t seed, double from, double to) {
    const double part = static_cast<double>(seed * 2654435761U % 1000U) / 1000.0;
    return static_cast<double>(static_cast<std::int64_t>((from + (to - from) * part) * 4)) / 4;
}

struct MonthDay {
    int from, to;
    double general, members, cards, other, discount, total;
    int prints, cardUses, generalUses, memberUses;
    int workMinutes, useMinutes;
    int hosts;
};

// clang-format off
constexpr std::array<MonthDay, 20> Month = {{
    {540,110,1255.25,372,248,0,0,1875.25,28,14,189,85,1008,9866,24},
    {537,80,1155.75,307.5,154,47.75,0,1665,29,15,150,50,979,8694,24},
    {544,77,852.5,414.25,148.75,44.75,19,1441.25,35,19,160,51,972,9944,24},
    {535,68,1019,273.5,260.25,0,3.25,1549.5,26,15,161,49,970,10426,24},
    {547,95,1094.5,304,252.75,17,33,1635.25,45,17,163,55,983,8640,24},
    {538,165,1250.25,582.25,298,17.5,0,2148,18,25,221,74,1060,13328,24},
    {533,174,1405.5,569.5,171.75,0,19.5,2127.25,42,22,218,74,1076,12740,24},
    {540,108,1008,306.75,287.5,7.25,0,1609.5,43,22,191,56,1007,9627,24},
    {535,90,1156.25,448,149.5,37.25,30.25,1760.75,40,18,140,49,993,9487,23},
    {546,95,1156.25,290.5,249,0,0,1695.75,11,14,177,75,981,10214,23},
    {548,68,889.25,380.75,152.75,0,33.5,1389.25,24,12,128,68,960,8804,24},
    {544,96,1037.75,331.25,256.5,0,0,1625.5,11,21,129,69,990,8344,24},
    {546,171,1356.5,314.25,195.75,0,10.5,1856,24,30,176,81,1059,13400,24},
    {533,162,1183,565.25,268.5,0,0,2016.75,-1,-1,-1,-1,1067,-1,24},
    {540,106,1161.25,422.5,196.25,0,35.25,1744.75,45,22,156,87,1000,9264,24},
    {548,85,1053,445.5,146.75,18.25,11.5,1652,13,25,161,66,974,10209,24},
    {538,81,921.5,429,201,0,33.25,1518.25,26,14,152,59,980,10525,24},
    {540,91,1044,302.75,250.75,0,34.75,1562.75,28,28,180,75,990,10245,24},
    {535,84,851,432.5,129.75,0,23.5,1389.75,36,17,183,77,984,9585,24},
    {547,163,1261,335,217,0,12.5,1800.5,29,30,195,61,1056,10758,24},
}};
// clang-format on

Value CountOf(int count) {
    if (count < 0) return Null{};
    return std::int64_t{count};
}

Date At(double dayNumber) {
    return Date{dayNumber};
}

} // namespace

Row NullRow(std::size_t fieldCount) {
    return Row(fieldCount, Value{Null{}});
}

std::string LongText(std::size_t characters) {
    std::string text;
    while (CharacterCount(text) < characters)
        text += "مصروفات صيانة الأجهزة والشبكة بتاريخ 02-03-2025 ";
    return std::string(FirstCharacters(text, characters - 1)) + "آ";
}

std::vector<Row> IncomeMonth() {
    return Rows(Month.size(), [](std::size_t i) {
        const MonthDay& day = Month[i];
        const double date = Day(2025, 3, static_cast<int>(i) + 1);
        return Row{At(date + day.from / 1440.0),
                   At(date + 1 + day.to / 1440.0),
                   DayWords(date),
                   day.general,
                   day.members,
                   day.cards,
                   day.other,
                   day.discount,
                   0.0,
                   day.total,
                   CountOf(day.prints),
                   CountOf(day.cardUses),
                   CountOf(day.generalUses),
                   CountOf(day.memberUses),
                   CountOf(day.workMinutes),
                   CountOf(day.useMinutes),
                   CountOf(day.hosts)};
    });
}

std::vector<Row> IncomeDays(std::size_t count) {
    return Rows(count, [](std::size_t i) {
        const double date = Day(2024, 1, 1) + static_cast<double>(i);
        const double general = Money(i + 1, 800, 1500);
        const double members = Money(i + 7, 200, 600);
        const auto uses = static_cast<std::int64_t>(i % 90);
        return Row{At(date + 0.375),
                   At(date + 1.05),
                   DayWords(date),
                   general,
                   members,
                   150.0,
                   0.0,
                   12.5,
                   0.0,
                   general + members + 137.5,
                   uses,
                   uses + 3,
                   uses + 100,
                   uses + 40,
                   std::int64_t{960},
                   std::int64_t{9000} + uses,
                   std::int64_t{24}};
    });
}

std::vector<Row> FullIncomeDays(std::size_t count) {
    return Rows(count, [](std::size_t i) {
        Row row{At(Day(2025, 12, 31, 1439)), At(Day(2026, 1, 1, 1439)), LongText(50)};
        for (std::size_t money = 0; money < 7; ++money)
            row.emplace_back(i % 2 == 0 ? 99999999.75 : -99999999.75);
        for (std::size_t counts = 0; counts < 7; ++counts)
            row.emplace_back(std::int64_t{1234567890});
        return row;
    });
}

std::vector<Row> UseDays(std::size_t count) {
    return Rows(count, [](std::size_t i) {
        const double date = Day(2024, 1, 1) + static_cast<double>(i);
        const auto minutes = static_cast<std::int64_t>(4000 + i * 37 % 3000);
        const double income = Money(i + 3, 700, 1600);
        return Row{At(date + 0.375),
                   At(date + 1.05),
                   DayWords(date),
                   minutes,
                   std::int64_t{2400},
                   std::int64_t{65},
                   minutes + 2465,
                   income,
                   static_cast<std::int64_t>(i % 50),
                   12.5,
                   310.0,
                   220.0,
                   i % 3 == 0 ? 45.25 : 0.0,
                   7.5,
                   0.0,
                   income + 580.25,
                   std::int64_t{975},
                   std::int64_t{24}};
    });
}

std::vector<Row> FullUseDays(std::size_t count) {
    return Rows(count, [](std::size_t) {
        Row row{At(Day(2025, 12, 31, 1439)), At(Day(2026, 1, 1, 1439)), LongText(50)};
        for (std::size_t figure = 0; figure < 15; ++figure)
            row.emplace_back(12345678.75);
        return row;
    });
}

std::vector<Row> Payments(std::size_t count) {
    static const std::array<const char*, 5> Details = {"فاتورة الكهرباء", "أحبار طابعة وورق A4",
                                                       "صيانة جهاز 07", "إيجار المحل", ""};
    return Rows(count, [](std::size_t i) {
        const double moment = Day(2025, 3, 1) + static_cast<double>(i) * 0.37;
        const Value details = i % 7 == 6 ? Value{Null{}} : Value{std::string(Details[i % Details.size()])};
        return Row{Money(i + 11, 5, 900), At(moment), details};
    });
}

std::vector<Row> FullPayments(std::size_t count) {
    return Rows(count, [](std::size_t) {
        return Row{1234567890123.45, At(Day(2025, 12, 31, 1439)), LongText(255)};
    });
}

} // namespace qbrpt::samples
