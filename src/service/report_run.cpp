#include "service/report_run.h"

#include "base/numbers.h"
#include "platform/desktop.h"
#include "platform/platform.h"
#include "platform/printing.h"
#include "preview/frmPrntServer.h"
#include "support/error_trap.h"
#include "support/variant.h"

namespace qbrpt {

void ApplyMainTitle(const Ref<ReportTemplate>& report, const MainTitle& title) {
    report->SetHotelInfoByName(title.name1, title.addr1, title.addr2);
}

void RunOwnedReport(Ref<ReportTemplate> report, const Ref<DAO::Recordset>& records, bool bSetData, bool bShow,
                    const MainTitle& title) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    // The open one keeps its pointer, its window and the printer.
    if (frmPrntServer::RefusesAnother(trap)) return;
    trap.Step([] { Platform::Current().screen->SetMousePointer(Pointer::Wait); });
    trap.Step([&] { ApplyMainTitle(report, title); });
    if (bSetData) {
        trap.Step([&] { report->Report()->SetDataSource(records, CrystalRuntime::DaoRecordsetTag); });
        trap.Step([&] { report->Report()->ReadRecords(); });
    }
    trap.Step([&] {
        const PrinterInfo printer = Platform::Current().printers->Current();
        report->Report()->SelectPrinter(printer.driverName, printer.deviceName, printer.port);
    });
    trap.Step([&] { report->Report()->SetPaperSize(Platform::Current().printers->Current().paperSize); });
    trap.Step([&] { report->Report()->SetPaperOrientation(Platform::Current().printers->Orientation()); });
    if (bShow) {
        trap.Step([&] { frmPrntServer::Instance().ShowpReport(report, true); });
    } else {
        trap.Step([&] { report->Report()->PrintOut(false); });
    }

    trap.Always([&] { report.Clear(); });
    trap.Always([] { frmPrntServer::Drop(); });
    trap.Always([] { Platform::Current().screen->SetMousePointer(Pointer::Default); });
}

double GetWorkDate(const Ref<DAO::Database>& db, std::int32_t id) {
    const Ref<DAO::Recordset> records =
        db->OpenRecordset("SELECT use_date FROM host_log_time WHERE id = " + DecimalText(id));
    return records->Eof() ? 0 : NumberOf(records->Fields(0));
}

std::string GetHostName(const Ref<DAO::Database>& db, std::int32_t id) {
    std::string name;
    ErrorTrap trap(ErrorTrap::SilentLeave);
    Ref<DAO::Recordset> records;
    trap.Step(
        [&] { records = db->OpenRecordset("SELECT name FROM host_src WHERE id = " + DecimalText(id)); });
    if (trap.Test([&] { return records->RecordCount() != 0; }))
        trap.Step([&] { name = TextOf(records->Fields(0)); });
    trap.Step([&] { records->Close(); });
    return name;
}

} // namespace qbrpt
