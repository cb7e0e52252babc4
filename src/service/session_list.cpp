// Finished sessions one by one, the live or the deleted ones.
#include "base/numbers.h"
#include "platform/DAO.h"
#include "service/VantlowCls.h"
#include "service/landscape.h"
#include "service/period_clause.h"
#include "service/report_run.h"
#include "templates/UsageRpt.h"

namespace qbrpt {

namespace {

// The two identifiers make a range only where they have a bit in common; else the first alone counts, though
// the title still names both days.
PeriodForm FormOfSessions(std::int32_t date1, std::int32_t date2) {
    if ((date1 & date2) != 0 && date1 != date2) return PeriodForm::Range;
    return date1 != 0 ? PeriodForm::Single : PeriodForm::All;
}

std::string SessionStatement(const std::string& table, std::int32_t date1, std::int32_t date2,
                             std::int32_t pcID) {
    std::string statement = "SELECT host_src.name, IIf(Not " + table +
                            ".member_id Is Null, IIf(not members.name Is Null, members.name, 'عميل محذوف'), "
                            "'مستخدم عام') AS member,log_time, use_time, idle_time,  net_cost, "
                            "print_count, other_cost, discount, paid, user_name FROM (host_src LEFT JOIN "
                            "(members RIGHT JOIN " +
                            table + " ON members.id = " + table + ".member_id) ON host_src.id = " + table +
                            ".host_id) LEFT JOIN users ON " + table + ".user_id = users.id  WHERE (NOT " +
                            table + ".end_time Is Null) ";
    const std::string work = " AND (" + table + ".work_id";
    statement += PeriodClause({work, ")"}, FormOfSessions(date1, date2), date1, date2);
    if (pcID != 0) statement += " AND (" + table + ".host_id = " + DecimalText(pcID) + ")";
    return statement + " ORDER BY host_src.name, " + table + ".log_time";
}

} // namespace

void VantlowCls::PrintUsage(std::int32_t date1, std::int32_t date2, std::int32_t pcID, std::int16_t bShow,
                            std::int16_t bDeleted) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const Ref<DAO::Database> db = mDb;
    std::string statement;
    trap.Step([&] {
        statement = SessionStatement(bDeleted != 0 ? "local_log_delete" : "local_log", date1, date2, pcID);
    });
    const PeriodDates dates = FetchPeriodDates(trap, db, date1, date2);
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = db->OpenRecordset(statement, DAO::dbOpenDynaset); });
    if (!trap.Test([&] { return records->RecordCount() != 0; })) return;

    Landscape landscape(trap);
    Ref<UsageRpt> report;
    trap.Step([&] { report = std::make_shared<UsageRpt>(); });
    trap.Step([&] {
        report->SetOtherTitels((bDeleted != 0 ? "تفاصيل الاستخدام المحذوف " : "تفاصيل الاستخدام ") +
                               PeriodWords(dates));
    });
    trap.Step([&] { RunReport(report, records, true, bShow != 0, {mName1, mAddr1, mAddr2}); });
    landscape.TurnBack();
}

} // namespace qbrpt
