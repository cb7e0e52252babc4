#include "platform/DAO.h"

namespace qbrpt::DAO {

namespace {
constexpr std::string_view RecordsetPort = "DAO.Recordset";
constexpr std::string_view QueryDefPort = "DAO.QueryDef";
constexpr std::string_view DatabasePort = "DAO.Database";
} // namespace

std::int32_t Recordset::RecordCount() {
    Announce(RecordsetPort, "RecordCount");
    return DoRecordCount();
}

bool Recordset::Eof() {
    Announce(RecordsetPort, "EOF");
    return DoEof();
}

void Recordset::MoveFirst() {
    Announce(RecordsetPort, "MoveFirst");
    DoMoveFirst();
}

void Recordset::MoveLast() {
    Announce(RecordsetPort, "MoveLast");
    DoMoveLast();
}

void Recordset::MoveNext() {
    Announce(RecordsetPort, "MoveNext");
    DoMoveNext();
}

Value Recordset::Fields(int index) {
    Announce(RecordsetPort, "Fields", {std::int64_t{index}});
    return DoFields(index);
}

Value Recordset::Fields(const std::string& name) {
    Announce(RecordsetPort, "Fields", {name});
    return DoFields(name);
}

void Recordset::Close() {
    Announce(RecordsetPort, "Close");
    DoClose();
}

std::shared_ptr<const RowSource> Recordset::Rows() {
    Announce(RecordsetPort, "Rows");
    return DoRows();
}

void QueryDef::SetParameter(int index, const Value& value) {
    Announce(QueryDefPort, "Parameters", {DoName(), std::int64_t{index}, value});
    DoSetParameter(index, value);
}

Ref<Recordset> QueryDef::OpenRecordset() {
    Announce(QueryDefPort, "OpenRecordset", {DoName()});
    return DoOpenRecordset();
}

Ref<Recordset> Database::OpenRecordset(const std::string& source, std::optional<int> type) {
    const Value typeGiven = type ? Value{std::int64_t{*type}} : Value{Null{}};
    Announce(DatabasePort, "OpenRecordset", {source, typeGiven});
    return DoOpenRecordset(source, type);
}

void Database::Execute(const std::string& statement) {
    Announce(DatabasePort, "Execute", {statement});
    DoExecute(statement);
}

void Transaction::Commit() {
    Announce("DAO.Transaction", "Commit");
    DoCommit();
}

Ref<Transaction> Database::BeginTrans() {
    Announce(DatabasePort, "BeginTrans");
    return DoBeginTrans();
}

std::int32_t Database::RecordsAffected() {
    Announce(DatabasePort, "RecordsAffected");
    return DoRecordsAffected();
}

Ref<QueryDef> Database::QueryDefs(const std::string& name) {
    Announce(DatabasePort, "QueryDefs", {name});
    return DoQueryDefs(name);
}

Ref<Database> DBEngine::OpenDatabase(const std::string& name, bool exclusive, bool readOnly,
                                     const std::string& connect) {
    Announce("DAO.DBEngine", "OpenDatabase", {name, exclusive, readOnly, connect});
    return DoOpenDatabase(name, exclusive, readOnly, connect);
}

} // namespace qbrpt::DAO
