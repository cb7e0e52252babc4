#include "adapters/printing/printer_list.h"

#include "base/failure.h"
#include "base/numbers.h"

#include <utility>

namespace qbrpt {

namespace {

PaperExtent SheetOn(const InstalledPrinter& printer, std::int16_t paperSize) {
    // A usual number is exactly that size, however the printer rounds it.
    const PrinterPaper* own = paperSize >= FirstOwnPaper ? printer.PaperOf(paperSize) : nullptr;
    return own == nullptr ? ExtentOfPaper(paperSize) : ExtentOfSize(own->width, own->height);
}

/// The printer as it is seen, with the width of the sheet as it is turned.
PrinterInfo Seen(const InstalledPrinter& printer) {
    PrinterInfo info = printer.info;
    const PaperExtent sheet = SheetOn(printer, info.paperSize);
    info.width = info.orientation == OrientationLandscape ? sheet.height : sheet.width;
    return info;
}

void RequirePositive(std::int16_t value, const std::string& what) {
    if (value < 1)
        throw Failure(FailureNumber::InvalidArgument,
                      "The printer has no " + what + " " + DecimalText(value) + ".");
}

[[noreturn]] void Refuse(const InstalledPrinter& printer, const std::string& what, std::int16_t value) {
    throw Failure(FailureNumber::InvalidArgument, "The printer \"" + printer.info.deviceName + "\" has no " +
                                                      what + " " + DecimalText(value) + ".");
}

std::string Behind(const std::string& trouble) {
    return trouble.empty() ? std::string{} : " " + trouble;
}

} // namespace

std::string NoSuchPrinter(const std::string& device, const InstalledPrinters& printers) {
    return "There is no printer \"" + device + "\"." + Behind(printers.Trouble());
}

PaperExtent PrinterList::SheetOf(const std::string& device, std::int16_t paperSize) {
    if (paperSize < FirstOwnPaper) return ExtentOfPaper(paperSize);
    const std::optional<InstalledPrinter> printer = mPrinters->Find(device);
    return printer ? SheetOn(*printer, paperSize) : ExtentOfPaper(paperSize);
}

std::optional<std::int16_t> PrinterList::BinOf(const std::string& device) {
    if (mCurrent && mCurrent->info.deviceName == device) return mCurrent->info.paperBin;
    return std::nullopt;
}

Sides PrinterList::SidesOf(const std::string&) {
    return mSides;
}

std::int32_t PrinterList::DoCount() {
    mPrinters->Refresh();
    return CheckedLong(static_cast<std::int64_t>(mPrinters->All()->size()));
}

PrinterInfo PrinterList::DoItem(std::int32_t index) {
    const InstalledPrinters::Snapshot all = mPrinters->All();
    if (index < 0 || index >= CheckedLong(static_cast<std::int64_t>(all->size())))
        throw Failure(FailureNumber::NotInCollection,
                      "There is no printer number " + DecimalText(index) + ".");
    return Seen((*all)[static_cast<std::size_t>(index)]);
}

PrinterInfo PrinterList::DoCurrent() {
    return Seen(Required());
}

const InstalledPrinter& PrinterList::Required() {
    if (!mCurrent || mStandsIn) {
        const InstalledPrinters::Snapshot all = mPrinters->All();
        if (all->empty())
            throw Failure(
                FailureNumber::Device,
                "There is no printer. Install one, or switch the PDF printer on (QBRPT_PDF_PRINTER)." +
                    Behind(mPrinters->Trouble()));
        mCurrent = all->front();
        mStandsIn = !mPrinters->Trouble().empty();
    }
    return *mCurrent;
}

InstalledPrinter& PrinterList::Kept() {
    static_cast<void>(Required());
    mStandsIn = false;
    return *mCurrent;
}

void PrinterList::DoSetOrientation(std::int16_t orientation) {
    static_cast<void>(Required());
    if (orientation != OrientationPortrait && orientation != OrientationLandscape)
        throw Failure(FailureNumber::InvalidArgument,
                      "The printer has no orientation " + DecimalText(orientation) + ".");
    Kept().info.orientation = orientation;
}

void PrinterList::DoSetCurrent(const std::string& deviceName) {
    std::optional<InstalledPrinter> chosen = mPrinters->Find(deviceName);
    if (!chosen) throw Failure(FailureNumber::NotInCollection, NoSuchPrinter(deviceName, *mPrinters));
    mCurrent = std::move(chosen);
    mStandsIn = false;
}

void PrinterList::DoSetPaperSize(std::int16_t paperSize) {
    const InstalledPrinter& printer = Required();
    RequirePositive(paperSize, "paper");
    if (!printer.papers.empty() && printer.PaperOf(paperSize) == nullptr) Refuse(printer, "paper", paperSize);
    Kept().info.paperSize = paperSize;
}

void PrinterList::DoSetPaperBin(std::int16_t paperBin) {
    const InstalledPrinter& printer = Required();
    RequirePositive(paperBin, "paper bin");
    if (!printer.bins.empty() && printer.BinOf(paperBin) == nullptr) Refuse(printer, "paper bin", paperBin);
    Kept().info.paperBin = paperBin;
}

} // namespace qbrpt
