// Other programs, as tests run them.
#pragma once

#include "tools/temp_folder.h"

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

namespace qbrpt::test {

struct ProgramResult {
    int status = -1; ///< exit status; 128 + signal for a program that a signal ended
    std::string out;
    std::string err;
};

/// A running program, found by the path; its standard input is empty. Killed with the object.
class ChildProcess {
public:
    using Environment = std::map<std::string, std::string>;

    /// `environment` adds to, and an empty value removes from, the environment of the test.
    explicit ChildProcess(std::vector<std::string> command, const Environment& environment = {},
                          const std::string& folder = {});
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    [[nodiscard]] pid_t Id() const { return mProcess; }
    void Signal(int number) const;
    /// What it has written to standard output so far.
    [[nodiscard]] std::string OutSoFar() const;
    [[nodiscard]] std::string ErrSoFar() const;
    [[nodiscard]] bool Running();
    /// Waits for its end. A program that takes longer than four minutes is killed and told of in `err`.
    ProgramResult Wait();

private:
    bool Reap(bool block);

    TempFolder mFolder;
    pid_t mProcess = -1;
    int mStatus = -1;
    bool mEnded = false;
};

/// Runs a program to its end.
ProgramResult RunProgram(std::vector<std::string> command, const ChildProcess::Environment& environment = {},
                         const std::string& folder = {});

} // namespace qbrpt::test
