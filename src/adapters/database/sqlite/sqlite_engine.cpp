#include "adapters/database/sqlite/sqlite_engine.h"

#include "adapters/database/driven_database.h"
#include "adapters/database/names.h"
#include "adapters/database/sqlite/sqlite_connection.h"
#include "adapters/database/sqlite/sqlite_open.h"
#include "base/failure.h"

#include <array>

namespace qbrpt {

namespace {

bool BeginsWith(std::string_view text, std::string_view start) {
    return text.size() >= start.size() && database::SameName(text.substr(0, start.size()), start);
}

void CheckConnect(const std::string& connect) {
    constexpr std::array<std::string_view, 5> servers{"postgresql://", "postgres://", "mariadb://",
                                                      "mysql://", "ODBC;"};
    const std::string_view text = database::Trimmed(connect);
    if (text.empty() || text == ";") return;
    for (const std::string_view server : servers)
        if (BeginsWith(text, server))
            throw Failure(FailureNumber::NotThereYet,
                          "Database servers (" + std::string(server) +
                              "...) cannot be opened yet. Leave the connect text empty "
                              "and name a SQLite file.");
    // The text itself may hold a password and is not repeated.
    throw Failure(FailureNumber::InvalidArgument,
                  "The connect text is of no known kind. Leave it empty and name a SQLite file.");
}

class SqliteEngine final : public DAO::DBEngine {
    Ref<DAO::Database> DoOpenDatabase(const std::string& name, bool exclusive, bool readOnly,
                                      const std::string& connect) override {
        CheckConnect(connect);
        return database::MakeDatabase(std::make_shared<database::SqliteConnection>(
            database::OpenSqliteFile(name, exclusive, readOnly)));
    }
};

} // namespace

Ref<DAO::DBEngine> MakeSqliteEngine() {
    return std::make_shared<SqliteEngine>();
}

Ref<DAO::Database> WrapSqliteHandle(sqlite3* handle) {
    if (handle == nullptr) return nullptr;
    return database::MakeDatabase(std::make_shared<database::SqliteConnection>(handle));
}

} // namespace qbrpt
