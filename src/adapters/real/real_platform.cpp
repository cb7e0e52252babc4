#include "adapters/real/real_platform.h"

#include "adapters/console/console_boxes.h"
#include "adapters/console/quiet_forms.h"
#include "adapters/console/quiet_screen.h"
#include "adapters/console/quiet_tree.h"
#include "adapters/database/sqlite/sqlite_engine.h"
#include "adapters/gdi/raster_gdi.h"
#include "adapters/locale/locale_adapter.h"
#include "adapters/locale/system_clock.h"
#include "adapters/printing/cups/printers.h"
#include "adapters/printing/installed_spooler.h"
#include "adapters/printing/pdf_folder.h"
#include "adapters/printing/printer_list.h"
#include "adapters/qt/application.h"
#include "adapters/qt/boxes.h"
#include "adapters/qt/form.h"
#include "adapters/qt/screen.h"
#include "adapters/qt/window_tree.h"
#include "adapters/qt/windows.h"
#include "adapters/registry/file_registry.h"
#include "adapters/runtime/runtime.h"
#include "adapters/text/font_source.h"
#include "adapters/text/text_engine.h"
#include "adapters/trace/trace_writer.h"
#include "adapters/window/xcb_windows.h"

#include <filesystem>
#include <iostream>
#include <utility>
#include <vector>

namespace qbrpt {

namespace {

void TellOfFile(const std::filesystem::path& file) {
    std::cerr << "qbrpt: " << file.string() << std::endl;
}

/// All that is seen, as a desktop shows it.
void AddWindows(Platform& platform, BoxAnswer onError) {
    platform.forms = std::make_shared<qt::QtForms>();
    platform.windows = std::make_shared<qt::QtWindows>();
    platform.tree = std::make_shared<qt::QtTree>(platform.windows);
    platform.screen = std::make_shared<qt::QtScreen>();
    platform.messages = std::make_shared<qt::QtBoxes>(std::cerr, onError);
}

/// All that would be seen, where it goes when there is nobody to see it.
void AddFileForms(Platform& platform, BoxAnswer onError, Ref<Forms> forms) {
    platform.forms = std::move(forms);
    platform.windows = std::make_shared<XcbWindows>();
    platform.tree = std::make_shared<QuietTree>();
    platform.screen = std::make_shared<QuietScreen>();
    platform.messages = std::make_shared<ConsoleBoxes>(std::cerr, onError);
}

} // namespace

Ref<Forms> MakeFileForms(const PdfPrinter& pdfPrinter, const FileMade& made) {
    return std::make_shared<QuietForms>([=](const Ref<CrystalRuntime::Report>& report) {
        ReportOutput& output = OutputOf(report);
        PrintJob job;
        job.title = output.Title();
        made(PdfPrinter(pdfPrinter).Print(output, job));
    });
}

std::shared_ptr<InstalledPrinters>
PrintersOfThisMachine(std::function<void(const std::string& trouble)> warn) {
    std::optional<PdfPrinter> pdfPrinter;
    if (PdfPrinterIsOn()) pdfPrinter.emplace(PdfFolder());
    return std::make_shared<InstalledPrinters>(std::move(pdfPrinter), cups::PrinterAsker(), std::move(warn));
}

std::shared_ptr<InstalledPrinters> PrintersOfThisMachine() {
    return PrintersOfThisMachine(
        [](const std::string& trouble) { std::cerr << "qbrpt: " << trouble << std::endl; });
}

std::unique_ptr<Platform> MakeRealPlatform(RealParts parts) {
    const PdfPrinter pdfPrinter(PdfFolder());
    if (!parts.printers) parts.printers = PrintersOfThisMachine();
    if (!parts.delivery)
        parts.delivery = std::make_shared<PrinterDelivery>(pdfPrinter, parts.printers, TellOfFile);
    const auto printers = std::make_shared<PrinterList>(parts.printers);
    printers->SetSides(parts.sides);
    if (!parts.trace) parts.trace = TraceFromSettings();

    auto platform = std::make_unique<Platform>();
    platform->engine = MakeSqliteEngine();
    RuntimeServices services = ServicesOf(text::MakeTextPort(), std::move(parts.delivery));
    services.printers = printers;
    if (parts.layoutsFolder) services.layouts = layout::Library(*parts.layoutsFolder);
    platform->reports = MakeRuntime(std::move(services));
    platform->registry = std::make_shared<FileRegistry>();
    if (parts.forms.Empty() && (parts.needsDisplay || qt::DisplayIsThere()))
        AddWindows(*platform, parts.onError);
    else
        AddFileForms(*platform, parts.onError,
                     parts.forms.Empty() ? MakeFileForms(pdfPrinter, TellOfFile) : parts.forms);
    if (!parts.messages.Empty()) platform->messages = std::move(parts.messages);
    platform->printers = printers;
    platform->spooler = std::make_shared<InstalledSpooler>(std::move(parts.printers));
    platform->gdi = std::make_shared<gdi::RasterGdi>();
    platform->fonts = std::shared_ptr<FontSource>(text::MakeFontSource());
    platform->locale = MakeLocale();
    platform->clock = MakeSystemClock();
    if (parts.trace) platform->observers.Add(std::move(parts.trace));
    return platform;
}

std::unique_ptr<Platform> MakeRealPlatform() {
    return MakeRealPlatform(RealParts{});
}

} // namespace qbrpt
