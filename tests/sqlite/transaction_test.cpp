// Writing that is done wholly or not at all, beside other programs and inside a host's own transactions.
#include "adapters/database/sqlite/sqlite_engine.h"
#include "fakes/fake_platform.h"
#include "sqlite/sqlite_tools.h"
#include "tools/temp_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace qbrpt {
namespace {

using test::FailureOf;
using test::OpenFile;
using test::Outsider;

/// Both ways in which a file keeps what is being written.
class Transactions : public testing::TestWithParam<const char*> {
protected:
    Transactions() {
        test::MakeFile(mFile, std::string("PRAGMA journal_mode = ") + GetParam() +
                                  "; CREATE TABLE t(id INTEGER); INSERT INTO t VALUES(1)");
    }
    [[nodiscard]] std::string Rows() { return Outsider(mFile).Ask("SELECT group_concat(id) FROM t"); }
    static std::string Add(int id) { return "INSERT INTO t(id) VALUES(" + std::to_string(id) + ")"; }

    fakes::FakePlatform mPlatform;
    test::TempFolder mFolder;
    std::filesystem::path mFile = mFolder / "cafe.db";
};

INSTANTIATE_TEST_SUITE_P(Journals, Transactions, testing::Values("wal", "delete"),
                         [](const auto& mode) { return std::string(mode.param); });

TEST_P(Transactions, AreThereForOthersOnceTheyAreCommitted) {
    const auto database = OpenFile(mFile);
    const auto transaction = database->BeginTrans();
    database->Execute(Add(2));
    EXPECT_EQ(database->RecordsAffected(), 1);
    EXPECT_EQ(test::RowsText(database->OpenRecordset("SELECT id FROM t")), "1\n2\n");
    EXPECT_EQ(Rows(), "1");
    transaction->Commit();
    EXPECT_EQ(Rows(), "1,2");
}

TEST_P(Transactions, AreUndoneWhenTheyAreDropped) {
    const auto database = OpenFile(mFile);
    {
        const auto transaction = database->BeginTrans();
        database->Execute(Add(2));
    }
    EXPECT_EQ(Rows(), "1");
    database->Execute(Add(3)); // by itself again
    EXPECT_EQ(Rows(), "1,3");
}

TEST_P(Transactions, KeepOthersFromWriting) {
    const auto database = OpenFile(mFile);
    auto transaction = database->BeginTrans();
    Outsider other(mFile);
    EXPECT_NE(sqlite3_exec(other.Handle(), Add(9).c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
    transaction.Clear();
    EXPECT_EQ(sqlite3_exec(other.Handle(), Add(9).c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
}

TEST_P(Transactions, WaitForOthersAndSeeWhatTheyWrote) {
    const auto database = OpenFile(mFile);
    Outsider other(mFile);
    other.Run("BEGIN IMMEDIATE; " + Add(2));
    std::thread later([&other] {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        other.Run("COMMIT");
    });
    const auto transaction = database->BeginTrans();
    EXPECT_EQ(test::RowsText(database->OpenRecordset("SELECT id FROM t")), "1\n2\n");
    database->Execute(Add(3));
    transaction->Commit();
    later.join();
    EXPECT_EQ(Rows(), "1,2,3");
}

TEST_P(Transactions, AreLostWhenTheirStatementFails) {
    const auto database = OpenFile(mFile);
    {
        const auto transaction = database->BeginTrans();
        EXPECT_THROW(database->Execute("INSERT INTO t(id) VALUES('it's')"), Failure);
        transaction->Commit();
    }
    EXPECT_EQ(Rows(), "1");
}

TEST_P(Transactions, ArePartOfTheHosts) {
    Outsider host(mFile);
    const auto database = WrapSqliteHandle(host.Handle());
    host.Run("BEGIN; " + Add(2));
    {
        const auto dropped = database->BeginTrans();
        database->Execute(Add(3));
    }
    {
        const auto kept = database->BeginTrans();
        database->Execute(Add(4));
        kept->Commit();
    }
    EXPECT_EQ(sqlite3_get_autocommit(host.Handle()), 0) << "the host's transaction is still open";
    EXPECT_EQ(Rows(), "1");
    host.Run("COMMIT");
    EXPECT_EQ(Rows(), "1,2,4");
}

TEST_P(Transactions, GoWithTheHostsWhenItGoesBack) {
    Outsider host(mFile);
    const auto database = WrapSqliteHandle(host.Handle());
    host.Run("BEGIN");
    const auto transaction = database->BeginTrans();
    database->Execute(Add(3));
    transaction->Commit();
    host.Run("ROLLBACK");
    EXPECT_EQ(Rows(), "1");
}

TEST_P(Transactions, InsideOneAnotherAreParts) {
    const auto database = OpenFile(mFile);
    const auto outer = database->BeginTrans();
    database->Execute(Add(2));
    {
        const auto inner = database->BeginTrans();
        database->Execute(Add(3));
    }
    outer->Commit();
    EXPECT_EQ(Rows(), "1,2");
}

TEST_P(Transactions, OfAHostThatDoesNotWaitFailAtOnce) {
    Outsider other(mFile);
    other.Run("BEGIN IMMEDIATE");
    Outsider host(mFile);
    const auto database = WrapSqliteHandle(host.Handle());
    EXPECT_NE(FailureOf(FailureNumber::Locked, [&] { static_cast<void>(database->BeginTrans()); }), "");
    EXPECT_NE(sqlite3_get_autocommit(host.Handle()), 0);
    other.Run("ROLLBACK");
}

TEST_P(Transactions, OfADatabaseThatIsOnlyReadFail) {
    const auto database = OpenFile(mFile, false, true);
    EXPECT_THROW(
        {
            const auto transaction = database->BeginTrans();
            database->Execute(Add(2));
        },
        Failure);
    EXPECT_EQ(Rows(), "1");
}

TEST_P(Transactions, MayOutliveTheirDatabase) {
    auto database = OpenFile(mFile);
    auto transaction = database->BeginTrans();
    database->Execute(Add(2));
    database.Clear();
    transaction->Commit();
    transaction.Clear();
    EXPECT_EQ(Rows(), "1,2");
}

} // namespace
} // namespace qbrpt
