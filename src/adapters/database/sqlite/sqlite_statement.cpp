#include "adapters/database/sqlite/sqlite_statement.h"

#include "adapters/database/sqlite/sqlite_error.h"
#include "base/failure.h"

#include <limits>
#include <variant>

namespace qbrpt::database {

namespace {

/// Binds a value to parameter `index`, counted from 1, and gives SQLite's code.
struct Binder {
    sqlite3_stmt* statement;
    int index;
    int operator()(Null) const { return sqlite3_bind_null(statement, index); }
    int operator()(bool value) const { return sqlite3_bind_int(statement, index, value ? 1 : 0); }
    int operator()(std::int64_t value) const { return sqlite3_bind_int64(statement, index, value); }
    int operator()(double value) const { return sqlite3_bind_double(statement, index, value); }
    int operator()(Date value) const { return sqlite3_bind_double(statement, index, value.number); }
    int operator()(const std::string& value) const {
        return sqlite3_bind_text64(statement, index, value.data(), value.size(), SQLITE_TRANSIENT,
                                   SQLITE_UTF8);
    }
};

void FillCell(sqlite3_stmt* statement, int column, CellView& cell) {
    cell = {};
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return;
    case SQLITE_INTEGER:
        cell.kind = ValueKind::Whole;
        cell.whole = sqlite3_column_int64(statement, column);
        cell.number = static_cast<double>(cell.whole);
        return;
    case SQLITE_FLOAT:
        cell.kind = ValueKind::Number;
        cell.number = sqlite3_column_double(statement, column);
        return;
    default:
        break;
    }
    cell.kind = ValueKind::Text;
    // Asked for as text, a file in UTF-16 gives UTF-8 too; a blob must not be taken for one.
    const bool blob = sqlite3_column_type(statement, column) == SQLITE_BLOB;
    const void* bytes =
        blob ? sqlite3_column_blob(statement, column) : sqlite3_column_text(statement, column);
    const auto* text = static_cast<const char*>(bytes);
    if (text != nullptr)
        cell.text = {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

} // namespace

SqliteStatement::SqliteStatement(sqlite3* handle, const std::string& sql, std::string_view source)
    : mHandle(handle), mSource(source) {
    if (sql.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        throw Failure(FailureNumber::InvalidArgument, "The statement is too long.");
    sqlite3_stmt* made = nullptr;
    const int code = sqlite3_prepare_v2(handle, sql.c_str(), static_cast<int>(sql.size()), &made, nullptr);
    mStatement.reset(made);
    if (code != SQLITE_OK) throw StatementFailure(handle, code, source);
    if (made == nullptr) throw Failure(FailureNumber::SyntaxError, "The statement is empty.");
}

void SqliteStatement::Bind(std::size_t index, const Value& value) {
    const int code = std::visit(Binder{mStatement.get(), static_cast<int>(index) + 1}, value);
    if (code != SQLITE_OK && code != SQLITE_RANGE) Fail(code);
}

bool SqliteStatement::StepOnce() {
    const FunctionRun::Scope scope(mFunctions);
    const int code = sqlite3_step(mStatement.get());
    if (code == SQLITE_ROW) return true;
    if (code != SQLITE_DONE) Fail(code);
    return false;
}

bool SqliteStatement::Step(RowView& row) {
    if (!StepOnce()) return false;
    const int columns = sqlite3_column_count(mStatement.get());
    if (row.size() != static_cast<std::size_t>(columns)) row.resize(static_cast<std::size_t>(columns));
    for (int i = 0; i < columns; ++i)
        FillCell(mStatement.get(), i, row[static_cast<std::size_t>(i)]);
    return true;
}

void SqliteStatement::Run() {
    while (StepOnce()) {}
}

bool SqliteStatement::ReadOnly() const {
    return sqlite3_stmt_readonly(mStatement.get()) != 0;
}

std::string SqliteStatement::Origin(std::size_t index) const {
    const int column = static_cast<int>(index);
    const char* table = sqlite3_column_table_name(mStatement.get(), column);
    const char* name = sqlite3_column_origin_name(mStatement.get(), column);
    if (table == nullptr || name == nullptr) return {};
    return std::string(table) + "." + name;
}

void SqliteStatement::Fail(int code) {
    try {
        mFunctions.Rethrow();
    } catch (const Failure& failure) {
        if (mSource.empty()) throw;
        throw Failure(failure.Number(), StatementWords(mSource) + " failed: " + failure.Description());
    }
    throw StatementFailure(mHandle, code, mSource);
}

} // namespace qbrpt::database
