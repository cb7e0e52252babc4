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

double MegabytesOf(const std::string& field) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.starts_with(field)) return std::stod(line.substr(field.size())) / 1024;
    return 0;
}

} // namespace

Elapsed TimeNow() {
    return {SecondsOf(CLOCK_PROCESS_CPUTIME_ID), SecondsOf(CLOCK_MONOTONIC)};
}

double PeakMegabytes() {
    return MegabytesOf("VmHWM:");
}

double MegabytesNow() {
    return MegabytesOf("VmRSS:");
}

} // namespace qbrpt::bench
