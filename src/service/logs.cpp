// The audit trail and the log of print jobs.
#include "base/numbers.h"
#include "platform/DAO.h"
#include "service/VantlowCls.h"
#include "service/period_clause.h"
#include "service/report_run.h"
#include "templates/rptAudit.h"
#include "templates/rptPrintLog.h"

namespace qbrpt {

namespace {

constexpr const char* AuditStatement =
    "SELECT aud_tag.name, user_audit.a_date, audit_temp.user_name, audit_temp.comments FROM (audit_temp "
    "INNER JOIN user_audit ON audit_temp.a_id = user_audit.a_id) INNER JOIN aud_tag ON user_audit.type = "
    "aud_tag.tid ORDER BY user_audit.a_date;";

std::string JobStatement(const std::string& filter) {
    return "SELECT print_log.printer, print_log.machine, print_log.print_date,  print_log.pages, "
           "print_log.printed, IIF(local_log.id IS NULL, 'غير مستخدم','مستخدم'), local_log.print_count, "
           "print_log.document, users.user_name  FROM (print_log LEFT JOIN users ON print_log.user_id = "
           "users.id) LEFT JOIN local_log ON print_log.use_id = local_log.id" +
           filter;
}

/// Only the days that the filter names are looked up; one that it does not name stays 0.
PeriodDates FetchNamedDates(ErrorTrap& trap, const Ref<DAO::Database>& db, PeriodForm form,
                            std::int32_t workId1, std::int32_t workId2) {
    PeriodDates dates;
    if (form != PeriodForm::All) trap.Step([&] { dates.from = RoundToLong(GetWorkDate(db, workId1)); });
    if (form == PeriodForm::Range) trap.Step([&] { dates.to = RoundToLong(GetWorkDate(db, workId2)); });
    return dates;
}

} // namespace

void VantlowCls::PrintAudit() {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const Ref<DAO::Database> db = mDb;
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = db->OpenRecordset(AuditStatement); });
    if (!trap.Test([&] { return !records->Eof(); })) return;
    Ref<rptAudit> report;
    trap.Step([&] { report = std::make_shared<rptAudit>(); });
    trap.Step([&] { RunReport(report, records, true, true, {mName1, mAddr1, mAddr2}); });
}

void VantlowCls::PrintPrintLog(std::int32_t workId1, std::int32_t workId2) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const Ref<DAO::Database> db = mDb;
    const PeriodForm form = FormOfPeriod(workId1, workId2);
    std::string filter;
    trap.Step([&] { filter = PeriodClause({" WHERE print_log.work_id", ""}, form, workId1, workId2); });
    const PeriodDates dates = FetchNamedDates(trap, db, form, workId1, workId2);
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = db->OpenRecordset(JobStatement(filter)); });
    if (!trap.Test([&] { return !records->Eof(); })) return;

    Ref<rptPrintLog> report;
    trap.Step([&] { report = std::make_shared<rptPrintLog>(); });
    // A day below 0 filters, but is no period to be named.
    trap.Step([&] {
        report->SetHeadTitle(workId1 > 0 ? "تقرير بعمليات الطباعة " + PeriodWords(dates)
                                         : "تقرير كلي لعمليات الطباعة");
    });
    trap.Step([&] { RunReport(report, records, true, true, {mName1, mAddr1, mAddr2}); });
}

} // namespace qbrpt
