// Opening a file: what is wrong with it is said in its own words, and nothing is made or changed.
#include "adapters/database/sqlite/sqlite_engine.h"
#include "fakes/fake_platform.h"
#include "sqlite/sqlite_tools.h"
#include "tools/temp_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <ostream>

namespace qbrpt {
namespace {

using test::FailureOf;
using test::MakeFile;
using test::OpenFile;
using test::OrdinaryUser;
using test::Outsider;
using test::RowsText;
using test::TempFolder;
using test::WriteContent;

constexpr const char* SmallSchema = "CREATE TABLE host_src(id INTEGER PRIMARY KEY, name TEXT);"
                                    "INSERT INTO host_src VALUES(1, 'جهاز 1')";

std::string Padded(std::string text) {
    text.resize(4096, '\x17');
    return text;
}

struct BadFile {
    const char* name;
    std::string content;
    const char* word; ///< in the description
    friend void PrintTo(const BadFile& file, std::ostream* out) { *out << file.name; }
};

class BadFiles : public testing::TestWithParam<BadFile> {
    fakes::FakePlatform mPlatform;
};

class Open : public testing::Test {
    fakes::FakePlatform mPlatform;
};

TEST_P(BadFiles, IsRefusedInItsOwnWordsAndLeftAlone) {
    const TempFolder folder;
    WriteContent(folder / "x.db", GetParam().content);
    const std::string text = FailureOf(FailureNumber::NotADatabase, [&] { OpenFile(folder / "x.db"); });
    EXPECT_NE(text.find(GetParam().word), std::string::npos) << text;
    EXPECT_NE(text.find("x.db"), std::string::npos) << text;
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"x.db"});
    EXPECT_EQ(test::ContentOf(folder / "x.db"), GetParam().content);
}

INSTANTIATE_TEST_SUITE_P(
    Files, BadFiles,
    testing::Values(BadFile{"Empty", "", "empty"}, BadFile{"OneByte", "S", "empty"},
                    BadFile{"TwoBytes", "SQ", "no SQLite database"},
                    BadFile{"Text", "this is a letter and no database at all", "no SQLite database"},
                    BadFile{"Garbage", Padded("\x01\x02\x03"), "encrypted"},
                    BadFile{"JetFile", Padded(std::string("\0\1\0\0Standard Jet DB\0", 20)), "Access"},
                    BadFile{"AceFile", Padded(std::string("\0\1\0\0Standard ACE DB\0", 20)), "Access"},
                    BadFile{"HeaderAlone", std::string("SQLite format 3\0", 16), "no SQLite database"},
                    BadFile{"HeaderAndGarbage", Padded(std::string("SQLite format 3\0", 16)), "x.db"}),
    [](const auto& each) { return std::string(each.param.name); });

TEST_F(Open, AMissingFileIsNotMade) {
    const TempFolder folder;
    for (const char* name : {"none.db", "no/such/folder.db", ":memory:"}) {
        SCOPED_TRACE(name);
        const std::string text = FailureOf(FailureNumber::FileNotFound, [&] { OpenFile(folder / name); });
        EXPECT_NE(text.find(name), std::string::npos) << text;
    }
    EXPECT_TRUE(folder.Names().empty());
}

TEST_F(Open, NamesThatSqliteWouldReadOtherwiseAreFileNames) {
    for (const char* name : {":memory:", "file::memory:", "file:x.db?mode=memory", ""}) {
        SCOPED_TRACE(name);
        EXPECT_NE(FailureOf(FailureNumber::FileNotFound,
                            [&] { return MakeSqliteEngine()->OpenDatabase(name, false, false, ""); }),
                  "");
    }
    EXPECT_NE(
        FailureOf(FailureNumber::InvalidArgument,
                  [&] { return MakeSqliteEngine()->OpenDatabase(std::string("a\0b", 3), false, false, ""); }),
        "");
}

TEST_F(Open, AFolderAndAPipeAreNoDatabases) {
    const TempFolder folder;
    EXPECT_NE(FailureOf(FailureNumber::NotADatabase, [&] { OpenFile(folder.Path()); }).find("folder"),
              std::string::npos);
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_NE(FailureOf(FailureNumber::NotADatabase, [&] { OpenFile(folder / "pipe"); }), "");
}

TEST_F(Open, ServersAndUnknownConnectTextsAreRefused) {
    const TempFolder folder;
    MakeFile(folder / "x.db", SmallSchema);
    for (const char* connect :
         {"postgresql://host/cafe", "MariaDB://host/cafe", "ODBC;DSN=cafe", " odbc;DSN=cafe"}) {
        SCOPED_TRACE(connect);
        const std::string text =
            FailureOf(FailureNumber::NotThereYet, [&] { OpenFile(folder / "x.db", false, false, connect); });
        EXPECT_NE(text.find("yet"), std::string::npos) << text;
    }
    const std::string text = FailureOf(FailureNumber::InvalidArgument,
                                       [&] { OpenFile(folder / "x.db", false, false, ";pwd=secret"); });
    EXPECT_EQ(text.find("secret"), std::string::npos) << text;
    for (const char* connect : {"", "  ", ";"})
        EXPECT_FALSE(OpenFile(folder / "x.db", false, false, connect).Empty());
}

TEST_F(Open, NamesWithArabicBlanksAndSigns) {
    const TempFolder folder;
    for (const char* name : {"مقهى الانترنت.db", "a b?c#d%41.db", "file:x.db"}) {
        SCOPED_TRACE(name);
        MakeFile(folder / name, SmallSchema);
        EXPECT_EQ(RowsText(OpenFile(folder / name)->OpenRecordset("SELECT id FROM host_src")), "1\n");
    }
}

TEST_F(Open, AFileThatMayNotBeReadIsToldSo) {
    const TempFolder folder;
    ::chmod(folder.Path().c_str(), 0755);
    MakeFile(folder / "x.db", SmallSchema);
    ::chmod((folder / "x.db").c_str(), 0);
    const OrdinaryUser user;
    const std::string text = FailureOf(FailureNumber::FileAccess, [&] { OpenFile(folder / "x.db"); });
    EXPECT_NE(text.find("x.db"), std::string::npos) << text;
}

TEST_F(Open, AFileThatMayNotBeWrittenCanBeRead) {
    const TempFolder folder;
    ::chmod(folder.Path().c_str(), 0755);
    MakeFile(folder / "x.db", SmallSchema);
    ::chmod((folder / "x.db").c_str(), 0444);
    const OrdinaryUser user;
    const auto database = OpenFile(folder / "x.db");
    EXPECT_EQ(RowsText(database->OpenRecordset("SELECT id FROM host_src")), "1\n");
    EXPECT_NE(FailureOf(FailureNumber::FileAccess, [&] { database->Execute("DELETE FROM host_src"); }), "");
}

TEST_F(Open, ReadOnlyRefusesToWrite) {
    const TempFolder folder;
    MakeFile(folder / "x.db", SmallSchema);
    const auto database = OpenFile(folder / "x.db", false, true);
    EXPECT_EQ(RowsText(database->OpenRecordset("SELECT id FROM host_src")), "1\n");
    EXPECT_NE(FailureOf(FailureNumber::FileAccess, [&] { database->Execute("DELETE FROM host_src"); }), "");
}

TEST_F(Open, TheJournalModeStaysAsItIsFound) {
    const TempFolder folder;
    for (const std::string mode : {"delete", "wal", "persist"}) {
        SCOPED_TRACE(mode);
        const auto file = folder / (mode + ".db");
        MakeFile(file, "PRAGMA journal_mode=" + mode + ";" + SmallSchema);
        {
            const auto database = OpenFile(file);
            EXPECT_EQ(RowsText(database->OpenRecordset("SELECT id FROM host_src")), "1\n");
            database->Execute("INSERT INTO host_src(id, name) VALUES(2, 'x')");
        }
        const std::string kept = Outsider(file).Ask("PRAGMA journal_mode");
        EXPECT_EQ(kept, mode == "persist" ? "delete" : mode); // only WAL lives in the file itself
    }
}

TEST_F(Open, AWalFileInAFolderThatTakesNoFilesIsRead) {
    const TempFolder folder;
    MakeFile(folder / "x ?#.db", std::string("PRAGMA journal_mode=wal;") + SmallSchema);
    ASSERT_EQ(folder.Names().size(), 1U); // the log went with its last user
    ::chmod(folder.Path().c_str(), 0555);
    const OrdinaryUser user;
    EXPECT_EQ(RowsText(OpenFile(folder / "x ?#.db")->OpenRecordset("SELECT id FROM host_src")), "1\n");
}

TEST_F(Open, AFileReadAsUnchangingIsGivenUpWhenItChanges) {
    const TempFolder folder;
    const auto file = folder / "x.db";
    MakeFile(file, std::string("PRAGMA journal_mode=wal;") + SmallSchema);
    ::chmod(folder.Path().c_str(), 0555);
    Ref<DAO::Database> database;
    {
        const OrdinaryUser user;
        database = OpenFile(file);
        EXPECT_EQ(RowsText(database->OpenRecordset("SELECT id FROM host_src")), "1\n");
    }
    const auto refused = [&] {
        return FailureOf(FailureNumber::FileAccess,
                         [&] { return database->OpenRecordset("SELECT id FROM host_src"); });
    };
    ::chmod(folder.Path().c_str(), 0755);
    {
        Outsider writer(file);
        writer.Run("INSERT INTO host_src VALUES(2, 'x')");
        EXPECT_NE(refused().find("writes"), std::string::npos) << "while the entry is in the log";
    }
    EXPECT_NE(refused(), "") << "after the entry has come into the file";
    EXPECT_EQ(RowsText(OpenFile(file)->OpenRecordset("SELECT id FROM host_src")), "1\n2\n");
}

TEST_F(Open, AWalFileWithWaitingEntriesInAClosedFolderIsToldSo) {
    const TempFolder folder;
    {
        MakeFile(folder / "made.db", std::string("PRAGMA journal_mode=wal;") + SmallSchema);
        Outsider writer(folder / "made.db");
        writer.Run("INSERT INTO host_src VALUES(2, 'x')");
        // A copy of the pair, as a copy of a running café's folder has it.
        std::filesystem::copy_file(folder / "made.db", folder / "x.db");
        std::filesystem::copy_file(folder / "made.db-wal", folder / "x.db-wal");
    }
    ::chmod((folder / "x.db").c_str(), 0444);
    ::chmod((folder / "x.db-wal").c_str(), 0444);
    ::chmod(folder.Path().c_str(), 0555);
    const OrdinaryUser user;
    const std::string text = FailureOf(FailureNumber::FileAccess, [&] { OpenFile(folder / "x.db"); });
    EXPECT_NE(text.find("x.db-wal"), std::string::npos) << text;
}

TEST_F(Open, ExclusiveKeepsOthersOut) {
    const TempFolder folder;
    MakeFile(folder / "x.db", SmallSchema);
    auto database = OpenFile(folder / "x.db", true);
    {
        Outsider other(folder / "x.db");
        EXPECT_THROW(other.Run("SELECT count(*) FROM host_src"), std::runtime_error);
    }
    EXPECT_EQ(RowsText(database->OpenRecordset("SELECT id FROM host_src")), "1\n");
    database->Execute("UPDATE host_src SET name = 'y'");
    database.Clear();
    EXPECT_EQ(Outsider(folder / "x.db").Ask("SELECT name FROM host_src"), "y");
}

TEST_F(Open, ADatabaseThatAnotherProcessHoldsIsToldLocked) {
    const TempFolder folder;
    MakeFile(folder / "x.db", SmallSchema);
    int ready[2];
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        sqlite3* handle = nullptr;
        sqlite3_open((folder / "x.db").c_str(), &handle);
        const char done =
            sqlite3_exec(handle, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr) == SQLITE_OK ? 'y' : 'n';
        if (::write(ready[1], &done, 1) != 1) ::_exit(1);
        for (;;)
            ::pause();
    }
    char done = 'n';
    ASSERT_EQ(::read(ready[0], &done, 1), 1);
    ASSERT_EQ(done, 'y');
    const std::string text = FailureOf(FailureNumber::Locked, [&] { OpenFile(folder / "x.db"); });
    EXPECT_NE(text.find("locked"), std::string::npos) << text;
    EXPECT_NE(text.find("x.db"), std::string::npos) << text;
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(ready[0]);
    ::close(ready[1]);
    EXPECT_EQ(RowsText(OpenFile(folder / "x.db")->OpenRecordset("SELECT id FROM host_src")), "1\n");
}

// Closing any other opening of a file gives up all locks of the process on it.
TEST_F(Open, ReadingTheHeaderKeepsTheLocksOfAnotherConnectionOfTheProcess) {
    const TempFolder folder;
    MakeFile(folder / "x.db", SmallSchema);
    Outsider own(folder / "x.db");
    own.Run("BEGIN IMMEDIATE; INSERT INTO host_src VALUES(9, 'z')");
    OpenFile(folder / "x.db", false, true).Clear();
    const pid_t child = ::fork();
    if (child == 0) {
        sqlite3* handle = nullptr;
        sqlite3_open((folder / "x.db").c_str(), &handle);
        ::_exit(sqlite3_exec(handle, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) == SQLITE_BUSY ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0) << "another process could write beside an open transaction";
    own.Run("COMMIT");
}

} // namespace
} // namespace qbrpt
