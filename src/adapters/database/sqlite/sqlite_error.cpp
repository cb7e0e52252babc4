#include "adapters/database/sqlite/sqlite_error.h"

#include "base/utf8.h"

namespace qbrpt::database {

namespace {

struct Meaning {
    FailureNumber number;
    bool ofFile; ///< whichever statement met it
    const char* words;
};

Meaning MeaningOf(int code) {
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {FailureNumber::Locked, true,
                "cannot be reached: another program holds it locked. Try again when that has finished."};
    case SQLITE_INTERRUPT:
        return {FailureNumber::Cancelled, false, "was stopped."};
    case SQLITE_NOTADB:
        return {FailureNumber::NotADatabase, true,
                "cannot be used: the file is no SQLite database, or it is encrypted."};
    case SQLITE_CORRUPT:
        return {FailureNumber::NotADatabase, true,
                "is damaged. Restore it from a copy, or recover its rows with the .recover command of the "
                "sqlite3 shell."};
    case SQLITE_READONLY:
        return {FailureNumber::FileAccess, true, "cannot be written: it may only be read."};
    case SQLITE_FULL:
        return {FailureNumber::FileAccess, true, "cannot be written: the disk is full."};
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return {FailureNumber::FileAccess, true, "cannot be used: a file cannot be read or written."};
    case SQLITE_AUTH:
        return {FailureNumber::FileAccess, false, "was not allowed."};
    default:
        return {FailureNumber::DatabaseEngine, false, "was refused by the database engine."};
    }
}

Failure Said(sqlite3* handle, int code, const std::string& subject, const Meaning& meaning) {
    // The handle's own message may belong to a later call; then the code's general words are true at least.
    const bool current = handle != nullptr && (sqlite3_errcode(handle) & 0xFF) == (code & 0xFF);
    const char* reason = current ? sqlite3_errmsg(handle) : sqlite3_errstr(code);
    return {meaning.number, subject + " " + meaning.words + " (SQLite: " + ValidUtf8(reason) + ")"};
}

} // namespace

std::string DatabaseWords(std::string_view name) {
    return name.empty() ? "The database" : "The database \"" + std::string(name) + "\"";
}

std::string DatabaseWords(sqlite3* handle) {
    const char* file = sqlite3_db_filename(handle, "main");
    return DatabaseWords(file != nullptr ? ValidUtf8(file) : std::string());
}

std::string StatementWords(std::string_view source) {
    constexpr std::size_t shown = 300;
    const std::string_view head = FirstCharacters(source, shown);
    return "The statement \"" + ValidUtf8(head) + (head.size() < source.size() ? "...\"" : "\"");
}

Failure DatabaseFailure(sqlite3* handle, int code, const std::string& database) {
    return Said(handle, code, database, MeaningOf(code));
}

Failure StatementFailure(sqlite3* handle, int code, std::string_view source) {
    const Meaning meaning = MeaningOf(code);
    if (meaning.ofFile) return Said(handle, code, DatabaseWords(handle), meaning);
    if (!source.empty()) return Said(handle, code, StatementWords(source), meaning);
    return Said(handle, code, "Access to t" + DatabaseWords(handle).substr(1), meaning);
}

} // namespace qbrpt::database
