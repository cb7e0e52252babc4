// SQLite's result codes as failures of the house.
#pragma once

#include "base/failure.h"

#include <sqlite3.h>

#include <string>
#include <string_view>

namespace qbrpt::database {

/// Subjects of sentences. The database behind a handle bears the name of its file, where it has one; of a
/// long statement only the head is shown.
[[nodiscard]] std::string DatabaseWords(std::string_view name);
[[nodiscard]] std::string DatabaseWords(sqlite3* handle);
[[nodiscard]] std::string StatementWords(std::string_view source);

/// What went wrong with a database as a whole, with the engine's own reason. `database` is the subject.
[[nodiscard]] Failure DatabaseFailure(sqlite3* handle, int code, const std::string& database);

/// What went wrong with a statement on `handle`, with the engine's own reason. The statement is the subject,
/// but where the fault lies in the file, that is. `source` is empty for a question of our own.
[[nodiscard]] Failure StatementFailure(sqlite3* handle, int code, std::string_view source);

} // namespace qbrpt::database
