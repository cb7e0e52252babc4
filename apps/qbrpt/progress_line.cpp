#include "progress_line.h"

#include <unistd.h>

#include <iostream>

namespace qbrpt::cli {

namespace {
constexpr std::chrono::milliseconds Interval{100};
constexpr const char* WipeLine = "\r\033[K";
} // namespace

ProgressLine::ProgressLine() : mTerminal(::isatty(STDERR_FILENO) == 1), mNext(Clock::now()) {}

ProgressLine::~ProgressLine() {
    Wipe();
}

void ProgressLine::Wipe() {
    if (mShown) std::cerr << WipeLine << std::flush;
    mShown = false;
}

void ProgressLine::Show(const std::string& text) {
    if (mTerminal && Clock::now() >= mNext) Begin(text);
}

void ProgressLine::Begin(const std::string& text) {
    if (!mTerminal) return;
    mNext = Clock::now() + Interval;
    mShown = true;
    std::cerr << WipeLine << text << std::flush;
}

} // namespace qbrpt::cli
