#include "sample/place.h"

#include "base/failure.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

namespace qbrpt::sample {

namespace fs = std::filesystem;

namespace {

std::string Reason(int error) {
    return std::generic_category().message(error);
}

[[noreturn]] void Fail(FailureNumber number, const std::string& file, const std::string& what) {
    throw Failure(number, "\"" + file + "\" " + what);
}

struct Closer {
    void operator()(sqlite3* handle) const { sqlite3_close(handle); }
};

// An earlier database gives up its log first: a log that is left beside another file would be taken for its
// own. Nobody may have it open meanwhile.
void CloseEarlierDatabase(const std::string& file) {
    std::array<char, 16> head{};
    std::ifstream(file, std::ios::binary).read(head.data(), head.size());
    if (std::memcmp(head.data(), "SQLite format 3", head.size()) != 0)
        Fail(FailureNumber::NotADatabase, file,
             "is no SQLite database and is left as it is. Choose another name.");
    sqlite3* opened = nullptr;
    int code = sqlite3_open_v2(fs::absolute(file).c_str(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    const std::unique_ptr<sqlite3, Closer> handle(opened);
    for (const char* sql :
         {"PRAGMA locking_mode = EXCLUSIVE", "BEGIN EXCLUSIVE", "COMMIT", "PRAGMA journal_mode = DELETE"})
        if (code == SQLITE_OK) code = sqlite3_exec(opened, sql, nullptr, nullptr, nullptr);
    if ((code & 0xFF) == SQLITE_BUSY)
        Fail(FailureNumber::Locked, file,
             "is in use by another program. Close that first, or choose another name.");
    if (code != SQLITE_OK)
        Fail(FailureNumber::FileAccess, file,
             std::string("cannot be replaced: ") + sqlite3_errmsg(opened) + ". Choose another name.");
}

void FlushToDisk(const std::string& name, int flags) {
    const int handle = ::open(name.c_str(), flags | O_CLOEXEC);
    if (handle < 0) return;
    ::fsync(handle);
    ::close(handle);
}

} // namespace

Place::Place(const std::string& file) : mFile(file) {
    if (file.empty())
        throw Failure(FailureNumber::InvalidArgument, "No file is named for the sample database.");
    std::error_code none;
    const fs::file_status status = fs::status(file, none);
    if (fs::is_directory(status))
        Fail(FailureNumber::FileAccess, file, "is a folder. Name a file inside it.");
    if (fs::exists(status) && !fs::is_regular_file(status))
        Fail(FailureNumber::FileAccess, file, "is no plain file. Choose another name.");
    fs::path folder = fs::path(file).parent_path();
    if (folder.empty()) folder = ".";
    if (!fs::is_directory(folder, none))
        Fail(FailureNumber::FileNotFound, folder.string(), "is no folder. Make it first, or choose another.");
    if (fs::exists(status)) CloseEarlierDatabase(file);

    mTemporary = file + ".new-XXXXXX";
    const int handle = ::mkostemp(mTemporary.data(), O_CLOEXEC);
    if (handle < 0)
        Fail(FailureNumber::FileAccess, folder.string(), "cannot be written to: " + Reason(errno) + ".");
    // As wide open as any file that the user makes.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(handle, 0666 & ~mask);
    ::close(handle);
}

Place::~Place() {
    if (mTemporary.empty()) return;
    for (const char* companion : {"", "-wal", "-shm", "-journal"})
        ::unlink((mTemporary + companion).c_str());
}

void Place::Take() {
    FlushToDisk(mTemporary, O_RDWR);
    if (::rename(mTemporary.c_str(), mFile.c_str()) != 0)
        Fail(FailureNumber::FileAccess, mFile, "cannot be put in its place: " + Reason(errno) + ".");
    mTemporary.clear();
    const fs::path folder = fs::path(mFile).parent_path();
    FlushToDisk(folder.empty() ? "." : folder.string(), O_RDONLY | O_DIRECTORY);
}

} // namespace qbrpt::sample
