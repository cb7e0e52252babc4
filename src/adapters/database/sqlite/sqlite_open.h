// Opening a SQLite file with a clear word for everything that may be wrong with it.
#pragma once

#include "adapters/database/sqlite/sqlite_connection.h"

#include <string>

namespace qbrpt::database {

/// Opens an existing file; never makes one, and leaves its journal mode as it is. Raises FileNotFound,
/// FileAccess, NotADatabase or Locked.
[[nodiscard]] SqliteHandle OpenSqliteFile(const std::string& name, bool exclusive, bool readOnly);

} // namespace qbrpt::database
