#include "progress_line.h"

#include <unistd.h>

#include <iostream>

namespace qbrpt::cli {

namespace {
constexpr std::chrono::milliseconds Patience{300};
constexpr std::chrono::milliseconds Interval{100};
constexpr const char* WipeLine = "\r\033[K";
} // namespace

ProgressLine::ProgressLine() : mTerminal(::isatty(STDERR_FILENO) == 1), mNext(Clock::now() + Patience) {}

ProgressLine::~ProgressLine() {
    if (mShown) std::cerr << WipeLine << std::flush;
}

void ProgressLine::Show(const std::string& text) {
    if (!mTerminal || Clock::now() < mNext) return;
    mNext = Clock::now() + Interval;
    mShown = true;
    std::cerr << WipeLine << text << std::flush;
}

} // namespace qbrpt::cli
