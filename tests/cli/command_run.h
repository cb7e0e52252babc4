// The built command, as a script runs it.
#pragma once

#include "tools/child_process.h"

#include <filesystem>
#include <string>
#include <vector>

namespace qbrpt::test {

inline std::vector<std::string> CommandOf(std::vector<std::string> words) {
    words.insert(words.begin(), QBRPT_COMMAND);
    return words;
}

inline ProgramResult Qbrpt(const std::vector<std::string>& words, ChildProcess::Environment settings = {}) {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        settings.try_emplace(variable, "");
    return RunProgram(CommandOf(words), settings);
}

/// A folder with a small café's database in it, whose pages go there too.
class Cafe {
public:
    explicit Cafe(int days = 4, int sessionsPerDay = 6) {
        const ProgramResult made = Qbrpt({"sample", Database(), "--days", std::to_string(days),
                                          "--sessions-per-day", std::to_string(sessionsPerDay)});
        if (made.status != 0) throw std::runtime_error("no sample: " + made.err);
    }

    [[nodiscard]] std::string Database() const { return (mFolder / "café 1.db").string(); }
    [[nodiscard]] std::string File(const std::string& name) const { return (mFolder / name).string(); }
    [[nodiscard]] std::vector<std::string> Names() const { return mFolder.Names(); }
    [[nodiscard]] bool Has(const std::string& name) const { return std::filesystem::exists(mFolder / name); }

    /// The answer of the database's own shell.
    [[nodiscard]] std::string Ask(const std::string& statement) const {
        const ProgramResult answer = RunProgram({"sqlite3", Database(), statement});
        return answer.status == 0 ? answer.out.substr(0, answer.out.size() - 1) : answer.err;
    }
    void Change(const std::string& statement) const {
        if (const std::string answer = RunProgram({"sqlite3", Database(), statement}).err; !answer.empty())
            throw std::runtime_error(answer);
    }

    /// PrintIncome of all days at once, with further words.
    [[nodiscard]] ProgramResult Income(std::vector<std::string> words,
                                       const ChildProcess::Environment& settings = {}) const {
        words.insert(words.begin(), {"PrintIncome", "0", "0", "0", "0", "--db", Database()});
        ChildProcess::Environment all = settings;
        all.try_emplace("QBRPT_PDF_FOLDER", File("pages"));
        return Qbrpt(words, all);
    }

private:
    TempFolder mFolder;
};

} // namespace qbrpt::test
