#include "adapters/printing/installed_printers.h"

#include "adapters/printing/cups/offers.h"

#include <algorithm>
#include <utility>

namespace qbrpt {

namespace {

constexpr std::chrono::seconds Freshness{3};
constexpr std::chrono::milliseconds Glance{50};
constexpr const char* PdfComment = "يطبع إلى ملفات PDF";
constexpr const char* SilentComment = " - خدمة الطباعة لا تستجيب";

} // namespace

InstalledPrinter ListedPdfPrinter(const PdfPrinter& printer) {
    InstalledPrinter listed;
    listed.info = printer.Info();
    listed.comment = PdfComment;
    listed.papers = UsualPapers();
    return listed;
}

InstalledPrinters::InstalledPrinters(std::optional<PdfPrinter> pdfPrinter, Lister spooler,
                                     std::function<void(const std::string&)> warn,
                                     std::function<Clock::time_point()> now)
    : mPdfPrinter(std::move(pdfPrinter)), mSpooler(std::move(spooler)), mWarn(std::move(warn)),
      mNow(std::move(now)) {}

void InstalledPrinters::List() {
    PrinterListing listing;
    if (mSpooler) listing = mSpooler(mWaited ? Glance : ListingPatience);
    mNext = mNow() + Freshness;
    if (mAll && listing.underWay) return; // no news
    mTrouble = listing.trouble;
    mHung = listing.hung;
    // A spooler that is busy or begun anew has not lost its printers.
    if (mTrouble.empty() || mSpooled.empty()) mSpooled = std::move(listing.printers);
    std::vector<InstalledPrinter> all = mSpooled;
    if (mPdfPrinter) {
        InstalledPrinter pdf = ListedPdfPrinter(*mPdfPrinter);
        // Who looks for his printers sees here why they are missing.
        if (!mTrouble.empty()) pdf.comment += SilentComment;
        const bool hasDefault = !all.empty() && all.front().isDefault;
        all.insert(hasDefault ? all.end() : all.begin(), std::move(pdf));
    }
    mAll = std::make_shared<const std::vector<InstalledPrinter>>(std::move(all));
    if (mHung && !std::exchange(mWaited, true) && mWarn) mWarn(mTrouble);
}

InstalledPrinters::Snapshot InstalledPrinters::All() {
    if (!mAll) List();
    return mAll;
}

void InstalledPrinters::Refresh() {
    if (mAll && mSpooler && mNow() >= mNext) List();
}

std::optional<InstalledPrinter> InstalledPrinters::Find(const std::string& name) {
    const Snapshot all = All();
    const auto found = std::find_if(all->begin(), all->end(), [&](const InstalledPrinter& printer) {
        return printer.info.deviceName == name;
    });
    if (found == all->end()) return std::nullopt;
    return *found;
}

} // namespace qbrpt
