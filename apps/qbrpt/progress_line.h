// One line on the terminal that tells how far long work has come.
#pragma once

#include <chrono>
#include <string>

namespace qbrpt::cli {

/// Shows nothing where standard error is no terminal. The line is wiped away at the end.
class ProgressLine {
public:
    ProgressLine();
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    /// Shows `text`, but not more often than an eye can follow.
    void Show(const std::string& text);
    /// Shows `text` whatever was shown a moment ago: for the beginning of a step of unknown length.
    void Begin(const std::string& text);
    /// Makes room for other words on standard error.
    void Wipe();

private:
    using Clock = std::chrono::steady_clock;

    bool mTerminal;
    bool mShown = false;
    Clock::time_point mNext;
};

} // namespace qbrpt::cli
