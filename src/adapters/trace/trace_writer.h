// What a support engineer wants to see of a run: one JSON line for each event that matters.
#pragma once

#include "platform/port.h"

#include <fstream>
#include <memory>
#include <string>

namespace qbrpt {

/// Writes events in the order in which they happen, each line whole and at once. Tracing never disturbs
/// the run: a file that cannot be written, or that holds a database, gives one warning on standard error.
class TraceWriter : public PortObserver {
public:
    explicit TraceWriter(const std::string& file);

    void Called(const PortCall& call) override;
    void Answered(const PortCall& call, const Value& answer) noexcept override;
    void MemberCalled(std::string_view member, std::span<const Value> arguments) noexcept override;

private:
    void WriteLine(const std::string& line) noexcept;
    void Warn() noexcept;

    std::string mName;
    std::ofstream mFile;
    bool mWarned = false;
};

/// The trace that QBRPT_TRACE names, or null.
[[nodiscard]] std::shared_ptr<PortObserver> TraceFromSettings();

} // namespace qbrpt
