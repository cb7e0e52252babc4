#include "sqlite/sqlite_tools.h"

#include "adapters/database/sqlite/sqlite_engine.h"
#include "base/numbers.h"

#include <unistd.h>

#include <stdexcept>

namespace qbrpt::test {

Outsider::Outsider(const std::filesystem::path& file) {
    if (sqlite3_open(file.c_str(), &mHandle) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(mHandle));
}

Outsider::~Outsider() {
    EXPECT_EQ(sqlite3_close(mHandle), SQLITE_OK) << "something of the handle was left open";
}

void Outsider::Run(const std::string& sql) {
    if (sqlite3_exec(mHandle, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sql + ": " + sqlite3_errmsg(mHandle));
}

std::string Outsider::Ask(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(mHandle, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
        throw std::runtime_error(sql + ": " + sqlite3_errmsg(mHandle));
    std::string answer = "null";
    if (sqlite3_step(statement) == SQLITE_ROW && sqlite3_column_type(statement, 0) != SQLITE_NULL)
        answer = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
    sqlite3_finalize(statement);
    return answer;
}

void MakeFile(const std::filesystem::path& file, const std::string& sql) {
    Outsider(file).Run(sql);
}

Ref<DAO::Database> OpenFile(const std::filesystem::path& file, bool exclusive, bool readOnly,
                            const std::string& connect) {
    return MakeSqliteEngine()->OpenDatabase(file.string(), exclusive, readOnly, connect);
}

namespace {

std::string CellText(const CellView& cell) {
    switch (cell.kind) {
    case ValueKind::Null:
        return "null";
    case ValueKind::Boolean:
        return cell.whole != 0 ? "true" : "false";
    case ValueKind::Whole:
        return std::to_string(cell.whole);
    case ValueKind::Number:
        return RoundTripText(cell.number);
    case ValueKind::Date:
        return "#" + RoundTripText(cell.number) + "#";
    case ValueKind::Text:
        break;
    }
    return std::string(cell.text);
}

} // namespace

std::string RowsText(const RowSource& rows) {
    std::string text;
    RowView row;
    const auto cursor = rows.Open();
    while (cursor->Next(row)) {
        for (std::size_t i = 0; i < row.size(); ++i)
            text += (i == 0 ? "" : "|") + CellText(row[i]);
        text += "\n";
    }
    return text;
}

std::string RowsText(const Ref<DAO::Recordset>& set) {
    return RowsText(*set->Rows());
}

std::string FailureOf(FailureNumber number, const std::function<void()>& work) {
    try {
        work();
    } catch (const Failure& failure) {
        EXPECT_EQ(static_cast<int>(failure.Number()), static_cast<int>(number)) << failure.Description();
        return failure.Description();
    }
    ADD_FAILURE() << "no failure was raised";
    return {};
}

OrdinaryUser::OrdinaryUser() {
    constexpr uid_t nobody = 65534;
    mChanged = ::geteuid() == 0 && ::setresuid(nobody, nobody, 0) == 0;
}

OrdinaryUser::~OrdinaryUser() {
    if (mChanged && ::setresuid(0, 0, 0) != 0) ADD_FAILURE() << "still another user";
}

} // namespace qbrpt::test
