// A session with a SQLite database: one of our own, or over a host's open handle.
#pragma once

#include "adapters/database/driver.h"
#include "adapters/database/sqlite/sqlite_schema.h"
#include "adapters/database/sqlite/unchanging_file.h"

#include <sqlite3.h>

#include <memory>

namespace qbrpt::database {

struct SqliteCloser {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};
using SqliteHandle = std::unique_ptr<sqlite3, SqliteCloser>;

class SqliteConnection final : public Connection {
public:
    /// Over a handle of our own, closed at the end.
    explicit SqliteConnection(SqliteHandle handle);
    /// Over a host's handle, which must stay open longer than this. It gets our functions and keeps them;
    /// nothing else about it is changed.
    explicit SqliteConnection(sqlite3* hostHandle);
    ~SqliteConnection() override;

    [[nodiscard]] dialect::Translation Translate(std::string_view statement) override;
    [[nodiscard]] std::unique_ptr<Statement> Prepare(const std::string& sql,
                                                     std::string_view source) override;
    [[nodiscard]] std::optional<std::string> SavedQuery(std::string_view name) override;
    [[nodiscard]] bool HasTable(std::string_view name) override;
    [[nodiscard]] std::int64_t RowsWritten() override;
    [[nodiscard]] std::unique_ptr<Writing> BeginWriting() override;
    void BeginReading() override;
    void EndReading() noexcept override;

private:
    SqliteHandle mOwn;
    sqlite3* mHandle;
    SqliteSchema mSchema;
    UnchangingFile mFile;
    bool mReading = false; ///< inside a transaction that BeginReading began
};

} // namespace qbrpt::database
