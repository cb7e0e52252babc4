// The income sheet.
#include "platform/DAO.h"
#include "service/VantlowCls.h"
#include "service/host_session.h"
#include "service/landscape.h"
#include "service/period_clause.h"
#include "service/report_run.h"
#include "templates/IncomeGrpRpt.h"

namespace qbrpt {

namespace {

constexpr ClauseWords IncomeClause = {" WHERE(h.id", ") "};

std::string IncomeStatement(const std::string& where) {
    return "SELECT min_log_time, max_log_time, "
           "Format(d.date, 'ddd dd MMM yyyy'), net_income + print_income as tnet, "
           "members_income, pp_income, other_Income, "
           "total_discount, 0 as paid_out, total_income, t.prints, t.pp, t.general, "
           "t.member, d.work_time, t.total_time, pc_count "
           "From daily_sheet AS d RIGHT JOIN (total_use_count AS t RIGHT "
           "JOIN host_log_time AS h ON t.work_id = h.id) ON d.work_id = h.id " +
           where + " ORDER BY h.id ";
}

} // namespace

void VantlowCls::PrintIncome(std::int32_t date1, std::int32_t date2, std::int16_t, std::int16_t bShow) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const Ref<DAO::Database> db = mDb;
    // Both are asked, whatever the first says: a printer system that fails is told also without a database.
    if (!trap.Test([&] {
            const bool canPrint = PrinterCount() != 0;
            return IsDbValid() && canPrint;
        }))
        return;

    std::string where;
    trap.Step([&] {
        const PeriodForm form = FormOfPeriod(date1, date2, Given::Positive);
        where = PeriodClause(IncomeClause, form, date1, date2);
        if (form == PeriodForm::Single) date2 = date1;
    });
    const PeriodDates dates = FetchPeriodDates(trap, db, date1, date2);

    Ref<DAO::Recordset> records;
    trap.Step([&] { records = db->OpenRecordset(IncomeStatement(where), DAO::dbOpenDynaset); });
    if (!trap.Test([&] { return records->RecordCount() != 0; })) return;
    trap.Step([&] { records->MoveLast(); });
    trap.Step([&] { records->MoveFirst(); });
    // A range that yields one day is that day from here on; its title was fixed above and stays the range's.
    if (trap.Test([&] { return records->RecordCount() == 1 && date1 != date2; })) date2 = date1;

    Ref<IncomeGrpRpt> report;
    trap.Step([&] { report = std::make_shared<IncomeGrpRpt>(); });
    trap.Step([&] { report->SetOtherTitle("تقرير بالإيراد " + PeriodWords(dates)); });
    Landscape landscape(trap);
    trap.Step([&] { RunReport(report, records, true, bShow != 0, {mName1, mAddr1, mAddr2}); });
    landscape.TurnBack();
}

} // namespace qbrpt
