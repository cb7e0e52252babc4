#include "samples/report_rows.h"

#include "base/calendar.h"
#include "samples/make_rows.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace qbrpt::samples {

namespace {

constexpr std::array<const char*, 12> Names = {
    "سالم راشد المنصوري", "هدى عبد الله الزرعوني",
    "ناصر خليفة",         "ليلى حسن الكعبي",
    "يوسف إبراهيم",       "مريم سعيد الشامسي",
    "خالد منصور",         "Daniel Ortiz",
    "نورة سلطان",         "جاسم محمد",
    "عائشة أحمد",         "عبد الرحمن بن عبد العزيز بن محمد المسلماني"};
constexpr std::array<const char*, 3> Staff = {"بدر", "منى", "فهد"};
constexpr std::array<const char*, 4> Plans = {"شهري 60 ساعة", "طلابي 20 ساعة", "مسائي 30 ساعة",
                                              "سنوي مفتوح للشركات والمؤسسات"};

double Moment(int day, double hours) {
    return static_cast<double>(DaysFromCivil(2025, 3, day)) + hours / 24;
}

/// 0 to `below`, scattered but the same on every run.
std::size_t Scatter(std::size_t seed, std::size_t below) {
    return seed * 2654435761U / 64 % below;
}

double Quarters(std::size_t seed, std::size_t most) {
    return static_cast<double>(Scatter(seed, most * 4)) / 4;
}

template <std::size_t N>
std::string Pick(const std::array<const char*, N>& words, std::size_t i) {
    return words[i % N];
}

std::string HostName(std::size_t number) {
    return (number < 10 ? "جهاز 0" : "جهاز ") + std::to_string(number);
}

Value FullValue(const Field& field, std::size_t row) {
    switch (field.kind) {
    case FieldKind::String:
        return LongText(field.width - 1U);
    case FieldKind::DateTime:
        return Date{Moment(31, 23.99)};
    case FieldKind::Boolean:
        return row % 2 == 0;
    default:
        return row % 2 == 0 ? 99999999.75 : -99999999.75;
    }
}

} // namespace

std::vector<Row> HostUse(std::size_t count) {
    std::vector<Row> rows = Rows(count, [](std::size_t i) {
        // A host whose sessions were all subscribers'.
        const bool noGeneral = i % 9 == 6;
        const double members = 600 + static_cast<double>(Scatter(i + 3, 4000));
        const double general = noGeneral ? 0 : 900 + static_cast<double>(Scatter(i + 17, 6000));
        const auto prints = static_cast<double>(Scatter(i + 5, 90));
        const double net = std::floor(general / 15) * 1.25;
        const double discount = Quarters(i + 9, 30);
        const double gross = net + prints * 0.5;
        return Row{HostName(i + 1),
                   members,
                   noGeneral ? Value{Null{}} : Value{general},
                   members + general,
                   noGeneral ? Value{Null{}} : Value{net},
                   prints,
                   prints * 0.5,
                   gross,
                   discount,
                   gross - discount,
                   members + general};
    });
    double all = 0;
    for (const Row& row : rows)
        all += std::get<double>(row.back());
    for (Row& row : rows)
        row.back() = std::get<double>(row.back()) / all;
    return rows;
}

std::vector<Row> Sessions(std::size_t count) {
    return Rows(count, [](std::size_t i) {
        const bool member = i % 3 == 1;
        const double minutes = 10 + 5 * static_cast<double>(Scatter(i + 1, 18));
        const auto prints = i % 4 == 0 ? static_cast<double>(Scatter(i, 12)) : 0.0;
        const double paid = (member ? 0 : minutes * 0.05) + prints * 0.5;
        return Row{i % 50 == 49 ? Value{Null{}} : Value{HostName(3 + i / 17 * 4)},
                   member ? Pick(Names, i) : std::string(i % 31 == 30 ? "عميل محذوف" : "مستخدم عام"),
                   Date{Moment(12, 9 + static_cast<double>(i % 17) * 0.7)},
                   minutes,
                   static_cast<double>(Scatter(i + 40, 10)),
                   member ? 0.0 : 0.05,
                   prints,
                   prints * 0.5,
                   i % 13 == 12 ? 1.5 : 0.0,
                   paid,
                   Pick(Staff, i % 17 / 6)};
    });
}

std::vector<Row> SupervisorDays(std::size_t count) {
    return Rows(count, [](std::size_t i) {
        const std::size_t who = i % 3;
        const double local = 2000 + static_cast<double>(Scatter(i + 2, 3000));
        const double members = 900 + static_cast<double>(Scatter(i + 8, 2000));
        // One day was kept by somebody who has been deleted since.
        const bool gone = i % 40 == 20;
        return Row{static_cast<double>(gone ? 9 : who + 1),
                   Date{Moment(1, 0) + static_cast<double>(i / 3)},
                   gone ? Value{Null{}} : Value{Pick(Staff, who)},
                   320 + static_cast<double>(Scatter(i, 60)),
                   local + members,
                   local,
                   members,
                   Quarters(i + 4, 60),
                   300 + Quarters(i + 6, 500),
                   i % 4 == 0 ? Quarters(i, 12) : 0.0,
                   Quarters(i + 7, 240),
                   i % 5 == 0 ? Quarters(i + 1, 50) : 0.0,
                   Quarters(i + 11, 120)};
    });
}

std::vector<Row> CustomerSessions(std::size_t count) {
    return Rows(count, [](std::size_t i) {
        const double begin = Moment(1, 10) + static_cast<double>(i) * 0.21;
        const double minutes = 15 + static_cast<double>(Scatter(i + 3, 130));
        return Row{Pick(Names, Scatter(i, 5)) + " ",
                   i % 11 == 10 ? Value{Null{}} : Value{Pick(Plans, Scatter(i, 5))}, Date{begin},
                   Date{begin + minutes / 1440}, minutes};
    });
}

std::vector<Row> Subscriptions(std::size_t count) {
    return Rows(count, [](std::size_t i) {
        const double left = i % 6 == 1 ? 0.0 : static_cast<double>(Scatter(i + 5, 2600));
        const double owed = i % 4 == 2 ? 15 + Quarters(i, 200) : 0.0;
        return Row{Pick(Names, i * 4 / 5),
                   Pick(Plans, Scatter(i + 2, 4)),
                   Date{Moment(1, 0) + static_cast<double>(i)},
                   60 + static_cast<double>(Scatter(i + 9, 3600)),
                   left,
                   i % 7 == 5 ? 0.0 : 55 + Quarters(i + 1, 150),
                   owed,
                   static_cast<double>(i)};
    });
}

std::vector<Row> Orders(std::size_t count) {
    constexpr std::array<const char*, 6> Goods = {
        "شاي", "قهوة تركية", "عصير برتقال طازج", "طباعة ملونة A4", "قرص مدمج فارغ", "ماء"};
    constexpr std::array<double, 6> Prices = {1, 2.5, 6, 1.5, 3, 0.75};
    return Rows(count, [&](std::size_t i) {
        const std::size_t what = Scatter(i, Goods.size());
        return Row{std::string(Goods[what]), 1 + static_cast<double>(Scatter(i + 3, 4)), Prices[what],
                   Date{Moment(12, 9) + static_cast<double>(i) * 0.031}, HostName(1 + Scatter(i + 1, 24))};
    });
}

std::vector<Row> DeviceDays(std::size_t count) {
    constexpr std::array<const char*, 3> Devices = {"ADSL — الخط الأول", "ADSL — الخط الثاني", "4G احتياطي"};
    return Rows(count, [&](std::size_t i) {
        char day[40];
        std::snprintf(day, sizeof day, "الأحد, %02d مارس 2025", static_cast<int>(1 + i / 3 % 31));
        return Row{Pick(Devices, i), std::string(day), 380 + static_cast<double>(Scatter(i, 60000)) / 60};
    });
}

std::vector<Row> Cards(std::size_t count) {
    constexpr std::array<const char*, 5> Codes = {"Y2HV-CUZQ", "QK6K-2ZJA", "B0O8-1Il7", "HC5L-P9JN",
                                                  "WEWU-L2VA"};
    constexpr std::array<const char*, 4> Passes = {"6H2ZXA", "3GJDR9", "oO0lI1", "7LM5HF"};
    return Rows(count, [&](std::size_t i) {
        const auto serial = static_cast<double>(4121 + 2 * i);
        const bool single = i + 1 == count;
        return Row{std::string("بطاقة 5 ساعات، صالحة 60 يومًا"),
                   serial,
                   Pick(Codes, 2 * i),
                   Pick(Passes, 2 * i),
                   single ? Value{Null{}} : Value{serial + 1},
                   single ? Value{Null{}} : Value{Pick(Codes, 2 * i + 1)},
                   single ? Value{Null{}} : Value{Pick(Passes, 2 * i + 1)}};
    });
}

std::vector<Row> Entries(std::size_t count) {
    constexpr std::array<const char*, 5> Accounts = {"الصندوق الرئيسي", "حساب البنك", "مصروفات التشغيل",
                                                     "عهدة المشرف بدر", "رواتب الموظفين"};
    constexpr std::array<const char*, 4> Words = {"إيداع إيراد الأسبوع الأول",
                                                  "فاتورة خط الإنترنت عن شهر مارس، مع فرق السرعة المضافة", "",
                                                  "أحبار طابعة وورق A4"};
    return Rows(count, [&](std::size_t i) {
        const bool takings = i % 3 == 0;
        return Row{takings ? std::string("صافي الإيراد ليوم 02-03-2025") : Pick(Accounts, i),
                   takings ? Pick(Accounts, 0) : Pick(Accounts, i + 2), 120 + Quarters(i + 3, 2000),
                   i % 4 == 2 ? Value{Null{}} : Value{Pick(Words, i)},
                   Date{Moment(1, 10) + static_cast<double>(i) * 0.8}};
    });
}

std::vector<Row> Moves(std::size_t count) {
    std::vector<Row> rows;
    for (const Row& entry : Entries(count))
        rows.push_back({entry[0], entry[2], entry[3], entry[4]});
    return rows;
}

std::vector<Row> FullRows(std::string_view templateName, std::size_t count) {
    return Rows(count, [&](std::size_t i) {
        Row row;
        for (const Field& field : FactsOf(templateName).fields)
            row.push_back(FullValue(field, i));
        return row;
    });
}

std::vector<Row> NullRows(std::string_view templateName, std::size_t count) {
    return std::vector<Row>(count, NullRow(FactsOf(templateName).fields.size()));
}

} // namespace qbrpt::samples
