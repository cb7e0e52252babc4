// Saved parameter queries, kept in the database's own table.
#include "fakes/fake_platform.h"
#include "sqlite/sqlite_tools.h"
#include "tools/temp_folder.h"

#include <gtest/gtest.h>

namespace qbrpt {
namespace {

using test::FailureOf;
using test::RowsText;

class SavedQueries : public testing::Test {
protected:
    SavedQueries() {
        test::MakeFile(mFile, "CREATE TABLE days(id INTEGER PRIMARY KEY, d DATETIME);"
                              "INSERT INTO days VALUES(1, 37787), (2, 37788), (3, 37789);"
                              "CREATE TABLE saved_query(name TEXT PRIMARY KEY, sql TEXT);");
        Save("Period", "PARAMETERS [first] Long, [last] Long; SELECT id FROM days "
                       "WHERE [first] Is Null OR id BETWEEN [first] AND [last] ORDER BY id");
        mDatabase = test::OpenFile(mFile);
    }

    void Save(const std::string& name, const std::string& sql) {
        test::Outsider(mFile).Run("INSERT INTO saved_query VALUES('" + name + "', '" + sql + "')");
    }

    fakes::FakePlatform mPlatform;
    test::TempFolder mFolder;
    std::filesystem::path mFile = mFolder / "cafe.db";
    Ref<DAO::Database> mDatabase;
};

TEST_F(SavedQueries, RunWithValuesByPosition) {
    const auto query = mDatabase->QueryDefs("PERIOD");
    query->SetParameter(0, std::int64_t{2});
    query->SetParameter(1, std::int64_t{3});
    EXPECT_EQ(RowsText(query->OpenRecordset()), "2\n3\n");
    query->SetParameter(0, std::int64_t{1});
    query->SetParameter(1, std::int64_t{1});
    EXPECT_EQ(RowsText(query->OpenRecordset()), "1\n");
}

TEST_F(SavedQueries, NullIsAValue) {
    const auto query = mDatabase->QueryDefs("period");
    query->SetParameter(0, Null{});
    query->SetParameter(1, Null{});
    EXPECT_EQ(RowsText(query->OpenRecordset()), "1\n2\n3\n");
}

TEST_F(SavedQueries, AMissingQueryIsNamed) {
    EXPECT_NE(
        FailureOf(FailureNumber::NotInCollection, [&] { return mDatabase->QueryDefs("none"); }).find("none"),
        std::string::npos);
    test::Outsider(mFile).Run("DROP TABLE saved_query");
    EXPECT_NE(FailureOf(FailureNumber::NotInCollection, [&] { return mDatabase->QueryDefs("Period"); }), "");
}

TEST_F(SavedQueries, AParameterThatIsNotThere) {
    const auto query = mDatabase->QueryDefs("Period");
    for (const int index : {2, -1})
        EXPECT_NE(FailureOf(FailureNumber::NotInCollection, [&] { query->SetParameter(index, Null{}); }), "");
}

TEST_F(SavedQueries, AParameterWithoutAValueIsNamed) {
    const auto query = mDatabase->QueryDefs("Period");
    query->SetParameter(0, std::int64_t{1});
    const std::string text = FailureOf(FailureNumber::UnknownName, [&] { return query->OpenRecordset(); });
    EXPECT_NE(text.find("\"last\""), std::string::npos) << text;
    EXPECT_EQ(text.find("\"first\""), std::string::npos) << text;
    EXPECT_NE(FailureOf(FailureNumber::UnknownName, [&] { return mDatabase->OpenRecordset("Period"); }), "");
}

TEST_F(SavedQueries, AChangedTextIsUsedAtTheNextLookUp) {
    test::Outsider(mFile).Run("UPDATE saved_query SET sql = 'SELECT d FROM days WHERE id = 1'");
    EXPECT_EQ(RowsText(mDatabase->QueryDefs("Period")->OpenRecordset()), "#37787#\n");
}

TEST_F(SavedQueries, AWrongTextFailsWhereItRuns) {
    Save("wrong", "SELECT FROM WHERE");
    Save("writes", "DELETE FROM days");
    const auto wrong = mDatabase->QueryDefs("wrong");
    EXPECT_NE(FailureOf(FailureNumber::SyntaxError, [&] { return wrong->OpenRecordset(); }), "");
    const auto writes = mDatabase->QueryDefs("writes");
    EXPECT_NE(FailureOf(FailureNumber::WriteRefused, [&] { return writes->OpenRecordset(); }), "");
}

TEST_F(SavedQueries, AQueryOutlivesTheDatabaseReference) {
    const auto query = mDatabase->QueryDefs("Period");
    mDatabase.Clear();
    query->SetParameter(0, Null{});
    query->SetParameter(1, Null{});
    EXPECT_EQ(RowsText(query->OpenRecordset()), "1\n2\n3\n");
}

} // namespace
} // namespace qbrpt
