// Use and income of each host.
#include "base/numbers.h"
#include "platform/DAO.h"
#include "service/VantlowCls.h"
#include "service/landscape.h"
#include "service/report_run.h"
#include "support/calendar_rules.h"
#include "support/period_text.h"
#include "templates/pcIncomeRpt.h"

namespace qbrpt {

namespace {

/// The period on the sessions inside a sum, and on those of the lines themselves; both empty for all time.
struct PeriodConditions {
    std::string inner;
    std::string outer;
};

// Two equal moments are no period: all finished sessions count then.
PeriodConditions ConditionsOf(double date1, double date2) {
    if (date1 == 0 || date2 == 0 || date1 == date2) return {};
    const std::string from = DecimalText(date1);
    const std::string to = DecimalText(date2);
    return {"([local_log].[end_time] Between " + from + " And " + to + ") ",
            "([local_log2].[end_time] Between " + from + "  AND " + to + ") "};
}

std::string And(const std::string& condition, const char* word) {
    return condition.empty() ? std::string() : word + condition;
}

/// The four sums that each line has of its own host.
std::string SumsOfHost(const PeriodConditions& period) {
    const std::string within = And(period.inner, "AND ");
    return "(SELECT Sum(use_time) FROM local_log WHERE "
           "local_log.host_id = [local_log2].[host_id] AND "
           "(Not member_id Is Null) AND (Not [end_time] Is Null) " +
           within +
           ")AS member_time, "
           "(SELECT Sum(use_time) FROM local_log WHERE "
           "local_log.host_id = [local_log2].[host_id] AND "
           "(member_id Is Null) AND (Not [end_time] Is Null) " +
           within +
           ") AS non_member_time, "
           "(SELECT Sum(use_time) FROM local_log WHERE "
           "local_log.host_id = [local_log2].[host_id] "
           "AND (Not [end_time] Is Null) " +
           within +
           ") AS total_time, "
           "(SELECT Sum(local_log.net_cost * "
           "local_log.use_time)AS netincom FROM local_log "
           "WHERE (Not end_time Is Null) AND (member_id Is Null)"
           " AND (local_log.host_id = local_log2.host_id) " +
           And(period.inner, " AND ") + ") AS tnet, ";
}

std::string HostStatement(const PeriodConditions& period, std::int32_t pcID) {
    std::string statement = "SELECT host_src.name, " + SumsOfHost(period) +
                            "Sum(local_log2.print_count) AS sprint_count, "
                            "Sum([local_log2].[print_count]*[local_log2].[print_cost]) AS printincom,"
                            " Sum(local_log2.paid + local_log2.discount) AS totalcost, "
                            "Sum(local_log2.Discount) AS sDiscount, Sum(local_log2.paid) AS netincome,"
                            " (Sum([use_time])/(SELECT IIf(Sum([use_time]) Is Null "
                            " Or Sum([use_time]) = 0, 1, Sum([use_time])) as s FROM "
                            "local_log WHERE Not IsNull(end_time)";
    statement += And(period.inner, " AND ");
    statement += ")) AS p FROM host_src INNER JOIN local_log AS local_log2 "
                 "ON host_src.id = local_log2.host_id WHERE (((IsNull([end_time]))=False) ";
    statement += And(period.outer, " AND ");
    if (pcID != 0) statement += " AND (local_log2.host_id = " + DecimalText(pcID) + ")";
    return statement + ") GROUP BY host_src.id, host_src.name, "
                       "local_log2.host_id ORDER BY host_src.name ";
}

} // namespace

void VantlowCls::PrintPCUsage(double date1, double date2, std::int32_t pcID, std::int16_t bShow) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const Ref<DAO::Database> db = mDb;
    if (date2 == 0) date2 = date1;
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = db->OpenRecordset(HostStatement(ConditionsOf(date1, date2), pcID)); });
    if (!trap.Test([&] { return records->RecordCount() != 0; })) return;

    std::string title;
    trap.Step([&] {
        title = "تقرير عن الاستخدام";
        title += pcID != 0 ? " الخاص بالجهاز " + GetHostName(db, pcID) : " حسب الأجهزة ";
    });
    Landscape landscape(trap);
    trap.Step([&] { title += GetPeriodText(DayNumber(date1), DayNumber(date2), true, false); });
    Ref<pcIncomeRpt> report;
    trap.Step([&] { report = std::make_shared<pcIncomeRpt>(); });
    trap.Step([&] { report->SetInfoData(title); });
    trap.Step([&] { RunReport(report, records, true, bShow != 0, {mName1, mAddr1, mAddr2}); });
    landscape.TurnBack();
}

} // namespace qbrpt
