// What is said when a statement fails while it runs, or the file under it does: whole sentences.
#include "adapters/database/sqlite/sqlite_engine.h"
#include "fakes/fake_platform.h"
#include "sqlite/sqlite_tools.h"
#include "tools/temp_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <ostream>

namespace qbrpt {
namespace {

using test::FailureOf;
using test::MakeFile;
using test::OpenFile;
using test::Outsider;

struct RunTimeRow {
    const char* name;
    FailureNumber number;
    const char* expression;
    const char* words; ///< behind the statement
    friend void PrintTo(const RunTimeRow& row, std::ostream* out) { *out << row.name; }
};

class WordsAtRunTime : public testing::TestWithParam<RunTimeRow> {
    fakes::FakePlatform mPlatform;
};

TEST_P(WordsAtRunTime, NameTheStatementTheCallAndTheReason) {
    const test::TempFolder folder;
    MakeFile(folder / "x.db", "CREATE TABLE daily_sheet(date DATETIME, name TEXT);"
                              "INSERT INTO daily_sheet VALUES(3e7, 'أحمد')");
    const std::string source = std::string("SELECT ") + GetParam().expression + " FROM daily_sheet";
    const std::string text = FailureOf(
        GetParam().number, [&] { static_cast<void>(OpenFile(folder / "x.db")->OpenRecordset(source)); });
    EXPECT_EQ(text, "The statement \"" + source + "\" failed: " + GetParam().words);
}

const RunTimeRow RunTimeRows[] = {
    {"TooLargeForALong", FailureNumber::Overflow, "CLng(1e10)", "CLng(10000000000): Overflow."},
    {"TooLargeForAnInteger", FailureNumber::Overflow, "CInt(40000)", "CInt(40000): Overflow."},
    {"TooLargeForAByte", FailureNumber::Overflow, "CByte(256)", "CByte(256): Overflow."},
    {"DateTooLargeForALong", FailureNumber::Overflow, "CLng(date * 100)", "CLng(3000000000): Overflow."},
    {"NoNumber", FailureNumber::TypeMismatch, "CLng('abc')", "CLng(\"abc\"): The text \"abc\" is no number."},
    {"NoNumberInAColumn", FailureNumber::TypeMismatch, "CDbl(name)",
     "CDbl(\"أحمد\"): The text \"أحمد\" is no number."},
    {"NoDate", FailureNumber::TypeMismatch, "Year('soon')", "Year(\"soon\"): The text \"soon\" is no date."},
    {"NegativeLength", FailureNumber::InvalidArgument, "Left(name, -1)",
     "Left(\"أحمد\", -1): A length cannot be negative."},
    {"StartBeforeTheText", FailureNumber::InvalidArgument, "Replace(name, 'a', '', 0)",
     "Replace(\"أحمد\", \"a\", \"\", 0): Replace counts characters from 1."},
    {"DayOutOfRange", FailureNumber::InvalidArgument, "DateSerial(1, 2, 99999999)",
     "DateSerial(1, 2, 99999999): The number 99999999 does not lie between -10000000 and 10000000."},
    {"OpenBracket", FailureNumber::InvalidArgument, "name Like 'a['",
     "\"أحمد\" Like \"a[\": The pattern \"a[\" has a bracket that is not closed."},
    {"NegativePlaces", FailureNumber::InvalidArgument, "Round(2.5, -1)",
     "Round(2.5, -1): Round takes 0 to 15 places."},
    {"DateBeyondTheCalendar", FailureNumber::InvalidArgument, "Format(date, 'ddd dd MMM yyyy')",
     "Format(30000000, \"ddd dd MMM yyyy\"): A date number lies outside the years 100 to 9999."},
    {"DateBeyondTheCalendarJoined", FailureNumber::InvalidArgument, "'on ' & date",
     "the text of the date 30000000: A date number lies outside the years 100 to 9999."},
    {"PowerTooLarge", FailureNumber::Overflow, "10 ^ 400", "10 ^ 400: Overflow."},
    {"TextDivided", FailureNumber::TypeMismatch, "name \\ 2",
     "CDbl(\"أحمد\"): The text \"أحمد\" is no number."},
    {"WholeTooLarge", FailureNumber::Overflow, "1e300 \\ 2", "the whole number of 1e+300: Overflow."},
    {"LongText", FailureNumber::TypeMismatch, "CLng('0123456789 0123456789 0123456789 0123456789')",
     "CLng(\"0123456789 0123456789 0123456789 0123456...\"): The text \"0123456789 0123456789 0123456789 "
     "0123456\" is no number."},
};
INSTANTIATE_TEST_SUITE_P(Rows, WordsAtRunTime, testing::ValuesIn(RunTimeRows),
                         [](const auto& row) { return std::string(row.param.name); });

/// A file with a table whose rows fill many pages behind the first two.
class FileWords : public testing::Test {
protected:
    FileWords() {
        MakeFile(mFile, "CREATE TABLE t(id INTEGER PRIMARY KEY, name TEXT);"
                        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000) "
                        "INSERT INTO t SELECT i, 'a name of some length' FROM n");
    }

    [[nodiscard]] std::string Subject() const { return "The database \"" + mFile.string() + "\" "; }
    [[nodiscard]] std::string OpenWords(FailureNumber number, const std::filesystem::path& file) const {
        return FailureOf(number, [&] { static_cast<void>(OpenFile(file)); });
    }

    fakes::FakePlatform mPlatform;
    test::TempFolder mFolder;
    std::filesystem::path mFile = mFolder / "x.db";
};

TEST_F(FileWords, NotThere) {
    EXPECT_EQ(OpenWords(FailureNumber::FileNotFound, mFolder / "no.db"),
              "The database \"" + (mFolder / "no.db").string() + "\" does not exist. Check the file name.");
}

TEST_F(FileWords, LockedAtOpening) {
    Outsider other(mFile);
    other.Run("BEGIN EXCLUSIVE");
    EXPECT_EQ(OpenWords(FailureNumber::Locked, mFile),
              Subject() + "cannot be reached: another program holds it locked. Try again when that has "
                          "finished. (SQLite: database is locked)");
    other.Run("ROLLBACK");
}

TEST_F(FileWords, LockedLater) {
    Outsider host(mFile);
    Outsider other(mFile);
    const auto database = WrapSqliteHandle(host.Handle());
    other.Run("BEGIN EXCLUSIVE");
    const std::string words = Subject() + "cannot be reached: another program holds it locked. Try again "
                                          "when that has finished. (SQLite: database is locked)";
    EXPECT_EQ(FailureOf(FailureNumber::Locked,
                        [&] { static_cast<void>(database->OpenRecordset("SELECT id FROM t")); }),
              words);
    EXPECT_EQ(FailureOf(FailureNumber::Locked, [&] { database->Execute("DELETE FROM t"); }), words);
    other.Run("ROLLBACK");
}

TEST_F(FileWords, OnlyToBeRead) {
    EXPECT_EQ(
        FailureOf(FailureNumber::FileAccess, [&] { OpenFile(mFile, false, true)->Execute("DELETE FROM t"); }),
        Subject() + "cannot be written: it may only be read. (SQLite: attempt to write a readonly database)");
}

TEST_F(FileWords, DamagedAtItsHead) {
    std::fstream(mFile, std::ios::in | std::ios::out | std::ios::binary).seekp(100)
        << std::string(500, '\x17');
    EXPECT_EQ(OpenWords(FailureNumber::NotADatabase, mFile),
              Subject() + "is damaged. Restore it from a copy, or recover its rows with the .recover command "
                          "of the sqlite3 shell. (SQLite: database disk image is malformed)");
}

TEST_F(FileWords, DamagedFurtherIn) {
    constexpr int pageSize = 4096;
    std::fstream(mFile, std::ios::in | std::ios::out | std::ios::binary).seekp(4 * pageSize)
        << std::string(4 * pageSize, '\x17');
    const auto database = OpenFile(mFile);
    EXPECT_EQ(FailureOf(FailureNumber::NotADatabase,
                        [&] { static_cast<void>(database->OpenRecordset("SELECT name FROM t")); }),
              Subject() + "is damaged. Restore it from a copy, or recover its rows with the .recover command "
                          "of the sqlite3 shell. (SQLite: database disk image is malformed)");
}

TEST_F(FileWords, AFaultOfTheStatementNamesTheStatement) {
    EXPECT_EQ(FailureOf(FailureNumber::DatabaseEngine,
                        [&] { OpenFile(mFile)->Execute("INSERT INTO t(id) VALUES(1)"); }),
              "The statement \"INSERT INTO t(id) VALUES(1)\" was refused by the database engine. (SQLite: "
              "UNIQUE constraint failed: t.id)");
}

TEST_F(FileWords, ADatabaseInMemoryHasNoName) {
    sqlite3* handle = nullptr;
    ASSERT_EQ(sqlite3_open(":memory:", &handle), SQLITE_OK);
    sqlite3_exec(handle, "CREATE TABLE t(id INT); PRAGMA query_only = 1", nullptr, nullptr, nullptr);
    EXPECT_EQ(
        FailureOf(FailureNumber::FileAccess, [&] { WrapSqliteHandle(handle)->Execute("DELETE FROM t"); }),
        "The database cannot be written: it may only be read. (SQLite: attempt to write a readonly "
        "database)");
    sqlite3_close(handle);
}

} // namespace
} // namespace qbrpt
