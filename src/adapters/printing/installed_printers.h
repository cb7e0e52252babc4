// All printers of this machine: those of the spooler, and the one that prints into files.
#pragma once

#include "adapters/printing/cups/installed_printer.h"
#include "adapters/printing/pdf_printer.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qbrpt {

/// Listed when they are first asked for. Printers come and go, so the list is made anew now and then. The
/// user waits once for a spooler that does not answer; from then on it is glanced at.
class InstalledPrinters {
public:
    using Lister = std::function<PrinterListing(std::chrono::milliseconds patience)>;
    using Clock = std::chrono::steady_clock;
    using Snapshot = std::shared_ptr<const std::vector<InstalledPrinter>>;

    /// `pdfPrinter`: nothing where it is switched off. `spooler` asks the spooler, and waits for it no longer
    /// than told; empty where there is none to ask. `warn` is told, once, of a spooler that does not answer.
    InstalledPrinters(std::optional<PdfPrinter> pdfPrinter, Lister spooler,
                      std::function<void(const std::string&)> warn = {},
                      std::function<Clock::time_point()> now = Clock::now);

    /// The default printer first: the spooler's default, else the PDF printer.
    [[nodiscard]] Snapshot All();
    /// Makes the list anew, where enough time has passed.
    void Refresh();
    /// The printer of this name, nothing where there is none.
    [[nodiscard]] std::optional<InstalledPrinter> Find(const std::string& name);
    /// Why the spooler's printers are missing; empty where they are not.
    [[nodiscard]] std::string Trouble() const { return mTrouble; }
    /// Whether the spooler was waited for in vain.
    [[nodiscard]] bool Hung() const { return mHung; }

private:
    void List();

    std::optional<PdfPrinter> mPdfPrinter;
    Lister mSpooler;
    std::function<void(const std::string&)> mWarn;
    std::function<Clock::time_point()> mNow;
    std::vector<InstalledPrinter> mSpooled; ///< the spooler's, as they were told last
    Snapshot mAll;
    Clock::time_point mNext; ///< not listed again before
    std::string mTrouble;
    bool mHung = false;
    bool mWaited = false; ///< the user has waited for the spooler in vain once
};

/// The PDF printer as it is listed.
[[nodiscard]] InstalledPrinter ListedPdfPrinter(const PdfPrinter& printer);

} // namespace qbrpt
