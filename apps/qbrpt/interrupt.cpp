#include "interrupt.h"

#include "adapters/database/cancel.h"

#include <signal.h> // NOLINT(modernize-deprecated-headers): sigaction is not in <csignal>

#include <atomic>

namespace qbrpt::cli {

namespace {

std::atomic<bool> cancelFlag{false};
std::atomic<int> cameBy{0};
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free,
              "a signal handler sets these");

void Raise(int signal) {
    cameBy = signal;
    cancelFlag = true;
}

} // namespace

void WatchInterrupts() {
    database::SetCancelFlag(&cancelFlag);
    struct sigaction action {};
    action.sa_handler = Raise;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction before {};
        // A job that was started to outlive its terminal keeps ignoring what it was told to ignore.
        if (::sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_IGN) continue;
        ::sigaction(signal, &action, nullptr);
    }
    // A reader that has gone is a failure to write, with words, not a silent end.
    ::signal(SIGPIPE, SIG_IGN);
}

void ForgetInterrupts() {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction now {};
        if (::sigaction(signal, nullptr, &now) == 0 && now.sa_handler == Raise) ::signal(signal, SIG_DFL);
    }
}

int InterruptSignal() {
    return cameBy;
}

void StopIfInterrupted() {
    database::StopIfCancelled();
}

void InterruptObserver::Called(const PortCall& call) {
    if (call.port.starts_with("DAO.") || call.port.starts_with("CrystalRuntime.")) StopIfInterrupted();
}

void InterruptibleSink::Write(std::string_view bytes) {
    StopIfInterrupted();
    mSink.Write(bytes);
}

} // namespace qbrpt::cli
