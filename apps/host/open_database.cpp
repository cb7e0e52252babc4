#include "open_database.h"

#include <sqlite3.h>

namespace cafe {

namespace {

struct CloseConnection {
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
};

/// In this order: the database goes before the connection that it works on.
struct Opened {
    std::unique_ptr<sqlite3, CloseConnection> connection;
    std::shared_ptr<qbrpt::DAO::Database> database;
};

} // namespace

std::shared_ptr<qbrpt::DAO::Database> OpenDatabase(const std::string& file) {
    if (file.empty()) return {};
    auto opened = std::make_shared<Opened>();
    sqlite3* connection = nullptr;
    const int result = sqlite3_open_v2(file.c_str(), &connection, SQLITE_OPEN_READWRITE, nullptr);
    opened->connection.reset(connection);
    if (result != SQLITE_OK) throw Fault(file + ": " + sqlite3_errmsg(connection));
    opened->database = qbrpt::DatabaseFromSqliteHandle(connection);
    return {opened, opened->database.get()};
}

} // namespace cafe
