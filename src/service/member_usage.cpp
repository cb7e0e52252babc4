// Sessions of one customer.
#include "base/numbers.h"
#include "platform/DAO.h"
#include "service/VantlowCls.h"
#include "service/report_run.h"
#include "support/error_trap.h"
#include "templates/MemberUseRpt.h"

namespace qbrpt {

namespace {

std::string MemberStatement(std::int32_t usageID, std::int32_t memberID) {
    std::string statement = "SELECT members.name & ' ', membership.name, "
                            "log_time, end_time, "
                            "local_log.use_time "
                            "FROM ((local_log INNER JOIN members ON local_log.member_id = members.id)"
                            " INNER JOIN members_time ON local_log.active_membership = "
                            "members_time.id) LEFT JOIN membership ON members_time.membership_id = "
                            "membership.id WHERE (local_log.utype = 2) ";
    if (usageID != 0)
        statement += "AND (local_log.active_membership = " + DecimalText(usageID) + ")";
    else if (memberID != 0)
        statement += "AND (local_log.member_id = " + DecimalText(memberID) + ")";
    return statement;
}

std::string CardStatement(std::int32_t usageID, std::int32_t memberID) {
    std::string statement = "SELECT "
                            "'بطاقة رقم ' & "
                            "Format([se_id],'#00000') & ' ' AS seid, "
                            "m.name, lg.log_time, lg.end_time, lg.use_time FROM local_log AS lg "
                            "INNER JOIN ((pp_dat AS pd INNER JOIN members_time AS mt ON pd.pp_id = "
                            "mt.pp_id) INNER JOIN membership AS m ON mt.membership_id = m.id) ON "
                            "lg.active_membership = mt.id "
                            "WHERE (mt.id = " +
                            DecimalText(memberID) + " AND lg.utype <> 0) ";
    if (usageID != 0) statement += "AND (lg.work_id = " + DecimalText(usageID) + ")";
    return statement;
}

void RunMemberUse(ErrorTrap& trap, const Ref<DAO::Recordset>& records, bool bShow, const MainTitle& heading) {
    Ref<MemberUseRpt> report;
    trap.Step([&] { report = std::make_shared<MemberUseRpt>(); });
    trap.Step([&] { RunReport(report, records, true, bShow, heading); });
}

} // namespace

void VantlowCls::PrintMemberUsage(std::int32_t usageID, std::int32_t memberID, std::int16_t bShow) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const Ref<DAO::Database> db = mDb;
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = db->OpenRecordset(MemberStatement(usageID, memberID)); });
    if (trap.Test([&] { return records->RecordCount() != 0; }))
        RunMemberUse(trap, records, bShow != 0, {mName1, mAddr1, mAddr2});
}

void VantlowCls::PrintPPUsage(std::int32_t usageID, std::int32_t memberID, std::int16_t bShow) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const Ref<DAO::Database> db = mDb;
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = db->OpenRecordset(CardStatement(usageID, memberID)); });
    if (trap.Test([&] { return !records->Eof(); }))
        RunMemberUse(trap, records, bShow != 0, {mName1, mAddr1, mAddr2});
}

} // namespace qbrpt
