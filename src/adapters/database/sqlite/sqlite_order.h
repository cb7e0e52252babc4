// The order of text, as SQLite asks for it.
#pragma once

#include <sqlite3.h>

namespace qbrpt::database {

/// Gives the handle the collation, and the function of keys, that emitted statements name. Raises
/// FailureNumber::DatabaseEngine where the rules of the order are not installed.
void RegisterTextOrder(sqlite3* handle);

/// Raises what SQLite answered to a registration. That ours is there already, and a statement of the host is
/// using it, is no failure.
void CheckRegistered(sqlite3* handle, int code);

} // namespace qbrpt::database
