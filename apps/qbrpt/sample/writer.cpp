#include "sample/writer.h"

#include "base/failure.h"

namespace qbrpt::sample {

Writer::Writer(const std::string& path) {
    const int code = sqlite3_open_v2(
        path.c_str(), &mHandle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX, nullptr);
    try {
        if (code != SQLITE_OK) Fail(code);
        Run("PRAGMA journal_mode = OFF");
        Run("PRAGMA synchronous = OFF");
        Run("PRAGMA locking_mode = EXCLUSIVE");
        Run("PRAGMA cache_size = -65536");
        Run("PRAGMA application_id = " + std::to_string(SampleMark));
        Run("BEGIN");
    } catch (...) {
        sqlite3_close_v2(mHandle);
        throw;
    }
}

Writer::~Writer() {
    sqlite3_close_v2(mHandle);
}

void Writer::Run(std::string_view sql) {
    const int code = sqlite3_exec(mHandle, std::string(sql).c_str(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) Fail(code);
}

void Writer::Finish() {
    Run("COMMIT");
    Run("PRAGMA optimize");
    Run("PRAGMA synchronous = FULL");
    Run("PRAGMA locking_mode = NORMAL");
    Run("PRAGMA journal_mode = WAL");
}

void Writer::Fail(int code) const {
    const char* reason = mHandle != nullptr ? sqlite3_errmsg(mHandle) : sqlite3_errstr(code);
    const int kind = code & 0xFF;
    const bool disk =
        kind == SQLITE_FULL || kind == SQLITE_IOERR || kind == SQLITE_CANTOPEN || kind == SQLITE_READONLY;
    throw Failure(disk ? FailureNumber::FileAccess : FailureNumber::DatabaseEngine,
                  std::string("The sample database cannot be written: ") + reason + ".");
}

Inserter::Inserter(Writer& writer, std::string_view table, int columns) : mWriter(writer) {
    std::string sql = "INSERT INTO " + std::string(table) + " VALUES(";
    for (int i = 0; i < columns; ++i)
        sql += i == 0 ? "?" : ",?";
    sql += ")";
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v2(writer.Handle(), sql.c_str(), -1, &statement, nullptr);
    mStatement.reset(statement);
    if (code != SQLITE_OK) mWriter.Fail(code);
}

void Inserter::Bind(int index, std::nullopt_t) {
    sqlite3_bind_null(mStatement.get(), index);
}

void Inserter::Bind(int index, bool value) {
    sqlite3_bind_int(mStatement.get(), index, value ? 1 : 0);
}

void Inserter::Bind(int index, int value) {
    sqlite3_bind_int(mStatement.get(), index, value);
}

void Inserter::Bind(int index, std::int64_t value) {
    sqlite3_bind_int64(mStatement.get(), index, value);
}

void Inserter::Bind(int index, double value) {
    sqlite3_bind_double(mStatement.get(), index, value);
}

void Inserter::Bind(int index, std::string_view value) {
    sqlite3_bind_text64(mStatement.get(), index, value.data(), value.size(), SQLITE_STATIC, SQLITE_UTF8);
}

void Inserter::Step() {
    const int code = sqlite3_step(mStatement.get());
    if (code != SQLITE_DONE) mWriter.Fail(code);
    sqlite3_reset(mStatement.get());
}

} // namespace qbrpt::sample
