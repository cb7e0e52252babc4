// The database engine of the café's file, in the words of the system.
#pragma once

#include "base/ref.h"
#include "base/rows.h"
#include "base/value.h"
#include "platform/port.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace qbrpt::DAO {

/// `OpenRecordset` type of an editable set. Sets of this system are only read; the number is part of the
/// call all the same.
constexpr int dbOpenDynaset = 2;

/// The rows of one query, with a cursor. A fresh set stands on its first row.
class Recordset : public Port {
public:
    /// 0 for an empty set, at least 1 when rows stand, exact after MoveLast.
    [[nodiscard]] std::int32_t RecordCount();
    /// True when the cursor stands behind the last row (`EOF`, which C++ has taken).
    [[nodiscard]] bool Eof();
    void MoveFirst();
    void MoveLast();
    void MoveNext();
    /// The value of a column of the row under the cursor, by position from 0 or by name (any case).
    [[nodiscard]] Value Fields(int index);
    [[nodiscard]] Value Fields(const std::string& name);
    void Close();
    /// All rows, whatever the cursor does; for the report engine.
    [[nodiscard]] std::shared_ptr<const RowSource> Rows();

private:
    virtual std::int32_t DoRecordCount() = 0;
    virtual bool DoEof() = 0;
    virtual void DoMoveFirst() = 0;
    virtual void DoMoveLast() = 0;
    virtual void DoMoveNext() = 0;
    virtual Value DoFields(int index) = 0;
    virtual Value DoFields(const std::string& name) = 0;
    virtual void DoClose() = 0;
    virtual std::shared_ptr<const RowSource> DoRows() = 0;
};

/// A saved parameter query of the database (`_QueryDef`).
class QueryDef : public Port {
public:
    /// Sets parameter `index`, counted from 0 (`Parameters(index).Value`).
    void SetParameter(int index, const Value& value);
    [[nodiscard]] Ref<Recordset> OpenRecordset();

private:
    /// The name under which the query is saved.
    [[nodiscard]] virtual std::string DoName() const = 0;
    virtual void DoSetParameter(int index, const Value& value) = 0;
    virtual Ref<Recordset> DoOpenRecordset() = 0;
};

/// Writing that is either wholly done or not at all. What is dropped before its Commit has returned is
/// undone.
class Transaction : public Port {
public:
    void Commit();

private:
    virtual void DoCommit() = 0;
};

class Database : public Port {
public:
    /// Runs a SELECT, or a saved query by its name. `type` is passed on as the caller gave it.
    [[nodiscard]] Ref<Recordset> OpenRecordset(const std::string& source,
                                               std::optional<int> type = std::nullopt);
    /// Runs a statement that writes.
    void Execute(const std::string& statement);
    /// Rows that the last Execute wrote.
    [[nodiscard]] std::int32_t RecordsAffected();
    /// From here on to the end of the transaction nobody else writes, and what is read is as it stands now.
    /// Inside a transaction of the host's it is a part of that one.
    [[nodiscard]] Ref<Transaction> BeginTrans();
    /// The saved query `name`; a name that is not there is a failure.
    [[nodiscard]] Ref<QueryDef> QueryDefs(const std::string& name);

private:
    virtual Ref<Recordset> DoOpenRecordset(const std::string& source, std::optional<int> type) = 0;
    virtual void DoExecute(const std::string& statement) = 0;
    virtual std::int32_t DoRecordsAffected() = 0;
    virtual Ref<Transaction> DoBeginTrans() = 0;
    virtual Ref<QueryDef> DoQueryDefs(const std::string& name) = 0;
};

class DBEngine : public Port {
public:
    /// Opens a database by file name, or by connect text where that names a server.
    [[nodiscard]] Ref<Database> OpenDatabase(const std::string& name, bool exclusive, bool readOnly,
                                             const std::string& connect);

private:
    virtual Ref<Database> DoOpenDatabase(const std::string& name, bool exclusive, bool readOnly,
                                         const std::string& connect) = 0;
};

} // namespace qbrpt::DAO
