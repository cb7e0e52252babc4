// One prepared statement of SQLite.
#pragma once

#include "adapters/database/driver.h"
#include "adapters/database/sqlite/sqlite_functions.h"

#include <sqlite3.h>

#include <memory>
#include <string>

namespace qbrpt::database {

class SqliteStatement final : public Statement {
public:
    /// Prepares `sql`, which is one statement. `source` is what the caller wrote, for messages.
    SqliteStatement(sqlite3* handle, const std::string& sql, std::string_view source);

    void Bind(std::size_t index, const Value& value) override;
    [[nodiscard]] bool Step(RowView& row) override;
    void Run() override;
    [[nodiscard]] bool ReadOnly() const override;
    [[nodiscard]] std::string Origin(std::size_t index) const override;

private:
    struct Finalizer {
        void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
    };

    [[nodiscard]] bool StepOnce();
    [[noreturn]] void Fail(int code);

    sqlite3* mHandle;
    std::unique_ptr<sqlite3_stmt, Finalizer> mStatement;
    std::string mSource;
    FunctionRun mFunctions;
};

} // namespace qbrpt::database
