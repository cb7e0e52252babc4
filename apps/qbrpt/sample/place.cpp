#include "sample/place.h"

#include "adapters/files/database_file.h"
#include "base/failure.h"
#include "sample/writer.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
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

/// Whether the head of a SQLite file bears the mark of a sample.
bool IsSample(std::string_view head) {
    constexpr std::size_t markAt = 68; // the application's number, highest byte first
    std::uint32_t mark = 0;
    for (const char byte : head.substr(std::min(markAt, head.size()), sizeof mark))
        mark = mark << 8 | static_cast<unsigned char>(byte);
    return mark == SampleMark;
}

// The name may belong to the books of a café: only a sample gives its place up unasked.
void RefuseOther(const std::string& file, bool overwrite) {
    std::array<char, 72> bytes{};
    std::ifstream stream(file, std::ios::binary);
    stream.read(bytes.data(), bytes.size());
    const std::string_view head(bytes.data(), static_cast<std::size_t>(stream.gcount()));
    if (KindOfHead(head) != DatabaseKind::Sqlite)
        Fail(FailureNumber::NotADatabase, file,
             "is no SQLite database and is left as it is. Choose another name.");
    if (!overwrite && !IsSample(head))
        Fail(
            FailureNumber::FileAccess, file,
            "is a database that is no sample and is left as it is. Choose another name, or say --overwrite.");
}

// An earlier database gives up its log first: a log that is left beside another file would be taken for its
// own. Nobody may have it open meanwhile.
void CloseEarlierDatabase(const std::string& file) {
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

Place::Place(const std::string& file, bool overwrite) : mFile(file) {
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
    if (fs::exists(status) && fs::file_size(file, none) > 0) {
        RefuseOther(file, overwrite);
        CloseEarlierDatabase(file);
    }

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
