#include "adapters/printing/cups/printers.h"

#include "adapters/printing/cups/connection.h"
#include "adapters/printing/cups/helper_thread.h"
#include "adapters/printing/cups/listed_printer.h"

#include <algorithm>
#include <future>
#include <mutex>
#include <utility>
#include <vector>

namespace qbrpt::cups {

namespace {

using Time = std::chrono::steady_clock;

/// No answer of the spooler is waited for longer.
constexpr std::chrono::milliseconds AnswerPatience = ListingPatience * 3 / 4;
constexpr const char* Silence = "The printer service does not answer.";

} // namespace

/// What the thread that asks has found out so far; shared with those who want to know.
class PrinterAsker::Asking {
public:
    static std::shared_ptr<Asking> Begin() {
        auto asking = std::make_shared<Asking>();
        asking->mEnded = RunAside([asking] { asking->Ask(); });
        return asking;
    }

    [[nodiscard]] bool EndsWithin(std::chrono::milliseconds patience) const {
        return mEnded.wait_for(patience) == std::future_status::ready;
    }
    [[nodiscard]] Time::duration Age() const { return Time::now() - mBegin; }
    [[nodiscard]] PrinterListing SoFar() {
        const std::lock_guard hold(mLock);
        return mListing;
    }

private:
    void Ask() {
        const Connection connection = Connect(AnswerPatience);
        if (!connection)
            return Fail("The printer service cannot be reached (" + LastWords() + ").",
                        Age() > ListingPatience / 2);
        const Destinations printers(connection.get());
        if (Age() >= AnswerPatience && Failed()) return Fail(Silence, true);
        // All of them before any is asked: the default printer must be among them, whatever comes.
        std::vector<cups_dest_t*> found;
        for (int i = 0; i < printers.Count(); ++i)
            if (printers.At(i)->instance == nullptr) // else another set of options for the same printer
                found.push_back(printers.At(i));
        std::stable_partition(found.begin(), found.end(),
                              [](const cups_dest_t* printer) { return printer->is_default != 0; });
        for (const cups_dest_t* printer : found)
            Add(Listed(printer));
        for (std::size_t i = 0; i < found.size(); ++i) {
            const Time::time_point asked = Time::now();
            InstalledPrinter listed = Listed(found[i]);
            if (Complete(listed, connection.get(), found[i]))
                Replace(i, std::move(listed));
            else if (Time::now() - asked >= AnswerPatience)
                return Fail(Silence, true);
        }
    }

    void Add(InstalledPrinter printer) {
        const std::lock_guard hold(mLock);
        mListing.printers.push_back(std::move(printer));
    }
    void Replace(std::size_t index, InstalledPrinter printer) {
        const std::lock_guard hold(mLock);
        mListing.printers[index] = std::move(printer);
    }
    void Fail(std::string trouble, bool hung) {
        const std::lock_guard hold(mLock);
        mListing.trouble = std::move(trouble);
        mListing.hung = hung;
    }
    /// That there is no default printer is no failure.
    static bool Failed() {
        const ipp_status_t status = ::cupsLastError();
        return status >= IPP_STATUS_ERROR_BAD_REQUEST && status != IPP_STATUS_ERROR_NOT_FOUND;
    }

    const Time::time_point mBegin = Time::now();
    std::future<void> mEnded;
    std::mutex mLock;
    PrinterListing mListing;
};

PrinterListing PrinterAsker::operator()(std::chrono::milliseconds patience) {
    constexpr std::chrono::milliseconds atOnce{0};
    if (mAsking && mAsking->EndsWithin(atOnce) && mAsking->SoFar().hung) mAsking.reset();
    if (!mAsking) mAsking = Asking::Begin();
    const bool ended = mAsking->EndsWithin(patience);
    PrinterListing listing = mAsking->SoFar();
    if (ended) {
        mAsking.reset();
    } else {
        listing.hung = mAsking->Age() >= ListingPatience;
        listing.underWay = !listing.hung;
        listing.trouble = Silence;
    }
    return listing;
}

} // namespace qbrpt::cups
