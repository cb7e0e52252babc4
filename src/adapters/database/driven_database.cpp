#include "adapters/database/driven_database.h"

#include "adapters/database/names.h"
#include "adapters/database/query.h"
#include "adapters/database/recordset.h"
#include "base/numbers.h"

#include <utility>

namespace qbrpt::database {

namespace {

class SavedQueryDef final : public DAO::QueryDef {
public:
    SavedQueryDef(std::shared_ptr<Connection> connection, RowStoreOptions options, std::string name,
                  std::string text)
        : mConnection(std::move(connection)), mOptions(std::move(options)), mName(std::move(name)),
          mText(std::move(text)) {}

private:
    [[nodiscard]] std::string DoName() const override { return mName; }

    void DoSetParameter(int index, const Value& value) override {
        const std::size_t count = mConnection->Translate(mText).parameters.size();
        if (index < 0 || static_cast<std::size_t>(index) >= count)
            throw Failure(FailureNumber::NotInCollection,
                          "The saved query \"" + mName + "\" has no parameter " + std::to_string(index) +
                              "; it has " + std::to_string(count) + ", counted from 0.");
        mValues[static_cast<std::size_t>(index)] = value;
    }

    Ref<DAO::Recordset> DoOpenRecordset() override {
        return MakeRecordset(RunQuery(*mConnection, mText, mValues, mOptions));
    }

    std::shared_ptr<Connection> mConnection;
    RowStoreOptions mOptions;
    std::string mName;
    std::string mText;
    ParameterValues mValues;
};

class DrivenTransaction final : public DAO::Transaction {
public:
    explicit DrivenTransaction(std::shared_ptr<Connection> connection)
        : mConnection(std::move(connection)), mWriting(mConnection->BeginWriting()) {}

private:
    void DoCommit() override { mWriting->Commit(); }

    std::shared_ptr<Connection> mConnection; // first, so that it goes last
    std::unique_ptr<Writing> mWriting;
};

class DrivenDatabase final : public DAO::Database {
public:
    DrivenDatabase(std::shared_ptr<Connection> connection, RowStoreOptions options)
        : mConnection(std::move(connection)), mOptions(std::move(options)) {}

private:
    Ref<DAO::Recordset> DoOpenRecordset(const std::string& source, std::optional<int>) override {
        return MakeRecordset(RunQuery(*mConnection, StatementOf(*mConnection, source), {}, mOptions));
    }

    void DoExecute(const std::string& statement) override {
        mRecordsAffected = 0;
        mRecordsAffected = CheckedLong(RunWrite(*mConnection, statement));
    }

    std::int32_t DoRecordsAffected() override { return mRecordsAffected; }

    Ref<DAO::Transaction> DoBeginTrans() override { return std::make_shared<DrivenTransaction>(mConnection); }

    Ref<DAO::QueryDef> DoQueryDefs(const std::string& name) override {
        auto text = mConnection->SavedQuery(name);
        if (!text)
            throw Failure(FailureNumber::NotInCollection,
                          "The database has no saved query \"" + name + "\".");
        return std::make_shared<SavedQueryDef>(mConnection, mOptions, name, *std::move(text));
    }

    std::shared_ptr<Connection> mConnection;
    RowStoreOptions mOptions;
    std::int32_t mRecordsAffected = 0;
};

} // namespace

Ref<DAO::Database> MakeDatabase(std::shared_ptr<Connection> connection, const RowStoreOptions& options) {
    return std::make_shared<DrivenDatabase>(std::move(connection), options);
}

} // namespace qbrpt::database
