// One line on the terminal that tells how far long work has come.
#pragma once

#include <chrono>
#include <string>

namespace qbrpt::cli {

/// Shows nothing where standard error is no terminal, and nothing for work that is soon done. The line is
/// wiped away at the end.
class ProgressLine {
public:
    ProgressLine();
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    void Show(const std::string& text);

private:
    using Clock = std::chrono::steady_clock;

    bool mTerminal;
    bool mShown = false;
    Clock::time_point mNext;
};

} // namespace qbrpt::cli
