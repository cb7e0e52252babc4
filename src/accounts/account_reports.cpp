#include "accounts/account_reports.h"

#include "base/numbers.h"
#include "platform/desktop.h"
#include "platform/platform.h"
#include "preview/frmPrntServer.h"
#include "support/error_trap.h"
#include "support/period_text.h"
#include "support/variant.h"
#include "templates/AccountRpt.h"
#include "templates/SngAccountRpt.h"

namespace qbrpt {

namespace {

void SetPointer(Pointer pointer) {
    Platform::Current().screen->SetMousePointer(pointer);
}

void Say(const std::string& text, int style) {
    Platform::Current().messages->MsgBox(text, style);
}

void Bind(const Ref<CrystalRuntime::Report>& report, const Ref<DAO::Recordset>& records) {
    report->SetDataSource(records, CrystalRuntime::DaoRecordsetTag);
}

/// Points a report at the current printer and shows it.
void Show(ErrorTrap& trap, const Ref<ReportTemplate>& report) {
    PointAtCurrentPrinter(trap, report);
    trap.Step([&] { frmPrntServer::Instance().ShowpReport(report, true); });
}

std::string PeriodOf(double dFrom, double dTo) {
    return GetPeriodText(dFrom, dTo, true, false);
}

/// Binds what went out to the report inside `report`, and adds it up.
std::int32_t FillOutgoing(ErrorTrap& trap, const Ref<SngAccountRpt>& report,
                          const Ref<DAO::Recordset>& outgoing) {
    Ref<CrystalRuntime::Report> inside;
    std::int32_t total = 0;
    trap.Step([&] { inside = report->Report()->ObjectNamed("rptFrom")->OpenSubreport(); });
    trap.Step([&] { Bind(inside, outgoing); });
    trap.Step([&] { inside->ReadRecords(); });
    trap.Step([&] { outgoing->MoveFirst(); });
    constexpr int amount = 1; // its column
    while (trap.Test([&] { return !outgoing->Eof(); })) {
        // Rounded at each step, and not once for all.
        trap.Step([&] { total = RoundToLong(total + NumberOf(outgoing->Fields(amount))); });
        trap.Step([&] { outgoing->MoveNext(); });
    }
    return total;
}

/// Behind the trap, whatever happened.
void Leave(ErrorTrap& trap) {
    trap.Always([] { frmPrntServer::Drop(); });
    trap.Always([] { SetPointer(Pointer::Default); });
}

} // namespace

void PrintAccountMoves(const Ref<DAO::Database>& db, std::int32_t nAccId, double dFrom, double dTo,
                       const std::function<std::string()>& accountName) {
    ErrorTrap trap(ErrorTrap::BoxThenLeave);
    trap.Step([] { SetPointer(Pointer::Wait); });
    Ref<DAO::Recordset> incoming;
    Ref<DAO::Recordset> outgoing;
    trap.Step([&] { incoming = db->OpenRecordset(ledger::IncomingMoves(nAccId, dFrom, dTo)); });
    trap.Step([&] { outgoing = db->OpenRecordset(ledger::OutgoingMoves(nAccId, dFrom, dTo)); });
    if (trap.Test([&] { return incoming->Eof() && outgoing->Eof(); })) {
        trap.Step([] {
            Say("لا توجد بيانات للطباعة في الوقت الحاضر.", BoxStyle::RightToLeft | BoxStyle::Critical);
        });
        return Leave(trap);
    }
    Ref<SngAccountRpt> report;
    trap.Step([&] { report = std::make_shared<SngAccountRpt>(); });
    trap.Step([&] { report->ShowAccountSection(incoming->Eof(), outgoing->Eof()); });
    if (trap.Test([&] { return !incoming->Eof(); })) {
        trap.Step([&] { Bind(report->Report(), incoming); });
        trap.Step([&] { report->Report()->ReadRecords(); });
    }
    std::int32_t total = 0;
    if (trap.Test([&] { return !outgoing->Eof(); })) total = FillOutgoing(trap, report, outgoing);
    std::string title;
    trap.Step([&] { title = "حركة القيد الخاصة بحساب " + accountName(); });
    std::string period;
    if (dFrom > 0) trap.Step([&] { period = PeriodOf(dFrom, dTo); });
    trap.Step([&] { report->SetTitle("", title, period, total); });
    Show(trap, report);
    report.Clear();
    Leave(trap);
}

void PrintAllMoves(const Ref<DAO::Database>& db, double dFrom, double dTo) {
    ErrorTrap trap(ErrorTrap::BoxThenLeave);
    trap.Step([] { SetPointer(Pointer::Wait); });
    Ref<DAO::Recordset> records;
    trap.Step([&] { records = db->OpenRecordset(ledger::AllMoves(dFrom, dTo)); });
    if (trap.Test([&] { return records->Eof(); })) {
        trap.Step(
            [] { Say("لا توجد بيانات بهذا الخصوص حالياً.", BoxStyle::RightToLeft | BoxStyle::SecondButton); });
        return Leave(trap);
    }
    Ref<AccountRpt> report;
    trap.Step([&] { report = std::make_shared<AccountRpt>(); });
    trap.Step([&] { Bind(report->Report(), records); });
    trap.Step([&] { report->Report()->ReadRecords(); });
    trap.Step([&] {
        report->SetTitle("", dFrom > 0 ? "حركة القيد " + PeriodOf(dFrom, dTo) : "حركة القيد الكلية");
    });
    Show(trap, report);
    report.Clear();
    Leave(trap);
}

} // namespace qbrpt
