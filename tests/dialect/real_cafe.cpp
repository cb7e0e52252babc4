#include "dialect/real_cafe.h"

#include "adapters/database/sqlite/sqlite_engine.h"
#include "base/numbers.h"
#include "dialect/cafe_database.h"

#include <sqlite3.h>

#include <stdexcept>

namespace qbrpt::dialect {

namespace {

std::string CellText(const CellView& cell) {
    switch (cell.kind) {
    case ValueKind::Null:
        return "NULL";
    case ValueKind::Boolean:
        return cell.whole != 0 ? "true" : "false";
    case ValueKind::Whole:
        return std::to_string(cell.whole);
    case ValueKind::Text:
        return std::string(cell.text);
    default:
        return RoundTripText(cell.number);
    }
}

} // namespace

RealCafe::RealCafe() {
    sqlite3_open(":memory:", &mHandle);
    const std::string saved =
        std::string("CREATE TABLE saved_query (name TEXT, sql TEXT); INSERT INTO saved_query "
                    "VALUES ('users_income2', '") +
        SupervisorsQuery() + "')";
    for (const char* sql : {CafeScript(), saved.c_str()}) {
        if (sqlite3_exec(mHandle, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(mHandle));
    }
    mDatabase = WrapSqliteHandle(mHandle);
}

RealCafe::~RealCafe() {
    mDatabase.Clear();
    sqlite3_close_v2(mHandle);
}

std::vector<std::string> RealCafe::Rows(const Ref<DAO::Recordset>& set) {
    std::vector<std::string> rows;
    const std::shared_ptr<const RowSource> source = set->Rows();
    const std::unique_ptr<RowCursor> cursor = source->Open();
    for (RowView cells; cursor->Next(cells);) {
        std::string row;
        for (std::size_t i = 0; i < cells.size(); ++i)
            row += (i > 0 ? "|" : "") + CellText(cells[i]);
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace qbrpt::dialect
