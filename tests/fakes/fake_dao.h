// A database whose answers are laid out beforehand.
#pragma once

#include "fakes/memory_rows.h"
#include "platform/DAO.h"

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::fakes {

class FakeRecordset final : public DAO::Recordset {
public:
    explicit FakeRecordset(std::vector<Row> held) : mRows(std::make_shared<MemoryRows>(std::move(held))) {}

    int closed = 0;
    std::shared_ptr<const RowSource> rows; ///< what reports read in place of the rows above

private:
    [[nodiscard]] std::size_t Count() const { return mRows->RowCount(); }

    // Exact only after MoveLast, as the engine has it.
    std::int32_t DoRecordCount() override {
        const std::size_t known = mSeenLast ? Count() : std::min<std::size_t>(Count(), 1);
        return static_cast<std::int32_t>(known);
    }
    bool DoEof() override { return mPosition >= Count(); }
    void DoMoveFirst() override {
        RequireRows();
        mPosition = 0;
    }
    void DoMoveLast() override {
        RequireRows();
        mSeenLast = true;
        mPosition = Count() - 1;
    }
    void DoMoveNext() override { ++mPosition; }
    Value DoFields(int index) override {
        if (DoEof()) throw Failure(FailureNumber::NoCurrentRow, "No current record.");
        const Row& row = mRows->At(mPosition);
        if (index < 0 || static_cast<std::size_t>(index) >= row.size())
            throw Failure(FailureNumber::NotInCollection, "There is no such column.");
        return row[static_cast<std::size_t>(index)];
    }
    Value DoFields(const std::string& name) override {
        const auto& columns = mRows->Columns();
        for (std::size_t index = 0; index < columns.size(); ++index) {
            if (columns[index].name == name) return DoFields(static_cast<int>(index));
        }
        throw Failure(FailureNumber::NotInCollection, "There is no column \"" + name + "\".");
    }
    void DoClose() override { ++closed; }
    std::shared_ptr<const RowSource> DoRows() override {
        if (rows) return rows;
        return mRows;
    }

    void RequireRows() const {
        if (Count() == 0) throw Failure(FailureNumber::NoCurrentRow, "No current record.");
    }

    std::shared_ptr<MemoryRows> mRows;
    std::size_t mPosition = 0;
    bool mSeenLast = false;
};

/// A statement as it came to the database.
struct OpenedStatement {
    std::string text;
    std::optional<int> type;
};

class FakeQueryDef final : public DAO::QueryDef {
public:
    FakeQueryDef(std::string name, std::vector<Row> rows) : mName(std::move(name)), mRows(std::move(rows)) {}
    std::map<int, Value> parameters;

private:
    [[nodiscard]] std::string DoName() const override { return mName; }
    void DoSetParameter(int index, const Value& value) override { parameters[index] = value; }
    Ref<DAO::Recordset> DoOpenRecordset() override { return std::make_shared<FakeRecordset>(mRows); }

    std::string mName;
    std::vector<Row> mRows;
};

/// What became of a transaction.
struct TransactionRecord {
    bool committed = false;
    bool ended = false;
};

class FakeTransaction final : public DAO::Transaction {
public:
    explicit FakeTransaction(std::shared_ptr<TransactionRecord> record) : mRecord(std::move(record)) {}
    ~FakeTransaction() override { mRecord->ended = true; }
    FakeTransaction(const FakeTransaction&) = delete;
    FakeTransaction& operator=(const FakeTransaction&) = delete;

private:
    void DoCommit() override { mRecord->committed = true; }
    std::shared_ptr<TransactionRecord> mRecord;
};

class FakeDatabase final : public DAO::Database {
public:
    /// Statements that contain `part` return `rows`. The part that was named last goes first.
    void Answer(const std::string& part, std::vector<Row> rows) {
        mAnswers.insert(mAnswers.begin(), {part, [rows = std::move(rows)] { return rows; }});
    }
    /// Statements that contain `part` fail with these words.
    void Fail(const std::string& part, const std::string& words) {
        mAnswers.insert(mAnswers.begin(), {part, [words]() -> std::vector<Row> {
                                               throw Failure(FailureNumber::DatabaseEngine, words);
                                           }});
    }

    std::vector<OpenedStatement> opened;
    std::vector<std::string> executed;
    std::vector<std::shared_ptr<FakeRecordset>> recordsets; ///< one an answered statement, in order
    std::map<std::string, std::shared_ptr<FakeQueryDef>> queryDefs;
    std::vector<std::shared_ptr<TransactionRecord>> transactions;
    std::int32_t recordsAffected = 0;
    std::map<std::string, std::string> refused; ///< words of the failure, by a part of what is executed

private:
    Ref<DAO::Recordset> DoOpenRecordset(const std::string& source, std::optional<int> type) override {
        opened.push_back({source, type});
        for (const auto& [part, rows] : mAnswers) {
            if (source.find(part) == std::string::npos) continue;
            recordsets.push_back(std::make_shared<FakeRecordset>(rows()));
            return recordsets.back();
        }
        throw Failure(FailureNumber::UnknownName, "no rows are laid out for: " + source);
    }
    void DoExecute(const std::string& statement) override {
        for (const auto& [part, words] : refused)
            if (statement.find(part) != std::string::npos)
                throw Failure(FailureNumber::DatabaseEngine, words);
        executed.push_back(statement);
    }
    std::int32_t DoRecordsAffected() override { return recordsAffected; }
    Ref<DAO::Transaction> DoBeginTrans() override {
        transactions.push_back(std::make_shared<TransactionRecord>());
        return std::make_shared<FakeTransaction>(transactions.back());
    }
    Ref<DAO::QueryDef> DoQueryDefs(const std::string& name) override {
        const auto found = queryDefs.find(name);
        if (found == queryDefs.end())
            throw Failure(FailureNumber::NotInCollection, "There is no query \"" + name + "\".");
        return found->second;
    }

    std::vector<std::pair<std::string, std::function<std::vector<Row>()>>> mAnswers;
};

class FakeEngine final : public DAO::DBEngine {
public:
    /// What the next calls open; a name that is not here fails with "bad file NAME".
    std::map<std::string, std::shared_ptr<FakeDatabase>> files;

private:
    Ref<DAO::Database> DoOpenDatabase(const std::string& name, bool, bool, const std::string&) override {
        const auto found = files.find(name);
        if (found == files.end()) throw Failure(FailureNumber::FileNotFound, "bad file " + name);
        return found->second;
    }
};

} // namespace qbrpt::fakes
