#include "adapters/printing/cups/job.h"

#include "adapters/printing/cups/connection.h"
#include "adapters/printing/cups/helper_thread.h"
#include "base/failure.h"

#include <cerrno>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace qbrpt::cups {

namespace {

constexpr std::size_t ChunkBytes = std::size_t{64} * 1024;
constexpr std::size_t MostChunks = 4;
constexpr std::chrono::milliseconds CancelPatience{2000};
constexpr const char* Silence = "The printer service does not answer.";

struct FreeOptions {
    int count = 0;
    cups_option_t* first = nullptr;
    explicit FreeOptions(const JobOptions& options) {
        for (const auto& [name, value] : options)
            count = ::cupsAddOption(name.c_str(), value.c_str(), count, &first);
    }
    ~FreeOptions() { ::cupsFreeOptions(count, first); }
    FreeOptions(const FreeOptions&) = delete;
    FreeOptions& operator=(const FreeOptions&) = delete;
};

/// What went wrong on a connection.
std::string Words(http_t* connection, const char* otherwise = Silence) {
    // The system's words for these mean nothing to users.
    const int error = ::httpError(connection);
    if (error == EAGAIN || error == ETIMEDOUT) return Silence;
    if (error == EPIPE || error == ECONNRESET) return "The printer service has broken off.";
    const std::string words = LastWords();
    return words.empty() ? otherwise : words;
}

} // namespace

/// What lies between the thread that makes pages and the one that hands them to the spooler.
class Job::Line {
public:
    /// Puts a chunk on the line, as soon as there is room. False where the other side has stopped or does
    /// not move within `patience`.
    bool Put(std::string chunk, bool last, std::chrono::milliseconds patience) {
        std::unique_lock hold(mLock);
        const bool moves =
            mMoved.wait_for(hold, patience, [&] { return mEnded || mChunks.size() < MostChunks; });
        if (!moves || mEnded) return false;
        mChunks.push_back(std::move(chunk));
        mLast = last;
        mMoved.notify_all();
        return true;
    }
    /// The next chunk; false where there is none to come, or the job was dropped.
    bool Take(std::string& chunk) {
        std::unique_lock hold(mLock);
        mMoved.wait(hold, [&] { return mDropped || !mChunks.empty() || mLast; });
        if (mDropped || mChunks.empty()) return false;
        chunk = std::move(mChunks.front());
        mChunks.pop_front();
        mMoved.notify_all();
        return true;
    }
    void End(std::string trouble) {
        const std::lock_guard hold(mLock);
        mEnded = true;
        mTrouble = std::move(trouble);
        mMoved.notify_all();
    }
    /// Waits until the line is empty and the spooler has said its last word. False where nothing moves
    /// within `patience`.
    bool WaitForEnd(std::chrono::milliseconds patience) {
        std::unique_lock hold(mLock);
        for (std::size_t before = mChunks.size(); !mEnded; before = mChunks.size()) {
            const bool moves =
                mMoved.wait_for(hold, patience, [&] { return mEnded || mChunks.size() < before; });
            if (!moves) return false;
        }
        return true;
    }
    void Drop() {
        const std::lock_guard hold(mLock);
        mDropped = true;
        mMoved.notify_all();
    }
    [[nodiscard]] bool Dropped() {
        const std::lock_guard hold(mLock);
        return mDropped;
    }
    [[nodiscard]] bool Ended() {
        const std::lock_guard hold(mLock);
        return mEnded;
    }
    [[nodiscard]] std::string Trouble() {
        const std::lock_guard hold(mLock);
        return mTrouble;
    }
    void SetNumber(int number) {
        const std::lock_guard hold(mLock);
        mNumber = number;
    }
    /// The spooler's number of the job, 0 before it has one.
    [[nodiscard]] int Number() {
        const std::lock_guard hold(mLock);
        return mNumber;
    }

private:
    std::mutex mLock;
    std::condition_variable mMoved;
    std::deque<std::string> mChunks;
    std::string mTrouble;
    int mNumber = 0;
    bool mLast = false;
    bool mDropped = false;
    bool mEnded = false;
};

namespace {

/// False where the spooler does not answer.
bool CancelJob(const InstalledPrinter& printer, int number) {
    const Connection connection = Connect(CancelPatience);
    if (!connection) return false;
    const Destinations found(printer.info.deviceName, printer.destination);
    ::cupsCancelDestJob(connection.get(), found.At(0), number);
    return ::httpError(connection.get()) == 0;
}

/// Cancels a job of a spooler that may be dead or stopped, as soon as it is back. What it has of the document
/// is not whole, so that it prints nothing of it meanwhile.
void CancelJobSometime(const InstalledPrinter& printer, int number) {
    constexpr int times = 120;
    for (int i = 0; i < times && !CancelJob(printer, number); ++i)
        std::this_thread::sleep_for(std::chrono::seconds(1));
}

/// Takes the document of a job to the spooler, on a connection of its own. Returns what went wrong.
template <class JobLine>
std::string Deliver(const JobTicket& ticket, JobLine& line) {
    const Connection connection = Connect(ticket.patience);
    if (!connection) return "The printer service cannot be reached (" + LastWords() + ").";
    const Destinations found(ticket.printer.info.deviceName, ticket.printer.destination);
    http_t* http = connection.get();
    cups_dest_t* printer = found.At(0);
    const DestInfo info(::cupsCopyDestInfo(http, printer));
    if (!info) return Words(http, "The printer does not answer.");
    const FreeOptions options(ticket.options);
    int number = 0;
    if (::cupsCreateDestJob(http, printer, info.get(), &number, ticket.title.c_str(), options.count,
                            options.first) > IPP_STATUS_OK_EVENTS_COMPLETE)
        return Words(http, "The job was refused.");
    line.SetNumber(number);
    if (line.Dropped()) {
        CancelJob(ticket.printer, number);
        return Silence;
    }
    if (::cupsStartDestDocument(http, printer, info.get(), number, ticket.title.c_str(), CUPS_FORMAT_PDF, 0,
                                nullptr, 1) != HTTP_STATUS_CONTINUE)
        return Words(http, "The document was refused.");
    std::string chunk;
    while (line.Take(chunk))
        if (::cupsWriteRequestData(http, chunk.data(), chunk.size()) != HTTP_STATUS_CONTINUE)
            return Words(http);
    // Closed in the middle of the document, the connection leaves the spooler with nothing to print.
    if (line.Dropped()) return Silence;
    if (::cupsFinishDestDocument(http, printer, info.get()) > IPP_STATUS_OK_EVENTS_COMPLETE)
        return Words(http, "The document was refused.");
    return {};
}

} // namespace

Job::Job(JobTicket ticket) : mTicket(std::move(ticket)) {}

Job::~Job() {
    if (mLine && !mFinished) Cancel();
}

void Job::Begin() {
    mLine = std::make_shared<Line>();
    std::thread([ticket = mTicket, line = mLine] {
        try {
            line->End(Deliver(ticket, *line));
        } catch (const std::exception& error) {
            line->End(error.what());
        }
    }).detach();
}

void Job::Write(std::string_view bytes) {
    mBuffer += bytes;
    if (mBuffer.size() >= ChunkBytes) Send(std::exchange(mBuffer, {}), false);
}

void Job::Send(std::string chunk, bool last) {
    if (!mLine) Begin();
    if (mLine->Put(std::move(chunk), last, mTicket.patience)) return;
    Fail(mLine->Ended() ? mLine->Trouble() : Silence);
}

void Job::Finish() {
    Send(std::exchange(mBuffer, {}), true);
    if (!mLine->WaitForEnd(mTicket.patience)) Fail(Silence);
    if (const std::string trouble = mLine->Trouble(); !trouble.empty()) Fail(trouble);
    mFinished = true;
}

void Job::Fail(const std::string& words) {
    Cancel();
    mFinished = true; // there is nothing more to be done about it
    throw Failure(FailureNumber::Device, "The printer \"" + mTicket.printer.info.deviceName + "\": " + words);
}

void Job::Cancel() noexcept {
    try {
        mLine->Drop();
        const int number = mLine->Number();
        if (number == 0) return; // the thread cancels it where it is made yet
        static_cast<void>(RunWithin(CancelPatience, [printer = mTicket.printer, number] {
            if (!CancelJob(printer, number)) std::thread(CancelJobSometime, printer, number).detach();
        }));
    } catch (...) {
        // A job that cannot be cancelled has no whole document: the spooler drops it in time.
        return;
    }
}

} // namespace qbrpt::cups
