// One print job on its way to the spooler.
#pragma once

#include "adapters/printing/cups/installed_printer.h"
#include "base/byte_sink.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::cups {

/// The words that go with a job, as libcups takes them.
using JobOptions = std::vector<std::pair<std::string, std::string>>;

struct JobTicket {
    InstalledPrinter printer;
    std::string title;
    JobOptions options;
    /// Each step of the spooler may take so long.
    std::chrono::milliseconds patience{10'000};
};

/// Takes the bytes of a PDF document while it is made; holds few of them at a time. The job is begun with
/// the first byte. A job that is dropped before it is finished is cancelled: nothing of it is printed.
class Job : public ByteSink {
public:
    explicit Job(JobTicket ticket);
    ~Job() override;
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;

    /// Raises Device, with the spooler's words, where the spooler refuses or does not answer.
    void Write(std::string_view bytes) override;
    /// Returns when the spooler has the job whole; raises Device where it has not, and the job is cancelled.
    void Finish();

private:
    class Line;

    void Begin();
    void Send(std::string chunk, bool last);
    void Cancel() noexcept;
    [[noreturn]] void Fail(const std::string& words);

    JobTicket mTicket;
    std::string mBuffer;
    std::shared_ptr<Line> mLine; ///< shared with the thread that talks to the spooler
    bool mFinished = false;
};

} // namespace qbrpt::cups
