// Plain lists of money movements over working days.
#include "platform/DAO.h"
#include "platform/desktop.h"
#include "platform/platform.h"
#include "service/VantlowCls.h"
#include "service/period_clause.h"
#include "service/report_run.h"
#include "templates/MembersPay.h"
#include "templates/OutIncome.h"
#include "templates/PayOutRpt.h"
#include "templates/ServicesRpt.h"

namespace qbrpt {

namespace {

constexpr std::string_view MembersPayments =
    "SELECT p.pay_date, IIf(Not m.name Is Null, m.name, 'عميل تم حذفه')  AS mName, p.amount, "
    "IIf(Not ms.name Is Null, ms.name, 'اشتراك محذوف') "
    "FROM (members_payment AS p LEFT JOIN members AS m ON p.member_id = m.id) "
    "LEFT JOIN membership ms ON p.membership_id = ms.id";
constexpr std::string_view PaidOut = "SELECT amount, pay_date, details FROM pay_out ";
constexpr std::string_view OtherIncome = "SELECT amount, pay_date, details FROM other_income ";
constexpr std::string_view Orders =
    "SELECT c.name, c.item_count, c.price, l.end_time, h.name AS hostname FROM host_src AS h INNER JOIN "
    "(cafe_orders AS c INNER JOIN local_log AS l ON c.useid = l.id) ON h.id = l.host_id ";

/// What all lists have before they look at their rows.
struct MoneyList {
    MoneyList(ErrorTrap& trap, const Ref<DAO::Database>& db, std::string_view query, const ClauseWords& words,
              std::int32_t d1, std::int32_t d2) {
        std::string filter;
        trap.Step([&] { filter = PeriodClause(words, FormOfPeriod(d1, d2), d1, d2); });
        dates = FetchPeriodDates(trap, db, d1, d2);
        trap.Step([&] { records = db->OpenRecordset(std::string(query) + filter, DAO::dbOpenDynaset); });
    }
    [[nodiscard]] bool HasRows() const { return records->RecordCount() != 0; }

    PeriodDates dates;
    Ref<DAO::Recordset> records;
};

/// Runs a list whose title is made by `titleOf`; in silence where it has no rows.
template <class Template, class TitleOf>
void RunTitled(ErrorTrap& trap, const MoneyList& list, const TitleOf& titleOf, bool bShow,
               const MainTitle& heading) {
    if (!trap.Test([&] { return list.HasRows(); })) return;
    Ref<Template> report;
    trap.Step([&] { report = std::make_shared<Template>(); });
    trap.Step([&] { report->SetHeadTitle(titleOf()); });
    trap.Step([&] { RunReport(report, list.records, true, bShow, heading); });
}

} // namespace

void VantlowCls::PrintMembersIncom(std::int32_t d1, std::int32_t d2, std::int16_t bShow) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    // The dates are looked up as for the other lists, though this one's title names none.
    const MoneyList list(trap, mDb, MembersPayments, {" WHERE (p.work_id", ")"}, d1, d2);
    if (!trap.Test([&] { return !list.records->Eof(); })) {
        trap.Step([] { Platform::Current().messages->MsgBox("No Data", BoxStyle::Plain); });
        return;
    }
    Ref<MembersPay> report;
    trap.Step([&] { report = std::make_shared<MembersPay>(); });
    trap.Step([&] { RunReport(report, list.records, true, bShow != 0, {mName1, mAddr1, mAddr2}); });
}

void VantlowCls::PrintPayout(std::int32_t d1, std::int32_t d2, std::int16_t bShow) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const MoneyList list(trap, mDb, PaidOut, {" WHERE (work_id", ")"}, d1, d2);
    const auto title = [&] { return "المصروفات الخارجية " + PeriodWords(list.dates); };
    RunTitled<PayOutRpt>(trap, list, title, bShow != 0, {mName1, mAddr1, mAddr2});
}

void VantlowCls::PrintOtherIncome(std::int32_t d1, std::int32_t d2, std::int16_t bShow) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const MoneyList list(trap, mDb, OtherIncome, {" WHERE work_id", ""}, d1, d2);
    const auto title = [&] { return "الإيرادات الخارجية " + PeriodWords(list.dates); };
    RunTitled<OutIncome>(trap, list, title, bShow != 0, {mName1, mAddr1, mAddr2});
}

void VantlowCls::PrintServicesIncome(std::int32_t d1, std::int32_t d2, std::int16_t bShow) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const MoneyList list(trap, mDb, Orders, {" WHERE (l.work_id", ")"}, d1, d2);
    // A first day below 0 filters, but is no period to be named.
    const auto title = [&] {
        return "تقرير بخدمات الزبائن " + (d1 > 0 ? PeriodWords(list.dates) : std::string());
    };
    RunTitled<ServicesRpt>(trap, list, title, bShow != 0, {mName1, mAddr1, mAddr2});
}

} // namespace qbrpt
