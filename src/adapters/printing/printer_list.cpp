#include "adapters/printing/printer_list.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "base/paper.h"

#include <algorithm>
#include <utility>

namespace qbrpt {

namespace {

void TurnSheet(PrinterInfo& printer) {
    const PaperExtent sheet = ExtentOfPaper(printer.paperSize);
    printer.width = printer.orientation == OrientationLandscape ? sheet.height : sheet.width;
}

void RequirePositive(std::int16_t value, const std::string& what) {
    if (value < 1)
        throw Failure(FailureNumber::InvalidArgument,
                      "The printer has no " + what + " " + DecimalText(value) + ".");
}

} // namespace

PrinterList::PrinterList(std::vector<PrinterInfo> printers) : mPrinters(std::move(printers)) {
    for (PrinterInfo& printer : mPrinters)
        TurnSheet(printer);
    if (!mPrinters.empty()) mCurrent = mPrinters.front();
}

std::int32_t PrinterList::DoCount() {
    return CheckedLong(static_cast<std::int64_t>(mPrinters.size()));
}

PrinterInfo PrinterList::DoItem(std::int32_t index) {
    if (index < 0 || index >= DoCount())
        throw Failure(FailureNumber::NotInCollection,
                      "There is no printer number " + DecimalText(index) + ".");
    return mPrinters[static_cast<std::size_t>(index)];
}

PrinterInfo PrinterList::DoCurrent() {
    return Required();
}

PrinterInfo& PrinterList::Required() {
    if (!mCurrent)
        throw Failure(FailureNumber::Device,
                      "There is no printer. Install one, or switch the PDF printer on (QBRPT_PDF_PRINTER).");
    return *mCurrent;
}

void PrinterList::DoSetOrientation(std::int16_t orientation) {
    PrinterInfo& printer = Required();
    if (orientation != OrientationPortrait && orientation != OrientationLandscape)
        throw Failure(FailureNumber::InvalidArgument,
                      "The printer has no orientation " + DecimalText(orientation) + ".");
    printer.orientation = orientation;
    TurnSheet(printer);
}

void PrinterList::DoSetCurrent(const std::string& deviceName) {
    const auto found = std::find_if(mPrinters.begin(), mPrinters.end(), [&](const PrinterInfo& printer) {
        return printer.deviceName == deviceName;
    });
    if (found == mPrinters.end())
        throw Failure(FailureNumber::NotInCollection, "There is no printer \"" + deviceName + "\".");
    mCurrent = *found;
}

void PrinterList::DoSetPaperSize(std::int16_t paperSize) {
    PrinterInfo& printer = Required();
    RequirePositive(paperSize, "paper");
    printer.paperSize = paperSize;
    TurnSheet(printer);
}

void PrinterList::DoSetPaperBin(std::int16_t paperBin) {
    PrinterInfo& printer = Required();
    RequirePositive(paperBin, "paper bin");
    printer.paperBin = paperBin;
}

} // namespace qbrpt
