#include "adapters/database/sqlite/sqlite_error.h"

#include "base/utf8.h"

namespace qbrpt::database {

namespace {

struct Meaning {
    FailureNumber number;
    const char* words;
};

Meaning MeaningOf(int code) {
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {
            FailureNumber::Locked,
            "cannot be reached: another program holds the database locked. Try again when it has finished."};
    case SQLITE_INTERRUPT:
        return {FailureNumber::Cancelled, "was stopped."};
    case SQLITE_NOTADB:
        return {FailureNumber::NotADatabase,
                "cannot be used: the file is no SQLite database, or it is encrypted."};
    case SQLITE_CORRUPT:
        return {FailureNumber::NotADatabase,
                "cannot be used: the database file is damaged. Restore it from a copy, or recover its rows "
                "with the .recover command of the sqlite3 shell."};
    case SQLITE_READONLY:
        return {FailureNumber::FileAccess, "cannot be carried out: the database may only be read."};
    case SQLITE_FULL:
        return {FailureNumber::FileAccess, "cannot be carried out: the disk is full."};
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return {FailureNumber::FileAccess, "cannot be carried out: a file cannot be read or written."};
    default:
        return {FailureNumber::DatabaseEngine, "was refused by the database engine."};
    }
}

} // namespace

Failure SqliteFailure(sqlite3* handle, int code, const std::string& what) {
    const Meaning meaning = MeaningOf(code);
    // The handle's own message may belong to a later call; then the code's general words are true at least.
    const bool current = handle != nullptr && (sqlite3_errcode(handle) & 0xFF) == (code & 0xFF);
    const char* reason = current ? sqlite3_errmsg(handle) : sqlite3_errstr(code);
    return {meaning.number, what + " " + meaning.words + " (SQLite: " + ValidUtf8(reason) + ")"};
}

} // namespace qbrpt::database
