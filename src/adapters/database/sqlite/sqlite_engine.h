// The database engine over SQLite.
#pragma once

#include "platform/DAO.h"

struct sqlite3;

namespace qbrpt {

/// The engine that opens SQLite files. A connect text that names a server is refused as not there yet.
[[nodiscard]] Ref<DAO::DBEngine> MakeSqliteEngine();

/// A database over a host's own open handle. The handle is not closed, and must stay open as long as the
/// database is in use; it gets our functions and collation, and no other change. Its record sets hold
/// no statements, so that the host may close it at any time after. Null gives an empty reference.
[[nodiscard]] Ref<DAO::Database> WrapSqliteHandle(sqlite3* handle);

} // namespace qbrpt
