// Subscriptions of the subscribers.
#include "platform/DAO.h"
#include "platform/desktop.h"
#include "platform/platform.h"
#include "service/VantlowCls.h"
#include "service/later_members.h"
#include "service/report_run.h"
#include "support/error_trap.h"
#include "support/words.h"
#include "templates/MembersInfo.h"

namespace qbrpt {

namespace {

// The host writes the tables' names; the statement has short ones. The longer name first, since it begins
// with the shorter; inside longer words they are replaced as well.
std::string WithShortNames(const std::string& condition) {
    return ReplaceAnyCase(ReplaceAnyCase(condition, "members_info", "mi"), "members", "mm");
}

std::string SubscriptionStatement(const std::string& where) {
    return "SELECT mm.name, mi.accountname, mi.begindate, mi.totaltime, "
           "IIf(mi.ended,0,mi.membertime - mi.totaltime) AS remintime, mi.paid, mi.remin, mm.id"
           "\r From members AS mm INNER JOIN members_info AS mi ON mm.id = mi.member_id " +
           where + "\rORDER BY mm.id, mi.begindate, mi.accountname, mi.ended;";
}

} // namespace

void VantlowCls::PrintMembersInfo(const std::string& szParam) {
    if (szParam.empty()) return NotThereYet("PrintMembersInfo");
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const Ref<DAO::Database> db = mDb;
    std::string where;
    trap.Step([&] { where = WithShortNames(szParam); });
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = db->OpenRecordset(SubscriptionStatement(where)); });
    if (!trap.Test([&] { return !records->Eof(); })) {
        trap.Step([] {
            Platform::Current().messages->MsgBox("لا توجد بيانات للطباعة.",
                                                 BoxStyle::RightToLeft | BoxStyle::SecondButton);
        });
        return;
    }
    Ref<MembersInfo> report;
    trap.Step([&] { report = std::make_shared<MembersInfo>(); });
    trap.Step([&] { RunReport(report, records, true, true, {mName1, mAddr1, mAddr2}); });
}

} // namespace qbrpt
