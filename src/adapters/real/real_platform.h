// The platform of a real run, with parts that a host of the house may put its own in for.
#pragma once

#include "adapters/console/console_boxes.h"
#include "adapters/output/report_output.h"
#include "adapters/printing/installed_printers.h"
#include "adapters/printing/printer_delivery.h"
#include "platform/desktop.h"
#include "platform/forms.h"
#include "platform/platform.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace qbrpt {

/// What takes the place of a real adapter; empty parts stay real.
struct RealParts {
    /// Empty: real windows where there is a display, else files in the folder of the PDF printer.
    Ref<Forms> forms;
    /// Without a display a report that would be shown is then a failure, not a file.
    bool needsDisplay = false;
    Ref<MessageBoxes> messages;
    /// To boxes that no window can show; without it as QBRPT_ON_ERROR says.
    BoxAnswer onError = AnswerFromSettings();
    std::shared_ptr<InstalledPrinters> printers;
    /// Which sides of a sheet the spooler's printers print on.
    Sides sides = Sides::AsThePrinterHas;
    std::shared_ptr<Delivery> delivery;
    /// Takes the place of the trace that QBRPT_TRACE names.
    std::shared_ptr<PortObserver> trace;
    /// Folder of the café's own layouts; takes the place of the one that QBRPT_LAYOUTS names.
    std::optional<std::string> layoutsFolder;
};

/// Never fails: a part that cannot work says so when it is used.
[[nodiscard]] std::unique_ptr<Platform> MakeRealPlatform(RealParts parts);

/// Forms of a process without windows: a report that would be shown goes into the folder of the PDF printer,
/// whatever printer it is bound to, and `made` is told where it lies.
[[nodiscard]] Ref<Forms> MakeFileForms(const PdfPrinter& pdfPrinter, const FileMade& made);

/// The printers of this machine, the PDF printer among them unless it is switched off.
/// `warn` is told, once, of a print service that does not answer.
[[nodiscard]] std::shared_ptr<InstalledPrinters>
PrintersOfThisMachine(std::function<void(const std::string& trouble)> warn);
/// Warnings go to standard error.
[[nodiscard]] std::shared_ptr<InstalledPrinters> PrintersOfThisMachine();

} // namespace qbrpt
