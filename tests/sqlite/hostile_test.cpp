// Damaged files and odd statements end in a Failure or in rows, never in a crash.
#include "fakes/fake_platform.h"
#include "sqlite/sqlite_tools.h"
#include "tools/temp_folder.h"

#include <gtest/gtest.h>

#include <random>

namespace qbrpt {
namespace {

class Hostile : public testing::Test {
protected:
    fakes::FakePlatform mPlatform;
    test::TempFolder mFolder;
    unsigned mSeed = std::random_device{}();
    std::mt19937 mRandom{mSeed};
};

TEST_F(Hostile, ADamagedFileIsReadOrRefused) {
    SCOPED_TRACE("seed " + std::to_string(mSeed));
    const auto whole = mFolder / "whole.db";
    test::MakeFile(whole, "CREATE TABLE t(id INTEGER PRIMARY KEY, name TEXT, d DATETIME);"
                          "CREATE INDEX t_name ON t(name); CREATE VIEW v AS SELECT * FROM t;"
                          "CREATE TABLE saved_query(name TEXT PRIMARY KEY, sql TEXT);"
                          "INSERT INTO saved_query VALUES('q', 'SELECT id FROM t');"
                          "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 300) "
                          "INSERT INTO t SELECT i, 'اسم ' || i, i FROM n");
    const std::string content = test::ContentOf(whole);
    int read = 0;
    int refused = 0;
    for (int round = 0; round < 300; ++round) {
        std::string damaged = content;
        for (std::size_t hits = 1 + mRandom() % 20; hits > 0; --hits)
            damaged[mRandom() % damaged.size()] = static_cast<char>(mRandom());
        if (round % 10 == 0) damaged.resize(mRandom() % damaged.size());
        const auto file = mFolder / "damaged.db";
        test::WriteContent(file, damaged);
        try {
            const auto database = test::OpenFile(file);
            for (const char* source : {"SELECT * FROM t ORDER BY name", "SELECT Count(id) FROM v", "q"})
                static_cast<void>(test::RowsText(database->OpenRecordset(source)));
            ++read;
        } catch (const Failure& failure) {
            EXPECT_FALSE(failure.Description().empty());
            ++refused;
        }
    }
    EXPECT_EQ(read + refused, 300);
    EXPECT_GT(refused, 0);
}

TEST_F(Hostile, AStatementOfAnyBytesIsRunOrRefused) {
    SCOPED_TRACE("seed " + std::to_string(mSeed));
    const auto file = mFolder / "cafe.db";
    test::MakeFile(file, "CREATE TABLE t(id INTEGER PRIMARY KEY, name TEXT); INSERT INTO t VALUES(1, 'a')");
    const auto database = test::OpenFile(file);
    const std::string pieces[] = {"SELECT ", "id", " FROM ",     "t",       "[",   "]", "'",
                                  "\"",      "(",  ")",          " WHERE ", "=",   "1", "&",
                                  "#",       ",",  " ORDER BY ", "\xFF",    "اسم", ";", "\r",
                                  "--",      "/*", " Is Null",   "First("};
    for (int round = 0; round < 3000; ++round) {
        std::string source = round % 2 == 0 ? "SELECT id FROM t WHERE " : "";
        for (std::size_t count = mRandom() % 12; count > 0; --count)
            source += pieces[mRandom() % std::size(pieces)];
        try {
            static_cast<void>(database->OpenRecordset(source));
        } catch (const Failure& failure) {
            EXPECT_FALSE(failure.Description().empty()) << source;
        }
    }
    EXPECT_EQ(test::RowsText(database->OpenRecordset("SELECT name FROM t")), "a\n");
}

TEST_F(Hostile, NamesThatNeedQuoting) {
    const auto file = mFolder / "cafe.db";
    test::MakeFile(file, "CREATE TABLE \"odd \"\"name' x\"(\"a b\" DATETIME, \"select\" INT);"
                         "INSERT INTO \"odd \"\"name' x\" VALUES(37787, 5);"
                         "CREATE TABLE saved_query(name TEXT PRIMARY KEY, sql TEXT)");
    const auto database = test::OpenFile(file);
    EXPECT_EQ(test::RowsText(database->OpenRecordset("SELECT [a b], [select] FROM [odd \"name' x]")),
              "#37787#|5\n");
    EXPECT_EQ(test::RowsText(database->OpenRecordset("[odd \"name' x]")), "#37787#|5\n");
    EXPECT_THROW(static_cast<void>(database->OpenRecordset("'; DROP TABLE saved_query --")), Failure);
    EXPECT_THROW(static_cast<void>(database->QueryDefs("' OR 1=1 --")), Failure);
}

TEST_F(Hostile, AFileThatCallsWhatIsHarmfulIsKeptFromIt) {
    const auto file = mFolder / "cafe.db";
    test::MakeFile(file, "CREATE TABLE t(id INTEGER PRIMARY KEY, name TEXT); INSERT INTO t VALUES(1, 'a');"
                         "CREATE VIEW v AS SELECT load_extension('/tmp/x.so') AS id FROM t");
    const auto database = test::OpenFile(file);
    EXPECT_THROW(static_cast<void>(database->OpenRecordset("SELECT id FROM v")), Failure);
    EXPECT_EQ(test::RowsText(database->OpenRecordset("SELECT name FROM t")), "a\n");
}

} // namespace
} // namespace qbrpt
