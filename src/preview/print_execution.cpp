// From the print command to the printer, and the report's bond with the current printer.
#include "base/latin.h"
#include "base/numbers.h"
#include "platform/platform.h"
#include "platform/printing.h"
#include "preview/frmPrntServer.h"
#include "preview/print_dialogs.h"
#include "support/error_trap.h"

#include <algorithm>
#include <string>

namespace qbrpt {

void frmPrntServer::PrintData(bool bShowDialog) {
    ErrorTrap trap(ErrorTrap::BoxThenLeave, {.prefix = "PrintData\r"});
    trap.Step([&] { mReport->Report()->SetApplicationName(std::string(ComponentTitle)); });
    std::int32_t pFrom = 1;
    std::int32_t pTo = 0;
    std::int32_t pCopies = 1;
    bool pPrintAll = false;
    bool bPrinterChanged = false;
    trap.Step([&] { pTo = mReport->Report()->NumberOfPages(); });
    if (bShowDialog && !trap.Left()) {
        const std::int32_t pages = pTo;
        const bool accepted =
            trap.Test([&] { return ShowPrintDlg(pages, pFrom, pTo, pCopies, pPrintAll, bPrinterChanged); });
        if (!accepted && !trap.Left()) return;
        if (pPrintAll) {
            pFrom = 1;
            trap.Step([&] { pTo = mReport->Report()->NumberOfPages(); });
        }
        trap.Step([&] { RefreshReportprinter(); });
    }
    trap.Step([] { Platform::Current().screen->SetMousePointer(Pointer::ArrowHourglass); });
    if (rcvCount != 0)
        trap.Step([&] { PrintForReceivers(pFrom, pTo, pCopies); });
    else
        trap.Step([&] { PrintOut(pFrom, pTo, pCopies); });
    trap.Always([] { Platform::Current().screen->SetMousePointer(Pointer::Default); });
}

// At a failure the index stays at the row that failed.
void frmPrntServer::PrintForReceivers(std::int32_t from, std::int32_t to, std::int32_t copies) {
    const std::int32_t before = mReceiverIndex;
    for (std::int32_t i = 0; i < rcvCount; ++i) {
        mReceiverIndex = i;
        UpdateInfoData();
        static_cast<void>(WaitViewerReady());
        PrintOut(from, to, copies);
    }
    mReceiverIndex = before;
}

void frmPrntServer::PrintOut(std::int32_t from, std::int32_t to, std::int32_t copies) {
    mReport->Report()->PrintOut(
        false, {.copies = copies, .collated = std::nullopt, .startPage = from, .stopPage = to});
}

void frmPrntServer::UpdateInfoData() {
    ErrorTrap trap(ErrorTrap::BoxThenLeave, {.prefix = "UpdateInfoData cose Error No.", .numbered = true});
    if (trap.Test([&] { return SameAnyCase(mReport->Name(), "securrpt"); })) {
        trap.Step([&] {
            auto* receiver = dynamic_cast<ReceiverReport*>(mReport.Shared().get());
            if (!receiver) throw Failure(FailureNumber::NotInCollection, "SetInfoData is not supported.");
            const auto row = static_cast<std::size_t>(mReceiverIndex);
            constexpr std::size_t valuesARow = 6;
            if (mReceiverIndex < 0 || row >= vReceiver.size() || vReceiver[row].size() < valuesARow)
                throw Failure(FailureNumber::OutOfRange, "Subscript out of range.");
            receiver->SetInfoData({vReceiver[row].begin(), vReceiver[row].begin() + valuesARow});
        });
    }
    if (trap.Test([&] { return Window().Visible(); })) trap.Step([&] { prntViewer()->Refresh(); });
}

void PointAtCurrentPrinter(ErrorTrap& trap, const Ref<ReportTemplate>& report) {
    trap.Step([&] {
        const PrinterInfo printer = Platform::Current().printers->Current();
        report->Report()->SelectPrinter(printer.driverName, printer.deviceName, printer.port);
    });
    trap.Step([&] { report->Report()->SetPaperOrientation(Platform::Current().printers->Orientation()); });
    trap.Step([&] { report->Report()->SetPaperSize(Platform::Current().printers->Current().paperSize); });
}

bool frmPrntServer::BoundToCurrentPrinter() {
    const PrinterInfo printer = Platform::Current().printers->Current();
    CrystalRuntime::Report& report = *mReport->Report();
    return printer.deviceName == report.PrinterName() && printer.orientation == report.PaperOrientation() &&
           printer.paperSize == report.PaperSize() && printer.port == report.PortName() &&
           printer.driverName == report.DriverName();
}

void frmPrntServer::RefreshReportprinter() {
    ErrorTrap trap(ErrorTrap::BoxThenLeave, {.prefix = "RefreshReportprinter\r"});
    if (!trap.Test([&] { return !BoundToCurrentPrinter(); })) return;
    PointAtCurrentPrinter(trap, mReport);
    trap.Step([&] { AlignToPrinter(); });
}

void frmPrntServer::AlignToPrinter() {
    ErrorTrap trap(ErrorTrap::BoxThenLeave, {.title = "AlignToPrinter"});
    trap.Step([] { Platform::Current().screen->SetMousePointer(Pointer::Wait); });
    trap.Step([&] {
        const std::int32_t width = Platform::Current().printers->Current().width;
        const double margin = (static_cast<double>(width) - mReport->ReportWidth()) / 2;
        mReport->Report()->SetLeftMargin(RoundToLong(std::max(margin, 0.0)));
    });
    // While another wait runs this one ends here, and the pointer stays as it is.
    if (!trap.Test([&] { return WaitViewerReady(); }) && !trap.Left()) return;
    if (trap.Test([&] { return Window().Visible(); })) trap.Step([&] { prntViewer()->Refresh(); });
    trap.Step([&] { static_cast<void>(WaitViewerReady()); });
    trap.Always([] { Platform::Current().screen->SetMousePointer(Pointer::Default); });
}

} // namespace qbrpt
