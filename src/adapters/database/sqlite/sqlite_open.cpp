#include "adapters/database/sqlite/sqlite_open.h"

#include "adapters/database/sqlite/sqlite_error.h"
#include "adapters/files/database_file.h"
#include "base/failure.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace qbrpt::database {

namespace {

constexpr int BusyMilliseconds = 5000;
constexpr std::size_t HeaderSize = 100;

// SQLite is given a path that it can read neither as a URI nor as one of its special names. Nothing but a
// plain file is opened: a pipe would be waited for.
std::string PathOf(const std::string& name) {
    if (name.empty()) throw Failure(FailureNumber::FileNotFound, "No database file is named.");
    if (name.find('\0') != std::string::npos)
        throw Failure(FailureNumber::InvalidArgument, "The name of the database file holds a zero byte.");
    struct stat status {};
    if (::stat(name.c_str(), &status) != 0) {
        const int error = errno;
        if (error == ENOENT || error == ENOTDIR)
            throw Failure(FailureNumber::FileNotFound,
                          DatabaseWords(name) + " does not exist. Check the file name.");
        throw Failure(FailureNumber::FileAccess, DatabaseWords(name) + " cannot be reached: " +
                                                     std::generic_category().message(error) + ".");
    }
    if (S_ISDIR(status.st_mode))
        throw Failure(FailureNumber::NotADatabase,
                      DatabaseWords(name) + " is a folder. Name the file inside it.");
    if (!S_ISREG(status.st_mode))
        throw Failure(FailureNumber::NotADatabase, DatabaseWords(name) + " is no plain file.");
    return std::filesystem::absolute(name).string();
}

SqliteHandle Open(const std::string& name, const std::string& path, int flags) {
    sqlite3* made = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &made, flags | SQLITE_OPEN_NOMUTEX, nullptr);
    SqliteHandle handle(made);
    if (code == SQLITE_OK) return handle;
    const int error = made != nullptr ? sqlite3_system_errno(made) : 0;
    if (error != 0)
        throw Failure(FailureNumber::FileAccess,
                      DatabaseWords(name) + " cannot be opened: " + std::generic_category().message(error) +
                          ". The file and its folder must be open to this user.");
    throw DatabaseFailure(made, code, DatabaseWords(name));
}

// The first bytes, read through SQLite: opening and closing the file beside it would drop the locks that
// this process may hold on it through another connection.
std::string HeaderOf(sqlite3* handle) {
    sqlite3_file* file = nullptr;
    std::array<char, HeaderSize> bytes{};
    sqlite3_int64 size = 0;
    if (sqlite3_file_control(handle, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK ||
        file == nullptr || file->pMethods == nullptr || file->pMethods->xFileSize(file, &size) != SQLITE_OK)
        return {};
    const std::size_t wanted = std::min(HeaderSize, static_cast<std::size_t>(size));
    if (file->pMethods->xRead(file, bytes.data(), static_cast<int>(wanted), 0) != SQLITE_OK) return {};
    return {bytes.data(), wanted};
}

void CheckHeader(const std::string& name, const std::string& header) {
    const DatabaseKind kind = KindOfHead(header);
    if (kind == DatabaseKind::Sqlite) return;
    if (header.empty())
        throw Failure(FailureNumber::NotADatabase,
                      DatabaseWords(name) + " is an empty file or cannot be read.");
    if (kind == DatabaseKind::Access)
        throw Failure(FailureNumber::NotADatabase,
                      DatabaseWords(name) +
                          " is a Microsoft Access file, which cannot be read yet. Turn it into a SQLite "
                          "file first.");
    throw Failure(FailureNumber::NotADatabase,
                  DatabaseWords(name) + " is no SQLite database, or it is encrypted.");
}

bool IsWal(const std::string& header) {
    constexpr std::size_t readVersionAt = 19;
    return header.size() > readVersionAt && header[readVersionAt] == 2;
}

// The first read: takes the locks, replays what a crash left, and parses the tables.
void Probe(sqlite3* handle, const std::string& name, bool exclusive) {
    const auto run = [&](const char* sql) {
        const int code = sqlite3_exec(handle, sql, nullptr, nullptr, nullptr);
        if (code != SQLITE_OK) throw DatabaseFailure(handle, code, DatabaseWords(name));
    };
    if (exclusive) {
        run("PRAGMA locking_mode = EXCLUSIVE");
        const bool writable = sqlite3_db_readonly(handle, "main") == 0;
        run(writable ? "BEGIN EXCLUSIVE" : "BEGIN");
        run("SELECT count(*) FROM sqlite_schema");
        run("COMMIT"); // the locks stay
        return;
    }
    run("SELECT count(*) FROM sqlite_schema");
}

void Prepare(sqlite3* handle) {
    sqlite3_extended_result_codes(handle, 1);
    sqlite3_busy_timeout(handle, BusyMilliseconds);
    // A hostile file may not make the engine write to its own tables or call what is not harmless.
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
}

std::string ImmutableUri(const std::string& path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        const bool plain =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '/';
        if (plain)
            uri += c;
        else
            uri.append({'%', digits[byte >> 4U], digits[byte & 0xFU]});
    }
    return uri + "?immutable=1";
}

// A file in WAL mode needs a companion file beside it even for reading. Where the folder takes none, the file
// is whole in itself as long as no log lies beside it, and is read as one that nobody changes.
SqliteHandle OpenInClosedFolder(const std::string& name, const std::string& path) {
    std::error_code none;
    const std::filesystem::path log = path + "-wal";
    if (std::filesystem::exists(log, none) && std::filesystem::file_size(log, none) > 0)
        throw Failure(FailureNumber::FileAccess,
                      DatabaseWords(name) + " has entries waiting in \"" + log.string() +
                          "\", and its folder may not be written by this user. Allow writing there, or copy "
                          "both files elsewhere.");
    SqliteHandle handle = Open(name, ImmutableUri(path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
    Prepare(handle.get());
    Probe(handle.get(), name, false);
    return handle;
}

} // namespace

SqliteHandle OpenSqliteFile(const std::string& name, bool exclusive, bool readOnly) {
    const std::string path = PathOf(name);
    SqliteHandle handle = Open(name, path, readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE);
    const std::string header = HeaderOf(handle.get());
    CheckHeader(name, header);
    Prepare(handle.get());
    try {
        Probe(handle.get(), name, exclusive);
    } catch (const Failure&) {
        const int code = sqlite3_errcode(handle.get()) & 0xFF;
        const bool noCompanion = code == SQLITE_READONLY || code == SQLITE_CANTOPEN;
        if (!exclusive && noCompanion && IsWal(header)) return OpenInClosedFolder(name, path);
        throw;
    }
    return handle;
}

} // namespace qbrpt::database
