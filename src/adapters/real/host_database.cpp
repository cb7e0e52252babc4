// The way in for hosts that hold their database open themselves.
#include "adapters/database/sqlite/sqlite_engine.h"
#include "service/VantlowCls.h"

namespace qbrpt {

std::shared_ptr<DAO::Database> DatabaseFromSqliteHandle(sqlite3* handle) {
    return WrapSqliteHandle(handle).Shared();
}

} // namespace qbrpt
