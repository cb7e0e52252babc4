// Pages of all layouts but the income sheets and the list of payments.
#include "samples/list_rows.h"
#include "samples/report_rows.h"
#include "templates/golden_page.h"

namespace qbrpt {
namespace {

using Texts = std::map<std::string, std::string>;

constexpr const char* Cafe = "مقهى نسمة للإنترنت";

Texts WithAddress(const std::string& titleObject, const std::string& title) {
    return {{"HotelNameText", Cafe},
            {"HotelAddr1Text", "شارع الميناء، بجوار مكتبة الواحة"},
            {"HotelAddr2Text", "هاتف 011-4455667"},
            {titleObject, title}};
}

/// A layout with rows of its own kind.
struct Kind {
    const char* layout;
    Texts texts;
    bool landscape;
    std::vector<Row> (*rows)(std::size_t);
    std::size_t typical; ///< rows of a typical report
    std::size_t typicalPages;
    std::size_t manyPages; ///< of two hundred rows
};

const std::vector<Kind> Kinds = {
    {"pcIncomeRpt",
     {{"HotelNameTextTop", Cafe},
      {"HotelNameTextBottom", Cafe},
      {"HotelAddr1Text", "شارع الميناء، بجوار مكتبة الواحة"},
      {"HotelAddr2Text", "هاتف 011-4455667"},
      {"IncomeTitleText", "تقرير عن الاستخدام حسب الأجهزة ليوم الأربعاء 12 مارس 2025"}},
     true,
     samples::HostUse,
     18,
     1,
     8},
    {"UsageRpt", WithAddress("OtherTitleText", "تفاصيل الاستخدام ليوم الأربعاء 12 مارس 2025"), true,
     samples::Sessions, 36, 2, 10},
    {"SPVIncome", WithAddress("OtherTitleText", "تقرير بالإيراد حسب المشرفين"), false,
     samples::SupervisorDays, 30, 2, 6},
    {"MemberUseRpt", {{"HotelNameText", Cafe}}, false, samples::CustomerSessions, 24, 1, 6},
    {"MembersInfo",
     {{"HotelNameText", Cafe}, {"MembersTitleText", "تقرير بالمشتركين المستمرين"}},
     false,
     samples::Subscriptions,
     24,
     1,
     6},
    {"ServicesRpt", WithAddress("HeadTitleText", "تقرير بخدمات الزبائن"), false, samples::Orders, 22, 1, 5},
    {"InternetTimerpt",
     {{"HotelNameText", Cafe}, {"OtherTitleText", "أوقات استهلاك الإنترنت"}},
     false,
     samples::DeviceDays,
     21,
     1,
     5},
    {"rptPPCards", WithAddress("CafeNameText1", Cafe), false, samples::Cards, 7, 2, 40},
    {"rptPPCardsCov", WithAddress("CafeNameText2", Cafe), false, samples::Cards, 7, 2, 40},
    {"MembersPay", WithAddress("HotelAddr2Text", "هاتف 011-4455667"), false, samples::MemberPayments, 24, 1,
     5},
    {"OutIncome", WithAddress("HeadTitleText", "الإيرادات الخارجية لشهر مارس 2025"), false, samples::Payments,
     12, 1, 5},
    {"rptAudit", WithAddress("HotelAddr2Text", "هاتف 011-4455667"), false, samples::AuditEvents, 22, 1, 7},
    {"rptPrintLog", WithAddress("HeadTitleText", "تقرير بعمليات الطباعة لشهر مارس 2025"), false,
     samples::PrintJobs, 20, 1, 8},
    {"rptPPIncome", WithAddress("HeadTitleText", "البطاقات المسجلة في شهر يناير 2025"), false,
     samples::CardList, 24, 1, 6},
    {"AccountRpt", {{"HeadTitleText", "حركة القيد الكلية"}}, false, samples::Entries, 22, 1, 6},
};

std::vector<Golden> AllGoldens() {
    std::vector<Golden> goldens;
    for (const Kind& kind : Kinds) {
        const auto rows = [make = kind.rows](std::size_t count) { return [=] { return make(count); }; };
        const std::string layout = kind.layout;
        const auto add = [&](const char* name, MakeRows make, std::size_t pages) {
            goldens.push_back({kind.layout, name, kind.texts, kind.landscape, std::move(make), pages});
        };
        add("Typical", rows(kind.typical), kind.typicalPages);
        add("OneRow", rows(1), 1);
        add("TwoHundredRows", rows(200), kind.manyPages);
        add(
            "NullRows", [layout] { return samples::NullRows(layout, 3); }, 1);
        add(
            "FullLength", [layout] { return samples::FullRows(layout, 4); }, 1);
    }
    return goldens;
}

INSTANTIATE_TEST_SUITE_P(RicherLayouts, GoldenPage, testing::ValuesIn(AllGoldens()), NameOfGolden);

const Texts AccountTexts = {
    {"HotelNameText", ""},
    {"HeadTitleText", "حركة القيد الخاصة بحساب الصندوق الرئيسي"},
    {"AccountSubTitleText", "من السبت 01 مارس إلى الخميس 20 مارس 2025"},
    {"AccountAmountText", "11,935.00"},
};

Golden Account(const char* name, const MakeRows& in, const MakeRows& out, std::size_t pages) {
    return {"SngAccountRpt", name, AccountTexts, false, in, pages, {{"rptFrom", out}}};
}

MakeRows Moves(std::size_t count) {
    return [count] { return samples::Moves(count); };
}

INSTANTIATE_TEST_SUITE_P(Account, GoldenPage,
                         testing::Values(Account("Typical", Moves(11), Moves(8), 1),
                                         Account("OneRow", Moves(1), Moves(1), 1),
                                         Account("TwoHundredRows", Moves(200), Moves(200), 12),
                                         Account(
                                             "NullRows", [] { return samples::NullRows("SngAccountRpt", 3); },
                                             [] { return samples::NullRows("SngAccountRpt", 3); }, 1),
                                         Account(
                                             "FullLength",
                                             [] { return samples::FullRows("SngAccountRpt", 4); },
                                             [] { return samples::FullRows("SngAccountRpt", 4); }, 2)),
                         NameOfGolden);

} // namespace
} // namespace qbrpt
