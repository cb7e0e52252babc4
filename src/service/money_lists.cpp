// Plain lists of money movements.
#include "platform/DAO.h"
#include "service/VantlowCls.h"
#include "service/period_clause.h"
#include "service/report_run.h"
#include "support/period_text.h"
#include "templates/PayOutRpt.h"

namespace qbrpt {

void VantlowCls::PrintPayout(std::int32_t d1, std::int32_t d2, std::int16_t bShow) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const Ref<DAO::Database> db = mDb;
    std::string filter;
    trap.Step([&] { filter = PeriodClause({" WHERE (work_id", ")"}, FormOfPeriod(d1, d2), d1, d2); });
    const PeriodDates dates = FetchPeriodDates(trap, db, d1, d2);

    Ref<DAO::Recordset> records;
    trap.Step([&] {
        records =
            db->OpenRecordset("SELECT amount, pay_date, details FROM pay_out " + filter, DAO::dbOpenDynaset);
    });
    if (!trap.Test([&] { return records->RecordCount() != 0; })) return;

    Ref<PayOutRpt> report;
    trap.Step([&] { report = std::make_shared<PayOutRpt>(); });
    trap.Step([&] {
        report->SetHeadTitle("المصروفات الخارجية " + GetPeriodText(dates.from, dates.to, true, false));
    });
    trap.Step([&] { RunReport(report, records, true, bShow != 0, {mName1, mAddr1, mAddr2}); });
}

} // namespace qbrpt
