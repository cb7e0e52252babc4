#include "stopwatch.h"

#include <time.h>

#include <fstream>
#include <string>

namespace qbrpt::bench {

namespace {

double SecondsOf(clockid_t clock) {
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

} // namespace

Elapsed TimeNow() {
    return {SecondsOf(CLOCK_PROCESS_CPUTIME_ID), SecondsOf(CLOCK_MONOTONIC)};
}

double PeakMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with("VmHWM:")) return std::stod(line.substr(6)) / 1024;
    return 0;
}

} // namespace qbrpt::bench
