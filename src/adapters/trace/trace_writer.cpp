#include "adapters/trace/trace_writer.h"

#include "adapters/files/database_file.h"
#include "adapters/trace/trace_events.h"

#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>

namespace qbrpt {

TraceWriter::TraceWriter(const std::string& file) : mName(file) {
    if (!HoldsDatabase(file)) mFile.open(file, std::ios::binary | std::ios::out | std::ios::trunc);
    if (!mFile.is_open()) Warn();
}

void TraceWriter::Warn() noexcept {
    mWarned = true;
    try {
        std::cerr << "qbrpt: the trace \"" << mName << "\" cannot be written; the run goes on without it.\n";
    } catch (const std::exception&) { // a standard error that throws has nobody behind it
    }
}

void TraceWriter::WriteLine(const std::string& line) noexcept {
    if (mWarned) return;
    try {
        mFile << line << '\n' << std::flush;
        if (!mFile) Warn();
    } catch (const std::exception&) {
        Warn();
    }
}

void TraceWriter::Called(const PortCall& call) {
    if (const std::optional<std::string> line = EventOfCall(call)) WriteLine(*line);
}

void TraceWriter::Answered(const PortCall& call, const Value& answer) noexcept {
    try {
        if (const std::optional<std::string> line = EventOfAnswer(call, answer)) WriteLine(*line);
    } catch (const std::exception&) {
        Warn(); // out of memory: nothing can be written down any more
    }
}

void TraceWriter::MemberCalled(std::string_view member, std::span<const Value> arguments) noexcept {
    try {
        WriteLine(EventOfMember(member, arguments));
    } catch (const std::exception&) {
        Warn();
    }
}

std::shared_ptr<PortObserver> TraceFromSettings() {
    const char* file = std::getenv("QBRPT_TRACE");
    if (file == nullptr || *file == '\0') return nullptr;
    return std::make_shared<TraceWriter>(file);
}

} // namespace qbrpt
