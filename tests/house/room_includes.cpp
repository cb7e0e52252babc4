#include "house/room_includes.h"

#include "tools/child_process.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace qbrpt::test {

namespace fs = std::filesystem;

namespace {

// Parts of the standard library that a room may use: no files, no streams to the world, no threads, no
// clocks.
constexpr std::array WhiteList = {
    "algorithm",    "any",   "array",       "bit",        "cassert",          "cctype",        "charconv",
    "climits",      "cmath", "compare",     "concepts",   "cstddef",          "cstdint",       "cstdlib",
    "cstring",      "deque", "exception",   "functional", "initializer_list", "iterator",      "limits",
    "list",         "map",   "memory",      "new",        "numeric",          "optional",      "queue",
    "ranges",       "set",   "span",        "stack",      "stdexcept",        "string",        "string_view",
    "system_error", "tuple", "type_traits", "typeinfo",   "unordered_map",    "unordered_set", "utility",
    "variant",      "vector"};

/// What the compiler reads for `file`, besides the file itself.
std::vector<std::string> DependenciesOf(const fs::path& file, const fs::path& source) {
    const ProgramResult result =
        RunProgram({QBRPT_CXX, "-std=c++20", "-M", "-I" + source.string(), "-x", "c++", file.string()});
    if (result.status != 0) throw std::runtime_error(file.string() + ": " + result.err);
    // "target.o: file header \<newline> header ...", blanks in names as "\ "
    const std::string rule = std::regex_replace(result.out, std::regex(R"(\\\n)"), " ");
    std::vector<std::string> names;
    std::string name;
    for (std::size_t i = rule.find(':') + 1; i <= rule.size(); ++i) {
        const bool escaped = i + 1 < rule.size() && rule[i] == '\\' && rule[i + 1] == ' ';
        if (escaped) {
            name += rule[++i];
        } else if (i == rule.size() || rule[i] == ' ' || rule[i] == '\n') {
            if (!name.empty()) names.push_back(fs::weakly_canonical(name).string());
            name.clear();
        } else {
            name += rule[i];
        }
    }
    std::erase(names, fs::weakly_canonical(file).string());
    return names;
}

} // namespace

const std::vector<RoomRule>& RoomRules() {
    static const std::vector<RoomRule> rules = {
        {"base", {}},
        {"platform", {"base"}},
        {"dialect", {"base"}},
        {"report", {"base"}},
        {"support", {"platform", "base"}},
        {"templates", {"support", "platform", "base"}},
        {"preview", {"templates", "support", "platform", "base"}},
        {"accounts", {"preview", "templates", "support", "platform", "base"}},
        {"service", {"accounts", "preview", "templates", "support", "platform", "base"}},
    };
    return rules;
}

IncludeCheck::IncludeCheck(fs::path source) : mSource(fs::canonical(source)) {
    const TempFolder folder;
    std::string probe;
    for (const char* header : WhiteList)
        probe += "#include <" + std::string{header} + ">\n";
    WriteContent(folder / "white_list.cpp", probe);
    mStandardFiles = DependenciesOf(folder / "white_list.cpp", mSource);
    std::sort(mStandardFiles.begin(), mStandardFiles.end());
}

std::vector<fs::path> IncludeCheck::FilesOf(const RoomRule& rule) const {
    std::vector<fs::path> files;
    if (!fs::exists(mSource / rule.folder)) return files;
    for (const auto& entry : fs::recursive_directory_iterator(mSource / rule.folder))
        if (entry.path().extension() == ".h" || entry.path().extension() == ".cpp")
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

bool IncludeCheck::IsAllowedRoom(const RoomRule& rule, const std::string& headerInSource) const {
    const std::string room = headerInSource.substr(0, headerInSource.find('/'));
    return room == rule.folder ||
           std::find(rule.mayUse.begin(), rule.mayUse.end(), room) != rule.mayUse.end();
}

std::vector<std::string> IncludeCheck::Complaints(const RoomRule& rule,
                                                  const std::vector<fs::path>& files) const {
    std::vector<std::string> complaints;
    for (const fs::path& file : files) {
        CheckLines(rule, file, complaints);
        CheckDependencies(rule, file, complaints);
    }
    return complaints;
}

void IncludeCheck::CheckLines(const RoomRule& rule, const fs::path& file,
                              std::vector<std::string>& complaints) const {
    static const std::regex directive(R"re(\s*#\s*include\s*(<([^>]*)>|"([^"]*)"|.*))re");
    std::ifstream lines(file);
    std::smatch match;
    for (std::string line; std::getline(lines, line);) {
        if (!std::regex_match(line, match, directive)) continue;
        const bool standard =
            std::find(WhiteList.begin(), WhiteList.end(), match[2].str()) != WhiteList.end();
        const bool own =
            match[3].matched && fs::exists(mSource / match[3].str()) && IsAllowedRoom(rule, match[3]);
        if (!standard && !own) complaints.push_back(file.string() + ": includes " + match[1].str());
    }
}

void IncludeCheck::CheckDependencies(const RoomRule& rule, const fs::path& file,
                                     std::vector<std::string>& complaints) const {
    const std::string home = mSource.string() + "/";
    for (const std::string& name : DependenciesOf(file, mSource)) {
        const bool allowed = name.starts_with(home)
                                 ? IsAllowedRoom(rule, name.substr(home.size()))
                                 : std::binary_search(mStandardFiles.begin(), mStandardFiles.end(), name);
        if (!allowed) complaints.push_back(file.string() + ": reads " + name);
    }
}

} // namespace qbrpt::test
