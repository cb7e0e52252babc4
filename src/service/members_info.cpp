// Subscriptions of the subscribers.
#include "base/numbers.h"
#include "platform/DAO.h"
#include "platform/desktop.h"
#include "platform/platform.h"
#include "service/VantlowCls.h"
#include "service/frmMembersPrint.h"
#include "service/report_run.h"
#include "support/error_trap.h"
#include "support/words.h"
#include "templates/MembersInfo.h"

#include <optional>
#include <string>
#include <string_view>

namespace qbrpt {

namespace {

// The host writes the tables' names; the statement has short ones. The longer name first, since it begins
// with the shorter; inside longer words they are replaced as well.
std::string WithShortNames(const std::string& condition) {
    return ReplaceAnyCase(ReplaceAnyCase(condition, "members_info", "mi"), "members", "mm");
}

/// Which subscriptions are printed, and how.
struct Choice {
    std::int32_t type = frmMembersPrint::All;
    bool grouped = false;
    std::string where; ///< with its word WHERE, or empty
};

// A last day without a first one is dropped in silence.
std::string DayCondition(const frmMembersPrint& asked) {
    const std::int32_t first = RoundToLong(asked.dStartDate);
    std::int32_t last = RoundToLong(asked.dEndDate);
    if (first == 0) return {};
    const bool single = last == 0 || asked.dStartDate == asked.dEndDate;
    if (single) return "CLng(mi.begindate) = " + DecimalText(first);
    return "CLng(mi.begindate) BETWEEN " + DecimalText(first) + " AND " + DecimalText(last);
}

std::string WhereOf(std::int32_t type, const std::string& days, bool grouped) {
    std::string where;
    if (type == frmMembersPrint::Running) where = "WHERE Not mi.ended";
    if (type == frmMembersPrint::Owing) where = "WHERE mi.remin <> 0";
    if (!days.empty()) where += (where.empty() ? "WHERE " : " AND ") + days;
    if (grouped) where += "\rGROUP BY mm.name, mi.accountname, mm.id";
    return where;
}

/// Asks the user; nothing where he refuses.
std::optional<Choice> AskedChoice() {
    frmMembersPrint& window = frmMembersPrint::Instance();
    const std::int32_t type = window.GetPrintType();
    if (type == frmMembersPrint::Refused) return std::nullopt;
    return Choice{type, window.bGroupPrint, WhereOf(type, DayCondition(window), window.bGroupPrint)};
}

std::string SubscriptionStatement(const Choice& choice) {
    const std::string columns =
        choice.grouped ? "First(mi.begindate), Sum(mi.totaltime), Sum(IIf(mi.ended,0,mi.membertime - "
                         "mi.totaltime)) AS remintime, Sum(mi.paid), Sum(mi.remin), mm.id"
                       : "mi.begindate, mi.totaltime, IIf(mi.ended,0,mi.membertime - mi.totaltime) AS "
                         "remintime, mi.paid, mi.remin, mm.id";
    return "SELECT mm.name, mi.accountname, " + columns +
           "\r From members AS mm INNER JOIN members_info AS mi ON mm.id = mi.member_id " + choice.where +
           (choice.grouped ? "\rORDER BY mm.id;"
                           : "\rORDER BY mm.id, mi.begindate, mi.accountname, mi.ended;");
}

std::string_view TitleOf(std::int32_t type) {
    if (type == frmMembersPrint::Running) return "تقرير بالمشتركين المستمرين";
    if (type == frmMembersPrint::Owing) return "تقرير بالمبالغ الغير مسددة من المشتركين";
    return {};
}

} // namespace

void VantlowCls::PrintMembersInfo(const std::string& szParam) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    const Ref<DAO::Database> db = mDb;
    std::optional<Choice> choice = Choice{};
    if (szParam.empty())
        trap.Step([&] { choice = AskedChoice(); });
    else
        trap.Step([&] { choice->where = WithShortNames(szParam); });
    if (!choice) return;
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = db->OpenRecordset(SubscriptionStatement(*choice)); });
    if (!trap.Test([&] { return !records->Eof(); })) {
        trap.Step([] {
            Platform::Current().messages->MsgBox("لا توجد بيانات للطباعة.",
                                                 BoxStyle::RightToLeft | BoxStyle::SecondButton);
        });
        return;
    }
    Ref<MembersInfo> report;
    trap.Step([&] { report = std::make_shared<MembersInfo>(); });
    if (const std::string_view title = TitleOf(choice->type); !title.empty())
        trap.Step([&] { report->SetHeadTitle(std::string(title)); });
    trap.Step([&] { RunReport(report, records, true, true, {mName1, mAddr1, mAddr2}); });
}

} // namespace qbrpt
