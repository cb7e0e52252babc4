// Queries and writes on a real file, as a host calls them.
#include "adapters/database/cancel.h"
#include "adapters/database/driven_database.h"
#include "adapters/database/sqlite/sqlite_open.h"
#include "fakes/fake_platform.h"
#include "sqlite/sqlite_tools.h"
#include "tools/temp_folder.h"

#include <gtest/gtest.h>

#include <atomic>

namespace qbrpt {
namespace {

using test::FailureOf;
using test::MakeFile;
using test::OpenFile;
using test::Outsider;
using test::RowsText;

constexpr const char* Schema =
    "CREATE TABLE members(id INTEGER PRIMARY KEY, name VARCHAR(50), since DATETIME, active BOOLEAN, owes "
    "REAL);"
    "INSERT INTO members VALUES(1, 'أحمد', 37787.5, 1, 10), (2, 'Peter', NULL, 0, 2.5), (3, NULL, 37788, -1, "
    "0);"
    "CREATE TABLE pay_out(amount REAL, pay_date DATETIME, details TEXT, work_id INTEGER);"
    "CREATE VIEW active_members AS SELECT id, name, since FROM members WHERE active <> 0;";

class Queries : public testing::Test {
protected:
    Queries() {
        MakeFile(mFile, Schema);
        mDatabase = OpenFile(mFile);
    }

    Ref<DAO::Recordset> Open(const std::string& source) { return mDatabase->OpenRecordset(source); }
    std::string Rows(const std::string& source) { return RowsText(Open(source)); }

    fakes::FakePlatform mPlatform;
    test::TempFolder mFolder;
    std::filesystem::path mFile = mFolder / "cafe.db";
    Ref<DAO::Database> mDatabase;
};

TEST_F(Queries, EveryColumnHasItsKind) {
    EXPECT_EQ(Rows("SELECT id, name, since, active, owes FROM members ORDER BY id"),
              "1|أحمد|#37787.5#|true|10\n2|Peter|null|false|2.5\n3|null|#37788#|true|0\n");
    const auto rows = Open("SELECT id, name, since, active, owes FROM members")->Rows();
    const ValueKind wanted[] = {ValueKind::Whole, ValueKind::Text, ValueKind::Date, ValueKind::Boolean,
                                ValueKind::Number};
    for (std::size_t i = 0; i < std::size(wanted); ++i)
        EXPECT_EQ(rows->Columns()[i].kind, wanted[i]) << rows->Columns()[i].name;
}

TEST_F(Queries, AViewKeepsTheKindsOfItsColumns) {
    EXPECT_EQ(Rows("SELECT id, since FROM active_members ORDER BY id"), "1|#37787.5#\n3|#37788#\n");
}

TEST_F(Queries, ANameOpensATableOrASavedQuery) {
    Outsider(mFile).Run(
        "CREATE TABLE saved_query(name TEXT PRIMARY KEY, sql TEXT);"
        "INSERT INTO saved_query VALUES('All Names', 'SELECT name FROM members ORDER BY id')");
    EXPECT_EQ(Rows("All names"), "أحمد\nPeter\nnull\n");
    EXPECT_EQ(Rows("[ALL NAMES]"), "أحمد\nPeter\nnull\n");
    EXPECT_EQ(Rows(" MEMBERS "), "1|أحمد|#37787.5#|true|10\n2|Peter|null|false|2.5\n3|null|#37788#|true|0\n");
}

TEST_F(Queries, TheCursorWalksTheRows) {
    const auto set = Open("SELECT id, name AS who FROM members ORDER BY id");
    EXPECT_FALSE(set->Eof());
    EXPECT_GE(set->RecordCount(), 1);
    EXPECT_EQ(std::get<std::int64_t>(set->Fields(0)), 1);
    EXPECT_EQ(std::get<std::string>(set->Fields("WHO")), "أحمد");
    set->MoveLast();
    EXPECT_EQ(set->RecordCount(), 3);
    EXPECT_TRUE(IsNull(set->Fields("who")));
    set->MoveFirst();
    set->MoveNext();
    EXPECT_EQ(std::get<std::string>(set->Fields(1)), "Peter");
    set->MoveNext();
    EXPECT_FALSE(set->Eof());
    set->MoveNext();
    EXPECT_TRUE(set->Eof());
    EXPECT_NE(FailureOf(FailureNumber::NoCurrentRow, [&] { static_cast<void>(set->Fields(0)); }), "");
    EXPECT_NE(FailureOf(FailureNumber::NoCurrentRow, [&] { set->MoveNext(); }), "");
    set->MoveFirst();
    EXPECT_EQ(std::get<std::int64_t>(set->Fields(0)), 1);
}

TEST_F(Queries, ColumnsThatAreNotThere) {
    const auto set = Open("SELECT id, name FROM members");
    EXPECT_NE(FailureOf(FailureNumber::NotInCollection, [&] { static_cast<void>(set->Fields(2)); }), "");
    EXPECT_NE(FailureOf(FailureNumber::NotInCollection, [&] { static_cast<void>(set->Fields(-1)); }), "");
    EXPECT_NE(FailureOf(FailureNumber::NotInCollection, [&] { static_cast<void>(set->Fields("none")); }), "");
}

TEST_F(Queries, AnEmptySet) {
    const auto set = Open("SELECT id FROM members WHERE id = 99");
    EXPECT_EQ(set->RecordCount(), 0);
    EXPECT_TRUE(set->Eof());
    for (const auto& step :
         {+[](DAO::Recordset& rows) { rows.MoveFirst(); }, +[](DAO::Recordset& rows) { rows.MoveLast(); },
          +[](DAO::Recordset& rows) { rows.MoveNext(); },
          +[](DAO::Recordset& rows) { static_cast<void>(rows.Fields(0)); }})
        EXPECT_NE(FailureOf(FailureNumber::NoCurrentRow, [&] { step(*set); }), "");
}

TEST_F(Queries, AClosedSetDoesNothingAnyMore) {
    const auto set = Open("SELECT id FROM members");
    const auto rows = set->Rows();
    set->Close();
    for (const auto& step : {+[](DAO::Recordset& each) { each.MoveFirst(); },
                             +[](DAO::Recordset& each) { static_cast<void>(each.RecordCount()); },
                             +[](DAO::Recordset& each) { static_cast<void>(each.Eof()); },
                             +[](DAO::Recordset& each) { static_cast<void>(each.Fields(0)); },
                             +[](DAO::Recordset& each) { static_cast<void>(each.Rows()); },
                             +[](DAO::Recordset& each) { each.Close(); }})
        EXPECT_NE(FailureOf(FailureNumber::ObjectNotSet, [&] { step(*set); }), "");
    EXPECT_EQ(rows->RowCount(), 3U);
}

TEST_F(Queries, RowsOutliveTheDatabase) {
    const auto set = Open("SELECT id FROM members ORDER BY id");
    mDatabase.Clear();
    std::filesystem::remove(mFile);
    EXPECT_EQ(RowsText(set), "1\n2\n3\n");
    set->MoveLast();
    EXPECT_EQ(std::get<std::int64_t>(set->Fields(0)), 3);
}

TEST_F(Queries, AReportQueryOnlyReads) {
    for (const char* source :
         {"DELETE FROM members", "UPDATE members SET name = 'x'", "INSERT INTO members(id) VALUES(9)",
          "SELECT * INTO copied FROM members", "DROP TABLE members", "CREATE TABLE x(a INT)",
          "PRAGMA journal_mode=delete", "ATTACH 'x.db' AS y", "VACUUM"}) {
        SCOPED_TRACE(source);
        const std::string text = FailureOf(FailureNumber::WriteRefused, [&] { Open(source); });
        EXPECT_NE(text.find("refused"), std::string::npos) << text;
    }
    EXPECT_NE(
        FailureOf(FailureNumber::WriteRefused, [&] { Open("SELECT 1 FROM members; DELETE FROM members"); }),
        "");
    for (const char* source : {"", "  ", ";", "nonsense"}) {
        SCOPED_TRACE(source);
        EXPECT_THROW(Open(source), Failure);
    }
    EXPECT_EQ(Outsider(mFile).Ask("SELECT count(*) FROM members"), "3");
}

TEST_F(Queries, AnUnknownNameIsNamedWithItsPlace) {
    const std::string text =
        FailureOf(FailureNumber::UnknownName, [&] { Open("SELECT id\r\nFROM members WHERE nmae = 'x'"); });
    EXPECT_NE(text.find("nmae"), std::string::npos) << text;
    EXPECT_NE(text.find("line 2"), std::string::npos) << text;
    EXPECT_NE(text.find("column 20"), std::string::npos) << text;
    EXPECT_NE(FailureOf(FailureNumber::UnknownName, [&] { Open("SELECT id FROM mmbers"); }).find("mmbers"),
              std::string::npos);
}

TEST_F(Queries, ExecuteWritesAndCounts) {
    mDatabase->Execute("UPDATE members SET owes = 1 WHERE id <= 2");
    EXPECT_EQ(mDatabase->RecordsAffected(), 2);
    mDatabase->Execute(
        "INSERT INTO pay_out(amount, pay_date, details, work_id) VALUES(5, 37787.4166666667, 'س', 1)");
    EXPECT_EQ(mDatabase->RecordsAffected(), 1);
    EXPECT_EQ(Outsider(mFile).Ask("SELECT pay_date = 37787 + 36000 / 86400.0 FROM pay_out"), "1");
    mDatabase->Execute("DELETE FROM members WHERE id = 77");
    EXPECT_EQ(mDatabase->RecordsAffected(), 0);
    EXPECT_NE(
        FailureOf(FailureNumber::InvalidArgument, [&] { mDatabase->Execute("SELECT id FROM members"); }), "");
    EXPECT_NE(FailureOf(FailureNumber::UnknownName,
                        [&] { mDatabase->Execute("DELETE FROM members WHERE ix = 1"); }),
              "");
}

TEST_F(Queries, TheEnginesReasonIsTold) {
    const std::string text = FailureOf(FailureNumber::DatabaseEngine, [&] {
        mDatabase->Execute("INSERT INTO members(id, name) VALUES(1, 'again')");
    });
    EXPECT_NE(text.find("UNIQUE constraint failed: members.id"), std::string::npos) << text;
    EXPECT_NE(text.find("again"), std::string::npos) << text;
    EXPECT_EQ(mDatabase->RecordsAffected(), 0);
}

TEST_F(Queries, NewTablesAndColumnsAreSeenAtOnce) {
    EXPECT_THROW(Open("SELECT x FROM later"), Failure);
    Outsider(mFile).Run(
        "CREATE TABLE later(x INTEGER); INSERT INTO later VALUES(4); ALTER TABLE members ADD y INT");
    EXPECT_EQ(Rows("SELECT x FROM later"), "4\n");
    EXPECT_EQ(Rows("SELECT y FROM members WHERE id = 1"), "null\n");
}

TEST_F(Queries, ABrokenViewIsNamedAndHarmsNoOther) {
    Outsider(mFile).Run("CREATE VIEW broken AS SELECT a FROM gone");
    const std::string text = FailureOf(FailureNumber::DatabaseEngine, [&] { Open("SELECT a FROM broken"); });
    EXPECT_NE(text.find("broken"), std::string::npos) << text;
    EXPECT_NE(text.find("gone"), std::string::npos) << text;
    EXPECT_EQ(Rows("SELECT id FROM members WHERE id = 1"), "1\n");
    EXPECT_EQ(Rows("SELECT id FROM active_members WHERE id = 1"), "1\n");
}

TEST_F(Queries, TextInADateColumnIsRefusedWithItsNameAndARemedy) {
    Outsider(mFile).Run("INSERT INTO pay_out VALUES(1, 37787, 'a', 1), (2, '2003-06-15', 'b', 1)");
    // Also where the column is only compared, and through a name of its own.
    for (const char* source :
         {"SELECT pay_date FROM pay_out", "SELECT amount FROM pay_out WHERE pay_date BETWEEN 1 AND 2",
          "SELECT Max(p.pay_date) FROM pay_out AS p", "pay_out"}) {
        SCOPED_TRACE(source);
        const std::string text = FailureOf(FailureNumber::BadColumn, [&] { Open(source); });
        EXPECT_NE(text.find("pay_out.pay_date"), std::string::npos) << text;
        EXPECT_NE(text.find("2003-06-15"), std::string::npos) << text;
        EXPECT_NE(text.find("julianday"), std::string::npos) << text;
    }
    EXPECT_EQ(Rows("SELECT id FROM members WHERE id = 1"), "1\n")
        << "a table that is not named does not matter";
    EXPECT_EQ(Rows("SELECT pay_date FROM pay_out WHERE amount = 1 ORDER BY pay_date"), "#37787#\n")
        << "nor does a row that is not asked for";
    Outsider(mFile).Run(
        "UPDATE pay_out SET pay_date = julianday(pay_date) - 2415018.5 WHERE typeof(pay_date) = 'text'");
    EXPECT_EQ(Rows("SELECT pay_date FROM pay_out ORDER BY amount"), "#37787#\n#37787#\n");
}

TEST_F(Queries, TextThatComesIntoADateColumnLaterIsMetInReading) {
    EXPECT_EQ(Rows("SELECT pay_date FROM pay_out"), "");
    Outsider(mFile).Run("INSERT INTO pay_out VALUES(1, 37787, 'a', 1), (2, 'أمس', 'b', 1)");
    const std::string text =
        FailureOf(FailureNumber::BadColumn, [&] { Open("SELECT pay_date AS d FROM pay_out"); });
    EXPECT_NE(text.find("pay_out.pay_date"), std::string::npos) << text;
    EXPECT_NE(text.find("أمس"), std::string::npos) << text;
}

TEST_F(Queries, TextThatComesIntoAComparedDateColumnLaterIsMet) {
    const char* compared = "SELECT amount FROM pay_out WHERE pay_date BETWEEN 37780 AND 37790";
    Outsider other(mFile);
    other.Run("INSERT INTO pay_out VALUES(1, 37787, 'a', 1)");
    EXPECT_EQ(Rows(compared), "1\n");
    other.Run("UPDATE pay_out SET pay_date = '2003-06-15'");
    const std::string text = FailureOf(FailureNumber::BadColumn, [&] { Open(compared); });
    EXPECT_NE(text.find("pay_out.pay_date"), std::string::npos) << text;
    EXPECT_NE(text.find("2003-06-15"), std::string::npos) << text;
    other.Run("UPDATE pay_out SET pay_date = 37787");
    EXPECT_EQ(Rows(compared), "1\n");
}

TEST_F(Queries, AViewStandsForTheTablesBehindItAlone) {
    Outsider other(mFile);
    other.Run("CREATE TABLE hostnotes(made DATETIME); INSERT INTO hostnotes VALUES('2024-05-01');"
              "CREATE VIEW few_members AS SELECT id, since FROM active_members WHERE id < 3;"
              "CREATE INDEX member_dates ON members(since);"
              "CREATE VIEW since_when AS SELECT since AS day FROM members WHERE since > 0;"
              "CREATE VIEW notes AS SELECT made FROM hostnotes");
    const char* sources[] = {"SELECT id FROM active_members WHERE since = 37787.5",
                             "SELECT id FROM few_members WHERE since > 0",
                             "SELECT Count(*) FROM since_when WHERE day > 37787.7"};
    for (const char* source : sources)
        EXPECT_EQ(Rows(source), "1\n") << source;
    EXPECT_NE(FailureOf(FailureNumber::BadColumn, [&] { Open("SELECT Count(*) FROM notes"); }), "");
    other.Run("INSERT INTO members VALUES(4, 'x', 'soon', 1, 0)");
    for (const char* source : sources) {
        SCOPED_TRACE(source);
        const std::string text = FailureOf(FailureNumber::BadColumn, [&] { Open(source); });
        EXPECT_NE(text.find("members.since"), std::string::npos) << text;
    }
}

TEST_F(Queries, AViewOverATableWithTextDatesIsRefused) {
    Outsider(mFile).Run("INSERT INTO members VALUES(4, 'x', 'soon', 1, 0)");
    const std::string text =
        FailureOf(FailureNumber::BadColumn, [&] { Open("SELECT id FROM active_members"); });
    EXPECT_NE(text.find("members.since"), std::string::npos) << text;
}

TEST_F(Queries, NumbersOfAnyFormInDateAndBooleanColumns) {
    Outsider(mFile).Run(
        "UPDATE members SET since = 37000 WHERE id = 1; UPDATE members SET active = 2 WHERE id = 2");
    EXPECT_EQ(Rows("SELECT since, active FROM members ORDER BY id"),
              "#37000#|true\nnull|true\n#37788#|true\n");
}

TEST_F(Queries, TextOfAnyBytesComesOutValid) {
    Outsider(mFile).Run("UPDATE members SET name = CAST(x'41FF42' AS TEXT) WHERE id = 1;"
                        "UPDATE members SET name = x'D8' WHERE id = 2;"
                        "UPDATE members SET name = CAST(x'610062' AS TEXT) WHERE id = 3");
    EXPECT_EQ(Rows("SELECT name FROM members ORDER BY id"), std::string("A\xEF\xBF\xBD"
                                                                        "B\n\xEF\xBF\xBD\na\0b\n",
                                                                        14));
}

TEST_F(Queries, AFileInUtf16GivesTheSameText) {
    const auto file = mFolder / "wide.db";
    MakeFile(file, std::string("PRAGMA encoding='UTF-16le';") + Schema);
    EXPECT_EQ(RowsText(OpenFile(file)->OpenRecordset(
                  "SELECT name FROM members WHERE name = 'PETER' OR id = 1 ORDER BY id")),
              "أحمد\nPeter\n");
}

TEST_F(Queries, TextComparesWithoutCase) {
    EXPECT_EQ(Rows("SELECT id FROM members WHERE name = 'pETER'"), "2\n");
    EXPECT_EQ(Rows("SELECT name FROM members ORDER BY name DESC"), "Peter\nأحمد\nnull\n");
}

TEST_F(Queries, AFailureInAFunctionKeepsItsNumber) {
    EXPECT_NE(FailureOf(FailureNumber::TypeMismatch, [&] { Open("SELECT CLng(name) FROM members"); }), "");
    EXPECT_NE(
        FailureOf(FailureNumber::Overflow, [&] { Open("SELECT CLng(id * 3000000000.0) FROM members"); }), "");
    EXPECT_EQ(Rows("SELECT id FROM members WHERE id = 1"), "1\n");
}

TEST_F(Queries, FirstAndLastFollowTheTable) {
    EXPECT_EQ(Rows("SELECT First(name), Last(id) FROM members"), "أحمد|3\n");
    EXPECT_EQ(Rows("SELECT First(name), Last(id) FROM members WHERE id > 7"), "null|null\n");
}

TEST_F(Queries, NowIsOneMomentOfTheClockPort) {
    mPlatform.clock->now = 45000.25;
    EXPECT_EQ(Rows("SELECT Now() FROM members"), "#45000.25#\n#45000.25#\n#45000.25#\n");
}

TEST_F(Queries, AWriteWaitsForNobodyForEver) {
    Outsider other(mFile);
    other.Run("BEGIN IMMEDIATE");
    const std::string text =
        FailureOf(FailureNumber::Locked, [&] { mDatabase->Execute("DELETE FROM members WHERE id = 1"); });
    EXPECT_NE(text.find("locked"), std::string::npos) << text;
    EXPECT_EQ(Rows("SELECT id FROM members WHERE id = 1"), "1\n") << "reading goes on";
    other.Run("ROLLBACK");
    mDatabase->Execute("DELETE FROM members WHERE id = 1");
    EXPECT_EQ(mDatabase->RecordsAffected(), 1);
}

TEST_F(Queries, NothingIsHeldBetweenQueries) {
    const auto set = Open("SELECT id FROM members");
    Outsider other(mFile);
    other.Run("BEGIN EXCLUSIVE; DROP TABLE pay_out; COMMIT");
    EXPECT_EQ(set->Rows()->RowCount(), 3U);
}

TEST_F(Queries, AStatementOfManyRowsGoesToTheFileAndComesBack) {
    const database::RowStoreOptions small{1000, 100, {}};
    const auto spilled = database::MakeDatabase(
        std::make_shared<database::SqliteConnection>(database::OpenSqliteFile(mFile.string(), false, false)),
        small);
    Outsider(mFile).Run("WITH RECURSIVE n(i) AS (SELECT 10 UNION ALL SELECT i + 1 FROM n WHERE i < 5000) "
                        "INSERT INTO members SELECT i, 'عضو ' || i, 40000 + i, 1, i / 4.0 FROM n");
    const char* source = "SELECT id, name, since, active, owes FROM members ORDER BY id";
    EXPECT_EQ(RowsText(spilled->OpenRecordset(source)), Rows(source));
}

TEST_F(Queries, TheCancelFlagStopsALongQuery) {
    std::atomic<bool> flag{false};
    database::SetCancelFlag(&flag);
    EXPECT_EQ(Rows("SELECT id FROM members WHERE id = 1"), "1\n");
    flag = true;
    EXPECT_NE(FailureOf(FailureNumber::Cancelled, [&] { Open("SELECT id FROM members"); }), "");
    // Sums of a cross join give no row for a long time: only the engine itself can notice.
    flag = false;
    Outsider(mFile).Run("WITH RECURSIVE n(i) AS (SELECT 10 UNION ALL SELECT i + 1 FROM n WHERE i < 3000) "
                        "INSERT INTO members SELECT i, 'x', NULL, 1, 0 FROM n");
    flag = true;
    EXPECT_NE(FailureOf(FailureNumber::Cancelled,
                        [&] { Open("SELECT Count(a.id) FROM members AS a, members AS b, members AS c"); }),
              "");
    database::SetCancelFlag(nullptr);
    EXPECT_EQ(Rows("SELECT id FROM members WHERE id = 1"), "1\n");
}

} // namespace
} // namespace qbrpt
