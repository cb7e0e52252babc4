#include "samples/list_rows.h"

#include "base/calendar.h"
#include "samples/make_rows.h"

#include <array>

namespace qbrpt::samples {

namespace {

using Words = std::array<const char*, 5>;

constexpr Words Members = {"سالم راشد المنصوري", "هدى عبد الله الزرعوني", "ناصر خليفة", "Daniel Ortiz",
                           "عميل تم حذفه"};
constexpr Words Plans = {"شهري 60 ساعة", "طلابي 20 ساعة", "VIP 100", "مسائي 30 ساعة", "اشتراك محذوف"};
constexpr Words Supervisors = {"خالد المشرف", "نورة الكعبي", "Joseph", "مصطفى حسن", "إيمان الشامي"};
constexpr Words Events = {"تغيير سعر الدقيقة", "حذف سجل استخدام", "إلغاء فاتورة", "دخول المشرف",
                          "فتح درج النقود"};
constexpr Words EventDetails = {
    "من 0.05 إلى 0.06 للدقيقة", "سجل جهاز 4، الوقت 35 دقيقة، المبلغ 1.75",
    "طلب العميل إلغاء الطباعة لأن الورق انتهى في وسط المستند، وأعيد المبلغ كاملا بعد موافقة المدير المناوب",
    "بداية الوردية", ""};
constexpr Words Documents = {"سيرة ذاتية.doc", "http://www.example.com/schedule.html",
                             "تقرير المبيعات السنوي - النسخة النهائية بعد المراجعة.xls", "Photo'1.jpg",
                             "نموذج طلب وظيفة.pdf"};
constexpr Words Printers = {"HP LaserJet 1200", "EPSON LQ-300", "Canon i560 ملون", "HP LaserJet 1200",
                            "EPSON LQ-300"};

std::string Pick(const Words& words, std::size_t i) {
    return words[i * 7 % words.size()];
}

/// A few moments a day from 1 March 2025.
Date Moment(std::size_t i) {
    return Date{static_cast<double>(DaysFromCivil(2025, 3, 1)) + static_cast<double>(i / 6) + 0.4 +
                static_cast<double>(i % 6) * 0.09};
}

} // namespace

std::vector<Row> MemberPayments(std::size_t count) {
    return Rows(count, [](std::size_t i) {
        return Row{Moment(i), Pick(Members, i), 25.0 * static_cast<double>(1 + i % 8), Pick(Plans, i / 2)};
    });
}

std::vector<Row> AuditEvents(std::size_t count) {
    return Rows(count, [](std::size_t i) {
        return Row{Pick(Events, i), Moment(i), Pick(Supervisors, i / 3), Pick(EventDetails, i)};
    });
}

std::vector<Row> PrintJobs(std::size_t count) {
    return Rows(count, [](std::size_t i) {
        const bool used = i % 5 != 3;
        const auto pages = static_cast<std::int64_t>(1 + i * 5 % 12);
        return Row{Pick(Printers, i),
                   "جهاز " + std::to_string(1 + i % 8),
                   Moment(i),
                   pages,
                   i % 7 == 6 ? pages - 1 : pages,
                   std::string(used ? "مستخدم" : "غير مستخدم"),
                   used ? Value{pages} : Value{Null{}},
                   Pick(Documents, i),
                   i % 9 == 8 ? Value{Null{}} : Value{Pick(Supervisors, i / 4)}};
    });
}

std::vector<Row> CardList(std::size_t count) {
    static const std::array<const char*, 3> Kinds = {"بطاقة خمس ساعات", "بطاقة عشر ساعات",
                                                     "بطاقة عشرين ساعة"};
    return Rows(count, [count](std::size_t i) {
        const std::size_t kind = i * Kinds.size() / count;
        const bool used = i % 4 != 3;
        const double bought = 300.0 * static_cast<double>(1U << kind);
        return Row{static_cast<std::int64_t>(kind + 1),
                   std::string(Kinds[kind]),
                   kind == 2,
                   Date{static_cast<double>(DaysFromCivil(2025, 1, 4))},
                   static_cast<std::int64_t>(i + 1),
                   std::to_string(1002 + i),
                   i % 11 == 10,
                   used ? Value{Moment(i)} : Value{Null{}},
                   i % 13 == 12,
                   bought,
                   std::int64_t{1},
                   used ? bought * 0.25 * static_cast<double>(i % 5) : 0.0,
                   std::int64_t{180}};
    });
}

} // namespace qbrpt::samples
