// Reports on their way through a real print service, and what came out of its printers.
#pragma once

#include "adapters/printing/cups/printers.h"
#include "adapters/printing/installed_spooler.h"
#include "adapters/printing/printer_delivery.h"
#include "adapters/printing/printer_list.h"
#include "adapters/runtime/runtime.h"
#include "adapters/text/text_engine.h"
#include "base/failure.h"
#include "fakes/fake_platform.h"
#include "samples/sample_rows.h"
#include "templates/PayOutRpt.h"
#include "tools/print_service.h"
#include "tools/printed_pages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace qbrpt {

/// Payments fill five pages of A4 upright.
constexpr std::size_t FivePages = 200;

class PrintTest : public ::testing::Test {
protected:
    PrintTest() {
        RuntimeServices services = ServicesOf(std::make_shared<text::TextEngine>(), delivery);
        services.layouts = layout::Library();
        services.printers = list;
        Platform::Current().reports = MakeRuntime(std::move(services));
        Platform::Current().printers = list;
        Platform::Current().spooler = std::make_shared<InstalledSpooler>(printers);
    }

    static void Fill(PayOutRpt& payments, std::size_t rows = FivePages) {
        payments.SetHeadTitle("تقرير المصروفات");
        payments.Report()->SetDataSource(std::make_shared<fakes::FakeRecordset>(samples::Payments(rows)), 3);
        payments.Report()->ReadRecords();
    }
    static void Bind(CrystalRuntime::Report& report, const PrinterInfo& printer) {
        report.SelectPrinter(printer.driverName, printer.deviceName, printer.port);
        report.SetPaperSize(printer.paperSize);
        report.SetPaperOrientation(printer.orientation);
    }
    /// A report bound to `device` on a paper, upright.
    [[nodiscard]] static Ref<CrystalRuntime::Report>
    Payments(const std::string& device, std::int16_t paper = 9, std::size_t rows = FivePages) {
        PayOutRpt payments;
        Fill(payments, rows);
        PrinterInfo printer;
        printer.deviceName = device;
        printer.paperSize = paper;
        Bind(*payments.Report(), printer);
        payments.Report()->SetApplicationName("qbrpt");
        return payments.Report();
    }
    /// The failure of printing; an empty text where it went well.
    [[nodiscard]] static std::string FailureOf(const std::function<void()>& action) {
        try {
            action();
        } catch (const Failure& failure) {
            return failure.Description();
        }
        return "";
    }

    test::TempFolder folder;
    test::PrintService service;
    fakes::FakePlatform platform;
    std::shared_ptr<InstalledPrinters> printers =
        std::make_shared<InstalledPrinters>(PdfPrinter(folder / "pages"), cups::PrinterAsker());
    std::shared_ptr<PrinterList> list = std::make_shared<PrinterList>(printers);
    std::shared_ptr<PrinterDelivery> delivery =
        std::make_shared<PrinterDelivery>(PdfPrinter(folder / "pages"), printers);
};

} // namespace qbrpt
