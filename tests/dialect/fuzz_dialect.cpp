#include "dialect/fuzz_dialect.h"

#include "base/failure.h"
#include "dialect/cafe_database.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace qbrpt::dialect;

SmallDatabase& Cafe() {
    static SmallDatabase database;
    static const bool filled = [] {
        FillCafe(database);
        database.Native(
            "CREATE TABLE t (id INTEGER PRIMARY KEY, name TEXT, n REAL, flag BOOLEAN, day DATETIME, any)");
        database.Save("lastOnes", "SELECT id, name FROM t WHERE id > 2 ORDER BY id DESC;");
        database.Save("loop", "SELECT * FROM loop");
        return true;
    }();
    (void)filled;
    return database;
}

// Limits of the engine itself, which its own words tell well enough.
bool IsEngineLimit(std::string_view words) {
    for (const std::string_view limit : {"parser stack overflow", "Expression tree is too large", "too many",
                                         "at most 64 tables", "string or blob too big", "integer overflow"}) {
        if (words.find(limit) != std::string_view::npos) return true;
    }
    return false;
}

} // namespace

int FuzzDialect(const std::uint8_t* bytes, std::size_t size) {
    const std::string statement(reinterpret_cast<const char*>(bytes), size);
    Translation translation;
    try {
        translation = TranslateForSqlite(statement, Cafe());
    } catch (const qbrpt::Failure&) {
        return 0;
    }
    sqlite3_stmt* prepared = nullptr;
    const int result = sqlite3_prepare_v2(Cafe().Handle(), translation.sql.c_str(), -1, &prepared, nullptr);
    const int columns = result == SQLITE_OK ? sqlite3_column_count(prepared) : 0;
    sqlite3_finalize(prepared);
    const std::string words = sqlite3_errmsg(Cafe().Handle());
    const bool wrongColumns = result == SQLITE_OK && columns != static_cast<int>(translation.columns.size());
    if ((result != SQLITE_OK && !IsEngineLimit(words)) || wrongColumns) {
        std::fprintf(stderr, "The engine refuses what was made of a statement: %s\n%s\n%s\n", words.c_str(),
                     statement.c_str(), translation.sql.c_str());
        std::abort();
    }
    return 0;
}
