// What is said about statements that can't be run: the number, the words, the place.
#include "dialect/cafe_database.h"
#include "dialect/diagnostics.h"

#include <gtest/gtest.h>

namespace qbrpt::dialect {
namespace {

struct Row {
    const char* name;
    std::string text;
    const char* words;
};

class Errors : public testing::TestWithParam<Row> {};

TEST_P(Errors, AreSaidWithTheirPlace) {
    SmallDatabase database;
    FillCafe(database);
    database.Save("loop", "SELECT * FROM loop");
    database.Save("bad", "SELECT id\r\nFORM users");
    database.Save("writer", "DELETE FROM users");
    EXPECT_EQ(database.Error(GetParam().text), GetParam().words);
}

const Row Rows[] = {
    {"Empty", "", "3075: The statement is empty (line 1, column 1, at the end of the statement)."},
    {"Blank", " \r\n ", "3075: The statement is empty (line 2, column 2, at the end of the statement)."},
    {"NoStatement", "hello",
     "3075: Expected SELECT, INSERT, UPDATE or DELETE (line 1, column 1, at \"hello\")."},
    {"Pragma", "PRAGMA journal_mode",
     "3027: PRAGMA is refused: a statement reads with SELECT, or writes rows with INSERT, UPDATE or "
     "DELETE (line 1, column 1, at \"PRAGMA\")."},
    {"Attach", "ATTACH 'x' AS y",
     "3027: ATTACH is refused: a statement reads with SELECT, or writes rows with INSERT, UPDATE or "
     "DELETE (line 1, column 1, at \"ATTACH\")."},
    {"Drop", "DROP TABLE users",
     "3027: DROP is refused: a statement reads with SELECT, or writes rows with INSERT, UPDATE or "
     "DELETE (line 1, column 1, at \"DROP\")."},
    {"Create", "CREATE TABLE b AS SELECT * FROM users",
     "3027: CREATE is refused: a statement reads with SELECT, or writes rows with INSERT, UPDATE or "
     "DELETE (line 1, column 1, at \"CREATE\")."},
    {"Alter", "alter TABLE users ADD COLUMN x INT",
     "3027: alter is refused: a statement reads with SELECT, or writes rows with INSERT, UPDATE or "
     "DELETE (line 1, column 1, at \"alter\")."},
    {"Into", "SELECT id, user_name INTO b FROM users",
     "3027: SELECT with INTO is refused: a SELECT reads rows and makes no table (line 1, column 22, at "
     "\"INTO\")."},
    {"IntoWithoutATable", "SELECT 1 INTO b",
     "3027: SELECT with INTO is refused: a SELECT reads rows and makes no table (line 1, column 10, at "
     "\"INTO\")."},
    {"IntoInsideAUnion", "SELECT id FROM users UNION SELECT id INTO b FROM members",
     "3027: SELECT with INTO is refused: a SELECT reads rows and makes no table (line 1, column 38, at "
     "\"INTO\")."},
    {"SecondDrop", "SELECT id FROM users; DROP TABLE users",
     "3027: One statement at a time: a second one begins here (line 1, column 23, at \"DROP\")."},
    {"MisspeltFrom", "SELECT id FORM users",
     "3075: The statement should end here (line 1, column 11, at \"FORM\")."},
    {"SecondLine", "SELECT id\rFROM users\rWHERE id == 1",
     "3075: Expected a column, a value or a function (line 3, column 11, at \"=\")."},
    {"WindowsLineEnds", "SELECT id\r\nFROM users\r\nWHERE",
     "3075: Expected a column, a value or a function (line 3, column 6, at the end of the statement)."},
    {"ArabicCountsByCharacters", "SELECT 'عميل' FROM users WHERE )",
     "3075: Expected a column, a value or a function (line 1, column 32, at \")\")."},
    {"Apostrophe", "INSERT INTO account_src(accid, name) VALUES(4, 'O'Brien')",
     "3075: Expected \")\" (line 1, column 51, at \"Brien\")."},
    {"OpenText", "SELECT 'abc",
     "3075: The text that begins here has no closing quote (line 1, column 8, at \"'abc\")."},
    {"OpenBracket", "SELECT [abc FROM users",
     "3075: The name that begins here has no closing bracket (line 1, column 8, at \"[abc FROM users\")."},
    {"EmptyBrackets", "SELECT [] FROM users",
     "3075: A name is missing between the brackets (line 1, column 8, at \"[]\")."},
    {"OpenDate", "SELECT #6/15",
     "3075: The date that begins here has no closing # (line 1, column 8, at \"#6/15\")."},
    {"NoDate", "SELECT #31/31/2003#",
     "3075: This is no date; write it as #month/day/year# (line 1, column 8, at \"#31/31/2003#\")."},
    {"NoSuchDay", "SELECT #2/30/2003#",
     "3075: This is no date; write it as #month/day/year# (line 1, column 8, at \"#2/30/2003#\")."},
    {"StrangeCharacter", "SELECT id FROM users WHERE id = @x",
     "3075: A statement can't hold this character (line 1, column 33, at \"@\")."},
    {"NulCharacter", std::string("SELECT \0 1", 10),
     "3075: A statement can't hold this character (line 1, column 8, at \""
     "\xEF\xBF\xBD"
     "\")."},
    {"NotUtf8", "SELECT '\xE3\xE1' FROM users",
     "3075: The statement is not valid UTF-8 (line 1, column 9, at \"\xEF\xBF\xBD\")."},
    {"HugeNumber", "SELECT 1e999", "3075: This number is out of range (line 1, column 8, at \"1e999\")."},
    {"MissingOperand", "SELECT 1 + FROM users",
     "3075: Expected a column, a value or a function (line 1, column 12, at \"FROM\")."},
    {"MissingParenthesis", "SELECT (1 + 2 FROM users",
     "3075: Expected \")\" (line 1, column 15, at \"FROM\")."},
    {"MissingOn", "SELECT * FROM users INNER JOIN members WHERE 1 = 1",
     "3075: Expected ON (line 1, column 40, at \"WHERE\")."},
    {"MissingTable", "SELECT * FROM",
     "3075: Expected the name of a table (line 1, column 14, at the end of the statement)."},
    {"MissingBy", "SELECT * FROM users ORDER id", "3075: Expected BY (line 1, column 27, at \"id\")."},
    {"MissingAnd", "SELECT 1 Between 2 3", "3075: Expected AND (line 1, column 20, at \"3\")."},
    {"NotAlone", "SELECT 1 Not 2",
     "3075: Expected Between, In or Like behind Not (line 1, column 14, at \"2\")."},
    {"ColumnAliasNeedsAs", "SELECT id number FROM users",
     "3075: The statement should end here (line 1, column 11, at \"number\")."},
    {"ReservedAsName", "SELECT from FROM users",
     "3075: Expected a column, a value or a function (line 1, column 8, at \"from\")."},
    {"SecondStatement", "SELECT id FROM users; DELETE FROM users",
     "3027: One statement at a time: a second one begins here (line 1, column 23, at \"DELETE\")."},
    {"SecondPragma", "SELECT id FROM users; PRAGMA x",
     "3027: One statement at a time: a second one begins here (line 1, column 23, at \"PRAGMA\")."},
    {"FewerValues", "INSERT INTO users(id, user_name) VALUES(1)",
     "3075: There are fewer values than columns (line 1, column 42, at \")\")."},
    {"MoreValues", "INSERT INTO users(id) VALUES(1, 2)",
     "3075: There are more values than columns (line 1, column 33, at \"2\")."},
    {"FewerValuesThanTheTableHas", "INSERT INTO users VALUES(1)",
     "3075: There are 1 values for the 2 columns of the table (line 1, column 13, at \"users\")."},
    {"UpdateJoin", "UPDATE users INNER JOIN members ON 1 = 1 SET id = 1",
     "3075: UPDATE takes one table, without a join (line 1, column 25, at \"members\")."},
    {"NoSuchTable", "SELECT * FROM userz",
     "3061: The database has no table or query \"userz\" (line 1, column 15, at \"userz\")."},
    {"NoSuchTarget", "DELETE FROM userz",
     "3061: The database has no table \"userz\" (line 1, column 13, at \"userz\")."},
    {"NoSuchColumnOfTable", "SELECT u.nam FROM users AS u",
     "3061: \"u\" has no column \"nam\" (line 1, column 10, at \"nam\")."},
    {"NoSuchAlias", "SELECT x.id FROM users AS u",
     "3061: The FROM clause has no \"x\" (line 1, column 10, at \"id\")."},
    {"NoSuchStar", "SELECT x.* FROM users AS u",
     "3061: The FROM clause has no \"x\" (line 1, column 8, at \"x\")."},
    {"StarOfNothing", "SELECT *", "3061: There is no table behind this \"*\" (line 1, column 8, at \"*\")."},
    {"NoSuchFunction", "SELECT Frobnicate(1)",
     "3061: There is no function \"Frobnicate\" (line 1, column 8, at \"Frobnicate\")."},
    {"NoSuchStoredColumn", "UPDATE users SET nam = 'x'",
     "3061: The table \"users\" has no column \"nam\" (line 1, column 18, at \"nam\")."},
    {"Ambiguous", "SELECT id FROM users, members",
     "3061: The name \"id\" could mean a column of \"users\" and \"members\"; put the table in front of it "
     "(line 1, "
     "column 8, at \"id\")."},
    {"AmbiguousOfThree", "SELECT [id] FROM users, members, host_src",
     "3061: The name \"id\" could mean a column of \"users\", \"members\" and \"host_src\"; put the table in "
     "front of "
     "it (line 1, column 8, at \"[id]\")."},
    {"TwiceTheSameName", "SELECT 1 FROM users, users",
     "3075: \"users\" stands twice in this FROM clause; give one an alias (line 1, column 22, at "
     "\"users\")."},
    {"TooFewArguments", "SELECT Left('a')",
     "3075: Left takes 2 arguments, not 1 (line 1, column 8, at \"Left\")."},
    {"TooManyArguments", "SELECT Mid('a', 1, 2, 3)",
     "3075: Mid takes 2 to 3 arguments, not 4 (line 1, column 8, at \"Mid\")."},
    {"OddSwitch", "SELECT Switch(1, 2, 3)",
     "3075: Switch takes pairs of a condition and a value (line 1, column 8, at "
     "\"Switch\")."},
    {"StarArgument", "SELECT Sum(*) FROM users",
     "3075: Only Count takes \"*\" (line 1, column 8, at \"Sum\")."},
    {"AggregateInWhere", "SELECT id FROM users WHERE Sum(id) > 1",
     "3075: The aggregate Sum can't stand in WHERE (line 1, column 28, at \"Sum\")."},
    {"AggregateInAggregate", "SELECT Sum(Max(id)) FROM users",
     "3075: The aggregate Max can't stand inside another aggregate (line 1, column 12, at \"Max\")."},
    {"AggregateOfTheOuterSelect", "SELECT (SELECT Sum(u.id) FROM members) FROM users AS u",
     "3075: The aggregate Sum looks at columns of an outer SELECT only (line 1, column 16, at \"Sum\")."},
    {"AggregateInGroupBy", "SELECT 1 FROM users GROUP BY Sum(id)",
     "3075: The aggregate Sum can't stand in GROUP BY (line 1, column 30, at \"Sum\")."},
    {"AggregateAliasInWhere", "SELECT Sum(id) AS s FROM users WHERE s > 1",
     "3075: \"s\" is an aggregate and can't stand in WHERE (line 1, column 38, at \"s\")."},
    {"NotGrouped", "SELECT user_name, Count(*) FROM users",
     "3075: \"user_name\" stands beside an aggregate; name it in GROUP BY too (line 1, column 8, at "
     "\"user_name\")."},
    {"NotGroupedInOrder", "SELECT Count(*) FROM users ORDER BY user_name",
     "3075: \"user_name\" stands beside an aggregate; name it in GROUP BY too (line 1, column 37, at "
     "\"user_name\")."},
    {"NotGroupedInside",
     "SELECT Max(id), (SELECT Max(id) FROM members WHERE members.name = users.user_name) FROM users",
     "3075: \"user_name\" stands beside an aggregate; name it in GROUP BY too (line 1, column 73, at "
     "\"user_name\")."},
    {"StarInAGroup", "SELECT *, Count(*) FROM users",
     "3075: \"id\" stands beside an aggregate; name it in GROUP BY too (line 1, column 8, at \"*\")."},
    {"OrderByNumberOutside", "SELECT id FROM users ORDER BY 2",
     "3075: ORDER BY counts columns that are not there (line 1, column 31, at \"2\")."},
    {"DistinctOrder", "SELECT DISTINCT id FROM users ORDER BY user_name",
     "3075: With DISTINCT, ORDER BY can only name columns of the SELECT list (line 1, column 40, at "
     "\"user_name\")."},
    {"UnionColumns", "SELECT id FROM users UNION SELECT id, name FROM members",
     "3075: The parts of a UNION must have the same number of columns (line 1, column 35, at \"id\")."},
    {"UnionOrder", "SELECT id FROM users UNION SELECT id FROM members ORDER BY id + 1",
     "3075: ORDER BY of a UNION can only name columns of its first SELECT (line 1, column 63, at \"+\")."},
    {"TwoColumnsInside", "SELECT (SELECT id, user_name FROM users)",
     "3075: A SELECT inside an expression gives one column (line 1, column 8, at \"(\")."},
    {"AliasOfItself", "SELECT a + 1 AS a",
     "3075: The column \"a\" refers to itself (line 1, column 8, at \"a\")."},
    {"AliasesInACircle", "SELECT b AS a, a AS b",
     "3075: The column \"a\" refers to itself (line 1, column 16, at \"a\")."},
    {"StarInAnExpression", "SELECT 1 + users.* FROM users",
     "3075: \"*\" can only stand in a SELECT list (line 1, column 12, at \"users\")."},
    {"JoinConditionOfAnotherTable",
     "SELECT 1 FROM (users AS a INNER JOIN users AS b ON a.id = c.id), users AS c",
     "3075: \"c\" has no part in this join; name it in WHERE (line 1, column 61, at \"id\")."},
    {"OuterColumnInGroupBy", "SELECT (SELECT Max(id) FROM users GROUP BY m.id) FROM members AS m",
     "3061: The FROM clause has no \"m\" (line 1, column 46, at \"id\")."},
    {"HavingAlone", "SELECT id FROM users HAVING id > 1",
     "3075: HAVING needs a GROUP BY, or an aggregate in the SELECT list (line 1, column 32, at \">\")."},
    {"NulInAText", std::string("SELECT 'a\0b'", 12),
     "3075: A statement can't hold this character (line 1, column 10, at \"\xEF\xBF\xBD\")."},
    {"ThreePartName", "SELECT a.b.c FROM users",
     "3075: A name has at most two parts (line 1, column 12, at \"c\")."},
    {"SavedQueryOfItself", "SELECT * FROM loop",
     "3075: In the saved query \"loop\": The saved query \"loop\" is built on itself (line 1, column 15, at "
     "\"loop\")."},
    {"SavedQueryIsBad", "SELECT * FROM bad",
     "3075: In the saved query \"bad\": The statement should end here (line 2, column 1, at \"FORM\")."},
    {"SavedQueryWrites", "SELECT * FROM writer",
     "3027: The saved query \"writer\" writes, so it can't be read from (line 1, column 15, at \"writer\")."},
    {"ParameterWithoutType", "PARAMETERS a; SELECT 1",
     "3075: Expected the type of the parameter, such as Long, Double or DateTime (line 1, column 13, at "
     "\";\")."},
    {"LongWordIsCut", "SELECT 1 " + std::string(60, 'x'),
     "3075: The statement should end here (line 1, column 10, at "
     "\"xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...\")."},
};

std::string RowName(const testing::TestParamInfo<Row>& row) {
    return row.param.name;
}
INSTANTIATE_TEST_SUITE_P(Rows, Errors, testing::ValuesIn(Rows), RowName);

TEST(ErrorPlaces, CountLinesAndCharacters) {
    const std::string text = "ab\ncd\r\nعميل x";
    EXPECT_EQ(PlaceOf(text, 1).column, 2);
    EXPECT_EQ(PlaceOf(text, 3).line, 2);
    EXPECT_EQ(PlaceOf(text, 7).line, 3);
    EXPECT_EQ(PlaceOf(text, 7 + 9).column, 6);
    EXPECT_EQ(PlaceOf(text, 1000).line, 3);
}

std::string Repeat(const std::string& piece, int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += piece;
    return text;
}

// Statements that would exhaust the stack, the memory or the patience of a program without limits.
TEST(Limits, EndInWords) {
    SmallDatabase database;
    FillCafe(database);
    std::string aliases = "SELECT id + id AS a0";
    for (int i = 1; i < 60; ++i)
        aliases +=
            ", a" + std::to_string(i - 1) + " + a" + std::to_string(i - 1) + " AS a" + std::to_string(i);
    for (int i = 0; i < 10; ++i)
        database.Save("q" + std::to_string(i), "SELECT a.id FROM q" + std::to_string(i + 1) + " AS a, q" +
                                                   std::to_string(i + 1) + " AS b");
    database.Save("q10", "SELECT id FROM users");
    const std::pair<const char*, std::string> rows[] = {
        {"parentheses", "SELECT " + std::string(100'000, '(') + "1"},
        {"negations", "SELECT " + Repeat("Not ", 100'000) + "1"},
        {"minuses", "SELECT " + std::string(100'000, '-') + "1"},
        {"sum", "SELECT 1" + Repeat("+1", 100'000)},
        {"joined texts", "SELECT 'a'" + Repeat("&'a'", 100'000)},
        {"calls", "SELECT " + Repeat("Abs(", 50'000) + "1"},
        {"tests", "SELECT 1" + Repeat(" Is Null", 50'000)},
        {"queries", "SELECT " + Repeat("(SELECT ", 50'000) + "1"},
        {"sources", "SELECT 1 FROM " + Repeat("(SELECT * FROM ", 50'000)},
        {"joins", "SELECT 1 FROM " + std::string(100'000, '(') + "users"},
        {"tables", "SELECT 1 FROM users" + Repeat(", users", 100'000)},
        {"unions", "SELECT 1" + Repeat(" UNION SELECT 1", 50'000)},
        {"columns", "SELECT 1" + Repeat(",1", 100'000)},
        {"arguments", "SELECT Choose(1" + Repeat(",1", 100'000) + ")"},
        {"size", "SELECT '" + std::string(2'000'000, 'x') + "'"},
        {"betweens",
         "SELECT " + Repeat("id Between id And (", 40) + "1" + std::string(40, ')') + " FROM users"},
        {"aliases", aliases + " FROM users"},
        {"saved queries", "SELECT id FROM q0"},
    };
    for (const auto& [name, text] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(database.Error(text).substr(0, 5), "3075:");
    }
}

TEST(Limits, LeaveRoomForRealStatements) {
    SmallDatabase database;
    FillCafe(database);
    const std::pair<const char*, std::string> rows[] = {
        {"parentheses", "SELECT " + std::string(40, '(') + "1" + std::string(40, ')')},
        {"sum", "SELECT 0" + Repeat("+1", 300) + "-299"},
        {"joined texts", "SELECT Len('a'" + Repeat("&'a'", 300) + ")-300"},
        {"choices", "SELECT " + Repeat("IIf(1=2,0,", 80) + "1" + std::string(80, ')')},
        {"long list of Or", "SELECT id FROM users WHERE id = 1" + Repeat(" Or id = 1", 20'000)},
        {"long list of In", "SELECT id FROM users WHERE id In (1" + Repeat(",2", 50'000) + ")"},
        {"unions", "SELECT 1" + Repeat(" UNION SELECT 1", 300)},
    };
    for (const auto& [name, text] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(database.Rows(text), std::vector<std::string>{"1"});
    }
}

} // namespace
} // namespace qbrpt::dialect
