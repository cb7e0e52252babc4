#include "adapters/database/sqlite/sqlite_connection.h"

#include "adapters/database/cancel.h"
#include "adapters/database/sqlite/sqlite_error.h"
#include "adapters/database/sqlite/sqlite_functions.h"
#include "adapters/database/sqlite/sqlite_statement.h"
#include "base/failure.h"

#include <utility>

namespace qbrpt::database {

namespace {

// So many steps of SQLite's machine lie between two looks at the cancel flag: some hundred microseconds.
constexpr int StepsBetweenLooks = 20000;

int LookAtCancelFlag(void*) {
    return CancelRequested() ? 1 : 0;
}

struct WritingWords {
    const char* begin;
    const char* commit;
    const char* undo;
};

// A transaction that only reads at first could find at its first writing that another program has written
// since, so it asks for the right to write at once.
constexpr WritingWords OwnTransaction = {"BEGIN IMMEDIATE", "COMMIT", "ROLLBACK"};
// Where the host has one open, only what happens inside is undone.
constexpr WritingWords PartOfHosts = {"SAVEPOINT \"qb entry\"", "RELEASE \"qb entry\"",
                                      "ROLLBACK TO \"qb entry\"; RELEASE \"qb entry\""};

class SqliteWriting final : public Writing {
public:
    SqliteWriting(sqlite3* handle, const WritingWords& words) : mHandle(handle), mWords(words) {
        SqliteStatement(mHandle, mWords.begin, "").Run();
    }
    ~SqliteWriting() override {
        // The engine itself has undone it after some failures.
        if (!mCommitted && sqlite3_get_autocommit(mHandle) == 0)
            sqlite3_exec(mHandle, mWords.undo, nullptr, nullptr, nullptr);
    }
    SqliteWriting(const SqliteWriting&) = delete;
    SqliteWriting& operator=(const SqliteWriting&) = delete;

    void Commit() override {
        SqliteStatement(mHandle, mWords.commit, "").Run();
        mCommitted = true;
    }

private:
    sqlite3* mHandle;
    const WritingWords& mWords;
    bool mCommitted = false;
};

} // namespace

SqliteConnection::SqliteConnection(SqliteHandle handle)
    : mOwn(std::move(handle)), mHandle(mOwn.get()), mSchema(mHandle), mFile(mHandle) {
    RegisterFunctions(mHandle);
    // A host may have a handler of its own, which could not be put back: its handle is left alone.
    sqlite3_progress_handler(mHandle, StepsBetweenLooks, LookAtCancelFlag, nullptr);
}

SqliteConnection::SqliteConnection(sqlite3* hostHandle)
    : mHandle(hostHandle), mSchema(hostHandle), mFile(hostHandle) {
    RegisterFunctions(mHandle);
}

SqliteConnection::~SqliteConnection() = default;

dialect::Translation SqliteConnection::Translate(std::string_view statement) {
    mSchema.BeginStatement();
    dialect::Translation translation = dialect::TranslateForSqlite(statement, mSchema);
    mSchema.CheckDates(translation.dates);
    return translation;
}

std::unique_ptr<Statement> SqliteConnection::Prepare(const std::string& sql, std::string_view source) {
    return std::make_unique<SqliteStatement>(mHandle, sql, source);
}

std::optional<std::string> SqliteConnection::SavedQuery(std::string_view name) {
    mSchema.BeginStatement();
    return mSchema.SavedQuery(name);
}

bool SqliteConnection::HasTable(std::string_view name) {
    mSchema.BeginStatement();
    return mSchema.FindTable(name) != nullptr;
}

std::int64_t SqliteConnection::RowsWritten() {
    return sqlite3_changes64(mHandle);
}

std::unique_ptr<Writing> SqliteConnection::BeginWriting() {
    const bool free = sqlite3_get_autocommit(mHandle) != 0;
    return std::make_unique<SqliteWriting>(mHandle, free ? OwnTransaction : PartOfHosts);
}

// One SELECT alone is one state already; a transaction makes the look at the tables part of it. On a host's
// handle transactions are the host's business.
void SqliteConnection::BeginReading() {
    mFile.Check();
    if (mOwn == nullptr || sqlite3_get_autocommit(mHandle) == 0) return;
    SqliteStatement(mHandle, "BEGIN", "").Run();
    mReading = true;
}

void SqliteConnection::EndReading() noexcept {
    if (!std::exchange(mReading, false)) return;
    // Nothing was written, so that there is nothing to lose where the end itself fails.
    if (sqlite3_exec(mHandle, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
        sqlite3_exec(mHandle, "ROLLBACK", nullptr, nullptr, nullptr);
}

} // namespace qbrpt::database
