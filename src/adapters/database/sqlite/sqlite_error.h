// SQLite's result codes as failures of the house.
#pragma once

#include "base/failure.h"

#include <sqlite3.h>

#include <string>

namespace qbrpt::database {

/// What went wrong on `handle`, with the engine's own reason. `what` begins the sentence: "The database ...",
/// "The statement ...".
[[nodiscard]] Failure SqliteFailure(sqlite3* handle, int code, const std::string& what);

} // namespace qbrpt::database
