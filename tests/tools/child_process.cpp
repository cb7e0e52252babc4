#include "tools/child_process.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstring>
#include <stdexcept>
#include <thread>

namespace qbrpt::test {

namespace {

constexpr int NotStarted = 127;
constexpr std::chrono::seconds LongestRun{240};

std::vector<std::string> EnvironmentWith(const ChildProcess::Environment& changes) {
    std::vector<std::string> lines;
    for (char** line = environ; *line != nullptr; ++line) {
        const std::string text = *line;
        if (!changes.contains(text.substr(0, text.find('=')))) lines.push_back(text);
    }
    for (const auto& [name, value] : changes)
        if (!value.empty()) lines.push_back(name + "=" + value);
    return lines;
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

void Redirect(const char* file, int flags, int handle) {
    const int opened = ::open(file, flags, 0600);
    if (opened >= 0) ::dup2(opened, handle);
}

} // namespace

ChildProcess::ChildProcess(std::vector<std::string> command, const Environment& environment,
                           const std::string& folder) {
    std::vector<std::string> lines = EnvironmentWith(environment);
    const std::vector<char*> arguments = Pointers(command);
    const std::vector<char*> settings = Pointers(lines);
    const std::string out = (mFolder / "out").string();
    const std::string err = (mFolder / "err").string();
    mProcess = ::fork();
    if (mProcess < 0) throw std::runtime_error("fork failed");
    if (mProcess == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL); // a test that is killed leaves nothing running
        Redirect("/dev/null", O_RDONLY, STDIN_FILENO);
        Redirect(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, STDOUT_FILENO);
        Redirect(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, STDERR_FILENO);
        if (folder.empty() || ::chdir(folder.c_str()) == 0)
            ::execvpe(arguments[0], arguments.data(), settings.data());
        ::_exit(NotStarted);
    }
}

ChildProcess::~ChildProcess() {
    if (mEnded) return;
    ::kill(mProcess, SIGKILL);
    Reap(true);
}

void ChildProcess::Signal(int number) const {
    if (!mEnded) ::kill(mProcess, number);
}

std::string ChildProcess::OutSoFar() const {
    return ContentOf(mFolder / "out");
}

std::string ChildProcess::ErrSoFar() const {
    return ContentOf(mFolder / "err");
}

bool ChildProcess::Reap(bool block) {
    if (mEnded) return true;
    int status = 0;
    if (::waitpid(mProcess, &status, block ? 0 : WNOHANG) != mProcess) return false;
    mStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    mEnded = true;
    return true;
}

bool ChildProcess::Running() {
    return !Reap(false);
}

ProgramResult ChildProcess::Wait() {
    const auto until = std::chrono::steady_clock::now() + LongestRun;
    std::string tooLong;
    while (Running()) {
        if (std::chrono::steady_clock::now() > until) {
            tooLong = "\n[killed: it did not end]";
            ::kill(mProcess, SIGKILL);
            Reap(true);
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return {mStatus, OutSoFar(), ErrSoFar() + tooLong};
}

ProgramResult RunProgram(std::vector<std::string> command, const ChildProcess::Environment& environment,
                         const std::string& folder) {
    return ChildProcess(std::move(command), environment, folder).Wait();
}

} // namespace qbrpt::test
