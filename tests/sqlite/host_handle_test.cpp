// A database over a handle that the host opened and keeps.
#include "adapters/database/sqlite/sqlite_engine.h"
#include "fakes/fake_platform.h"
#include "sqlite/sqlite_tools.h"
#include "tools/temp_folder.h"

#include <gtest/gtest.h>

namespace qbrpt {
namespace {

using test::FailureOf;
using test::Outsider;
using test::RowsText;

class HostHandle : public testing::Test {
protected:
    HostHandle() {
        mHost.Run(
            "CREATE TABLE t(id INTEGER PRIMARY KEY, name TEXT); INSERT INTO t VALUES(1, 'a'), (2, 'B')");
    }

    fakes::FakePlatform mPlatform;
    test::TempFolder mFolder;
    std::filesystem::path mFile = mFolder / "cafe.db";
    Outsider mHost{mFile}; // its end tests that nothing is left open on it
};

TEST_F(HostHandle, NoHandleIsNoDatabase) {
    EXPECT_TRUE(WrapSqliteHandle(nullptr).Empty());
}

TEST_F(HostHandle, ReadsAndWritesThroughIt) {
    const auto database = WrapSqliteHandle(mHost.Handle());
    EXPECT_EQ(RowsText(database->OpenRecordset("SELECT name FROM t WHERE name = 'b'")), "B\n");
    database->Execute("UPDATE t SET name = 'c' WHERE id = 2");
    EXPECT_EQ(database->RecordsAffected(), 1);
    EXPECT_EQ(mHost.Ask("SELECT name FROM t WHERE id = 2"), "c");
}

TEST_F(HostHandle, StaysOpenAndUnchanged) {
    mHost.Run("PRAGMA journal_mode = wal; PRAGMA busy_timeout = 1234");
    const auto state = [&] {
        return mHost.Ask("PRAGMA busy_timeout") + mHost.Ask("PRAGMA journal_mode") +
               mHost.Ask("PRAGMA locking_mode") + mHost.Ask("PRAGMA foreign_keys") +
               mHost.Ask("PRAGMA trusted_schema") + mHost.Ask("PRAGMA query_only") +
               mHost.Ask("PRAGMA synchronous") + mHost.Ask("PRAGMA cache_size") +
               std::to_string(sqlite3_get_autocommit(mHost.Handle())) +
               std::to_string(sqlite3_extended_result_codes(mHost.Handle(), 0));
    };
    const std::string before = state();
    auto database = WrapSqliteHandle(mHost.Handle());
    const auto set = database->OpenRecordset("SELECT id FROM t");
    EXPECT_EQ(state(), before);
    database.Clear();
    EXPECT_EQ(state(), before);
    EXPECT_EQ(mHost.Ask("SELECT count(*) FROM t"), "2");
    EXPECT_EQ(RowsText(set), "1\n2\n");
}

TEST_F(HostHandle, TheHostsProgressHandlerStays) {
    int calls = 0;
    sqlite3_progress_handler(
        mHost.Handle(), 1, [](void* count) { return ++*static_cast<int*>(count), 0; }, &calls);
    const auto database = WrapSqliteHandle(mHost.Handle());
    static_cast<void>(database->OpenRecordset("SELECT id FROM t"));
    calls = 0;
    static_cast<void>(mHost.Ask("SELECT count(*) FROM t"));
    EXPECT_GT(calls, 0);
}

TEST_F(HostHandle, SeesWhatTheHostHasNotCommittedYet) {
    mHost.Run("BEGIN; INSERT INTO t VALUES(3, 'new')");
    const auto database = WrapSqliteHandle(mHost.Handle());
    EXPECT_EQ(RowsText(database->OpenRecordset("SELECT id FROM t ORDER BY id")), "1\n2\n3\n");
    EXPECT_EQ(sqlite3_get_autocommit(mHost.Handle()), 0) << "the host's transaction is still open";
    mHost.Run("ROLLBACK");
    EXPECT_EQ(RowsText(database->OpenRecordset("SELECT id FROM t ORDER BY id")), "1\n2\n");
}

TEST_F(HostHandle, WorksWhileTheHostReads) {
    sqlite3_stmt* reading = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(mHost.Handle(), "SELECT id FROM t ORDER BY id", -1, &reading, nullptr),
              SQLITE_OK);
    ASSERT_EQ(sqlite3_step(reading), SQLITE_ROW);
    for (int i = 0; i < 2; ++i) { // the second time everything is registered already
        const auto database = WrapSqliteHandle(mHost.Handle());
        EXPECT_EQ(RowsText(database->OpenRecordset("SELECT name FROM t WHERE name = 'A'")), "a\n");
    }
    EXPECT_EQ(sqlite3_step(reading), SQLITE_ROW);
    EXPECT_EQ(sqlite3_step(reading), SQLITE_DONE);
    sqlite3_finalize(reading);
}

TEST_F(HostHandle, AFailedStatementLeavesNothingBehind) {
    const auto database = WrapSqliteHandle(mHost.Handle());
    EXPECT_THROW(database->Execute("INSERT INTO t(id) VALUES(1)"), Failure);
    EXPECT_THROW(static_cast<void>(database->OpenRecordset("SELECT x FROM t")), Failure);
    EXPECT_EQ(sqlite3_next_stmt(mHost.Handle(), nullptr), nullptr);
}

TEST_F(HostHandle, TheHostsTemporaryTablesAreTables) {
    mHost.Run("CREATE TEMP TABLE scratch(d DATETIME, n INT); INSERT INTO scratch VALUES(37787, 1)");
    const auto database = WrapSqliteHandle(mHost.Handle());
    EXPECT_EQ(RowsText(database->OpenRecordset("SELECT d, n FROM scratch")), "#37787#|1\n");
    mHost.Run("CREATE TEMP TABLE later(n INT); DROP TABLE scratch");
    EXPECT_EQ(RowsText(database->OpenRecordset("SELECT n FROM later")), "");
    EXPECT_THROW(static_cast<void>(database->OpenRecordset("SELECT n FROM scratch")), Failure);
}

TEST_F(HostHandle, TextThatTheHostPutsIntoAComparedDateColumnIsMet) {
    mHost.Run("CREATE TABLE days(d DATETIME, n INT); INSERT INTO days VALUES(37787, 1);"
              "CREATE TEMP TABLE passing(d DATETIME, n INT); INSERT INTO passing VALUES(37787, 1)");
    const auto database = WrapSqliteHandle(mHost.Handle());
    for (const std::string table : {"days", "passing"}) {
        SCOPED_TRACE(table);
        const std::string compared = "SELECT n FROM " + table + " WHERE d < 40000";
        EXPECT_EQ(RowsText(database->OpenRecordset(compared)), "1\n");
        mHost.Run("BEGIN; INSERT INTO " + table + " VALUES('2003-06-15', 2)");
        const std::string text = FailureOf(FailureNumber::BadColumn,
                                           [&] { static_cast<void>(database->OpenRecordset(compared)); });
        EXPECT_NE(text.find(table + ".d"), std::string::npos) << text;
        mHost.Run("ROLLBACK");
        EXPECT_EQ(RowsText(database->OpenRecordset(compared)), "1\n");
    }
}

TEST_F(HostHandle, TextThatComesBackIntoAComparedDateColumnIsMet) {
    mHost.Run("CREATE TABLE days(d DATETIME, n INT); INSERT INTO days VALUES('2003-06-15', 1)");
    const auto database = WrapSqliteHandle(mHost.Handle());
    mHost.Run("BEGIN; UPDATE days SET d = 37787");
    const char* compared = "SELECT n FROM days WHERE d < 40000";
    EXPECT_EQ(RowsText(database->OpenRecordset(compared)), "1\n");
    mHost.Run("ROLLBACK");
    EXPECT_NE(
        FailureOf(FailureNumber::BadColumn, [&] { static_cast<void>(database->OpenRecordset(compared)); }),
        "");
}

TEST_F(HostHandle, TheHostsAuthorizerStays) {
    mHost.Run("CREATE TABLE days(d DATETIME); CREATE VIEW both AS SELECT d, id FROM days, t");
    int calls = 0;
    sqlite3_set_authorizer(
        mHost.Handle(),
        [](void* count, int, const char*, const char*, const char*, const char*) {
            ++*static_cast<int*>(count);
            return SQLITE_OK;
        },
        &calls);
    EXPECT_EQ(RowsText(WrapSqliteHandle(mHost.Handle())->OpenRecordset("SELECT id FROM both")), "");
    calls = 0;
    static_cast<void>(mHost.Ask("SELECT count(*) FROM t"));
    EXPECT_GT(calls, 0);
}

TEST_F(HostHandle, ABusyHandleFailsAtOnceWithItsOwnWords) {
    Outsider other(mFile);
    other.Run("BEGIN EXCLUSIVE");
    const auto database = WrapSqliteHandle(mHost.Handle());
    EXPECT_NE(FailureOf(FailureNumber::Locked, [&] { database->Execute("DELETE FROM t"); }), "");
    other.Run("ROLLBACK");
}

} // namespace
} // namespace qbrpt
