// The command line as a host of the component.
#pragma once

#include "command_line.h"

namespace qbrpt::cli {

/// Exit statuses, as scripts see them. An interrupt gives 128 and its signal.
enum ExitStatus : int {
    ReportMade = 0,
    ErrorShown = 1,
    WrongUseGiven = 2,
    NothingMade = 3,
    Interrupted = 128
};

/// Calls a member on a platform of its own, and returns the exit status.
[[nodiscard]] int RunMember(const MemberCall& call);

/// Makes a sample database, and returns the exit status.
[[nodiscard]] int RunSample(sample::SampleOptions options);

} // namespace qbrpt::cli
