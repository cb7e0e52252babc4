// Ctrl+C and its like: work ends at the next safe place.
#pragma once

#include "base/byte_sink.h"
#include "platform/port.h"

namespace qbrpt::cli {

/// From here on an interrupt only raises the cancel flag; a second one ends the process at once.
void WatchInterrupts();

/// From here on an interrupt ends the process at once: a window is open, and only reading is left to do.
void ForgetInterrupts();

/// The signal that asked to stop, or 0.
[[nodiscard]] int InterruptSignal();

/// Makes every call of database and report engine fail once an interrupt has come, so that the command
/// ends by its own way out.
class InterruptObserver : public PortObserver {
public:
    void Called(const PortCall& call) override;
};

/// Raises Failure Cancelled once an interrupt has come.
void StopIfInterrupted();

/// Passes bytes on until an interrupt has come.
class InterruptibleSink : public ByteSink {
public:
    explicit InterruptibleSink(ByteSink& sink) : mSink(sink) {}
    void Write(std::string_view bytes) override;

private:
    ByteSink& mSink;
};

} // namespace qbrpt::cli
