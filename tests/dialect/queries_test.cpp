// Whole queries: sources, scopes, joins, groups, order, unions and TOP.
#include "dialect/cafe_database.h"

#include <gtest/gtest.h>

namespace qbrpt::dialect {
namespace {

using Lines = std::vector<std::string>;

struct Row {
    const char* name;
    const char* text;
    Lines rows;
};

class Queries : public testing::TestWithParam<Row> {};

void Fill(SmallDatabase& database) {
    FillCafe(database);
    database.Native(R"(
CREATE TABLE t (id INTEGER PRIMARY KEY, name TEXT, n REAL, flag BOOLEAN, day DATETIME, g INTEGER);
INSERT INTO t VALUES (1, 'b', 2.5, 1, 37780.416666666664, 1), (2, 'A', NULL, 0, 37781, 1),
  (3, 'B', 4, -1, NULL, 2), (4, NULL, 1, NULL, 37782.25, 2);
CREATE TABLE Mixed (Id INTEGER, [Two Words] TEXT, [select] INTEGER, rowid TEXT);
INSERT INTO Mixed VALUES (1, 'x', 7, 'r');
CREATE TABLE "q""t" (a INTEGER);
INSERT INTO "q""t" VALUES (5);
CREATE VIEW seen AS SELECT id, name, day FROM t WHERE id < 3;
)");
    database.Save("lastOnes", "SELECT id, name FROM t WHERE id > 2 ORDER BY id DESC;");
    database.Save("ofDay", "PARAMETERS whichDay DateTime; SELECT id FROM t WHERE day = whichDay");
    database.Save("loop", "SELECT * FROM loop");
}

TEST_P(Queries, GiveTheirRows) {
    SmallDatabase database;
    Fill(database);
    EXPECT_EQ(database.Rows(GetParam().text), GetParam().rows);
}

const Row Rows[] = {
    // Sources and names.
    {"Star", "SELECT * FROM t WHERE id = 1", {"1|b|2.5|true|37780.416666666664|1"}},
    {"StarOfOne", "SELECT x.*, 5 FROM t AS x WHERE x.id = 2", {"2|A|NULL|false|37781|1|5"}},
    {"StarKeepsTheOrderOfTheTextInARightJoin",
     "SELECT * FROM users RIGHT JOIN membership ON users.id = membership.id ORDER BY membership.id",
     {"1|سعيد|1|شهري", "NULL|NULL|2|Weekly"}},
    {"AnyCase", "sElEcT NAME fRoM T wHeRe ID = 1", {"b"}},
    {"Brackets", "SELECT [Two Words], [select] FROM [mixed]", {"x|7"}},
    {"BracketsQualified", "SELECT [m].[Two Words] FROM [Mixed] AS [m]", {"x"}},
    {"Bang", "SELECT t!name FROM t WHERE t!id = 1", {"b"}},
    {"QuoteInATableName", "SELECT a FROM [q\"t]", {"5"}},
    {"NoBlanks", "SELECT(id)FROM t WHERE(id=1)OR(id=3)ORDER BY id", {"1", "3"}},
    {"LineEndsAndTabs", "SELECT\tid\r\nFROM t\rWHERE id=1\n;", {"1"}},
    {"NoSource", "SELECT 1, 'x'", {"1|x"}},
    {"CommaJoin",
     "SELECT t.id, host_src.name FROM t, host_src WHERE t.id = host_src.id ORDER BY t.id",
     {"1|PC1", "2|pc2", "3|جهاز 3"}},
    {"CommaAndJoin",
     "SELECT a.id, b.id, c.id FROM t AS a, t AS b LEFT JOIN users AS c ON b.id = c.id WHERE a.id = b.id AND "
     "a.id < 3 "
     "ORDER BY a.id",
     {"1|1|1", "2|2|NULL"}},
    {"SubSelectSource",
     "SELECT q.k FROM (SELECT id AS k FROM t WHERE id < 3) AS q ORDER BY q.k DESC",
     {"2", "1"}},
    {"SubSelectSourceUnnamed", "SELECT k FROM (SELECT Max(id) AS k FROM t)", {"4"}},
    {"SubSelectSameColumnTwice",
     "SELECT [a.id], [b.id] FROM (SELECT a.id, b.id FROM t AS a, t AS b WHERE a.id = 1 "
     "AND b.id = 2) AS q",
     {"1|2"}},
    {"SavedQueryAsSource", "SELECT id, name FROM lastOnes ORDER BY id", {"3|B", "4|NULL"}},
    {"SavedQueryJoined",
     "SELECT t.n FROM t INNER JOIN LASTONES AS l ON t.id = l.id ORDER BY t.n",
     {"1", "4"}},
    {"View", "SELECT name FROM seen ORDER BY id", {"b", "A"}},
    {"ViewKeepsKinds", "SELECT id FROM seen WHERE day = 37780.4166666667", {"1"}},
    {"AliasAgainInTheList",
     "SELECT id * 2 AS twice, twice + 1 AS more, more * 10 FROM t WHERE id = 3",
     {"6|7|70"}},
    {"AliasBeforeItsColumn", "SELECT later + 1, id AS later FROM t WHERE id = 3", {"4|3"}},
    {"AliasOfAggregate", "SELECT Sum(n) AS s, s / Count(n) AS m FROM t", {"7.5|2.5"}},
    {"ColumnBeforeAlias", "SELECT id + 1 AS n, n FROM t WHERE id = 3", {"4|4"}},
    {"AliasInWhere", "SELECT id * 2 AS twice FROM t WHERE twice = 6", {"6"}},
    {"InnerNameBeforeOuter",
     "SELECT name, (SELECT Max(name) FROM host_src WHERE id = 1) FROM t WHERE t.id = 1",
     {"b|PC1"}},
    {"OuterNameFromInside",
     "SELECT id FROM t WHERE Exists (SELECT * FROM users WHERE users.id = g) ORDER BY t.id",
     {"1", "2"}},
    {"SameAliasInsideAndOutside",
     "SELECT x.id, (SELECT Count(*) FROM t AS y WHERE y.g = x.g) FROM t AS x ORDER BY x.id",
     {"1|2", "2|2", "3|2", "4|2"}},
    {"InnerTableOfTheSameName", "SELECT id FROM t WHERE n = (SELECT Max(n) FROM t)", {"3"}},
    // Conditions on columns.
    {"TextAnyCase", "SELECT id FROM t WHERE name = 'B' ORDER BY id", {"1", "3"}},
    {"TextInAnyCase", "SELECT id FROM t WHERE name In ('a', 'x')", {"2"}},
    {"TextInQueryAnyCase", "SELECT id FROM t WHERE name In (SELECT 'b' FROM users) ORDER BY id", {"1", "3"}},
    {"LikeColumn", "SELECT id FROM t WHERE name Like 'b*' ORDER BY id", {"1", "3"}},
    {"BooleanMinusOne", "SELECT id FROM t WHERE flag = -1 ORDER BY id", {"1", "3"}},
    {"BooleanOne", "SELECT id FROM t WHERE flag = 1 ORDER BY id", {"1", "3"}},
    {"BooleanTrue", "SELECT id FROM t WHERE flag = True ORDER BY id", {"1", "3"}},
    {"BooleanNotZero", "SELECT id FROM t WHERE flag <> 0 ORDER BY id", {"1", "3"}},
    {"BooleanPlain", "SELECT id FROM t WHERE flag ORDER BY id", {"1", "3"}},
    {"BooleanNot", "SELECT id FROM t WHERE Not flag", {"2"}},
    {"BooleanFalse", "SELECT id FROM t WHERE flag = False", {"2"}},
    {"BooleanInList", "SELECT id FROM t WHERE flag In (True) ORDER BY id", {"1", "3"}},
    {"BooleanColumnsEqual",
     "SELECT a.id FROM t AS a, t AS b WHERE a.flag = b.flag AND a.id = 1 AND b.id = 3",
     {"1"}},
    {"BooleanBetween", "SELECT id FROM t WHERE flag Between -1 And -1 ORDER BY id", {"1", "3"}},
    {"BooleanLess", "SELECT id FROM t WHERE flag < 0 ORDER BY id", {"1", "3"}},
    {"DateEqualsFifteenDigits", "SELECT id FROM t WHERE day = 37780.4166666667", {"1"}},
    {"DateAtTheLowerBound", "SELECT id FROM t WHERE day >= 37780.4166666667 AND day < 37781", {"1"}},
    {"DateAtTheUpperBound", "SELECT id FROM t WHERE day <= 37780.4166666666", {"1"}},
    {"DateNotAfterItself", "SELECT id FROM t WHERE day > 37780.4166666666 AND day < 37780.5", {}},
    {"DateNotBeforeItself", "SELECT id FROM t WHERE day < 37780.4166666667", {}},
    {"DateNotEqual", "SELECT id FROM t WHERE day <> 37780.4166666667 ORDER BY id", {"2", "4"}},
    {"DateLiteral", "SELECT id FROM t WHERE day = #6/8/2003 10:00:00#", {"1"}},
    {"DateBetweenReversed",
     "SELECT id FROM t WHERE day Between #6/9/2003# And #6/8/2003# ORDER BY id",
     {"1", "2"}},
    {"DateNotBetween", "SELECT id FROM t WHERE day Not Between 37780 And 37781", {"4"}},
    {"NumberBetweenDates", "SELECT a.id FROM t AS a WHERE 37780.4166666667 Between a.day And a.day", {"1"}},
    {"DateText", "SELECT id FROM t WHERE day = '9/6/2003'", {"2"}},
    {"DateInList", "SELECT id FROM t WHERE day In (37780.4166666667, #6/9/2003#) ORDER BY id", {"1", "2"}},
    {"DateNotInList", "SELECT id FROM t WHERE day Not In (37780.4166666667, #6/9/2003#)", {"4"}},
    {"DateLiteralFirst", "SELECT id FROM t WHERE 37780.4166666667 = day", {"1"}},
    {"DateAgainstExpression", "SELECT id FROM t WHERE day = 37780 + 10 / 24", {"1"}},
    {"DateAgainstColumn", "SELECT a.id FROM t AS a, local_log AS l WHERE a.day = l.end_time", {"1"}},
    {"CDblOfDate", "SELECT id FROM t WHERE CDbl(day) Between 37780.4166666667 And 37780.5", {"1"}},
    {"CDblOfDateLess", "SELECT id FROM t WHERE CDbl(day) < 37780.4166666667", {}},
    {"CLngOfDate", "SELECT id FROM t WHERE CLng(day) = 37780", {"1"}},
    {"CLngOfDateNot", "SELECT id FROM t WHERE CLng(day) <> 37780 ORDER BY id", {"2", "4"}},
    {"CLngOfDateFrom", "SELECT id FROM t WHERE CLng(day) >= 37781 ORDER BY id", {"2", "4"}},
    {"CLngOfDateBelow", "SELECT id FROM t WHERE CLng(day) < 37781", {"1"}},
    {"CLngOfDateIn", "SELECT id FROM t WHERE CLng(day) In (37780, 37782) ORDER BY id", {"1", "4"}},
    {"CLngOfDateNotBetween", "SELECT id FROM t WHERE CLng(day) Not Between 37781 And 37780", {"4"}},
    {"CLngOfDateShown", "SELECT CLng(day) FROM t ORDER BY id", {"37780", "37781", "NULL", "37782"}},
    {"NotIsNullColumn", "SELECT id FROM t WHERE Not n Is Null ORDER BY id", {"1", "3", "4"}},
    {"IsNullFalse", "SELECT id FROM t WHERE (IsNull(n)) = False AND id < 3", {"1"}},
    {"BetweenColumns", "SELECT id FROM t WHERE 2 Between n And id ORDER BY id", {"1", "4"}},
    // Order and groups.
    {"NullsFirst", "SELECT id FROM t ORDER BY n", {"2", "4", "1", "3"}},
    {"NullsLastDown", "SELECT id FROM t ORDER BY n DESC", {"3", "1", "4", "2"}},
    {"TrueFirst", "SELECT id FROM t ORDER BY flag, id", {"4", "1", "3", "2"}},
    {"TrueLastDown", "SELECT id FROM t ORDER BY flag DESC, id", {"2", "1", "3", "4"}},
    {"TextOrderAnyCase", "SELECT id FROM t ORDER BY name, id", {"4", "2", "1", "3"}},
    {"OrderByNumber", "SELECT name, id FROM t ORDER BY 2 DESC", {"NULL|4", "B|3", "A|2", "b|1"}},
    {"OrderByAlias", "SELECT -id AS k FROM t ORDER BY k", {"-4", "-3", "-2", "-1"}},
    {"OrderByExpression", "SELECT id FROM t ORDER BY Nz(n, 100), id", {"4", "1", "3", "2"}},
    {"OrderByBooleanItem", "SELECT flag, id FROM t ORDER BY 1, 2", {"NULL|4", "true|1", "true|3", "false|2"}},
    {"OrderByConstant", "SELECT id FROM t ORDER BY 'x', id DESC", {"4", "3", "2", "1"}},
    {"GroupAnyCase", "SELECT name, Count(*) FROM t GROUP BY name ORDER BY name", {"NULL|1", "A|1", "B|2"}},
    {"GroupByBoolean",
     "SELECT flag, Count(*) FROM t GROUP BY flag ORDER BY flag",
     {"NULL|1", "true|2", "false|1"}},
    {"GroupByExpression", "SELECT id Mod 2, Sum(id) FROM t GROUP BY id Mod 2 ORDER BY 1", {"0|6", "1|4"}},
    {"GroupByAlias", "SELECT id Mod 2 AS odd, Sum(id) FROM t GROUP BY odd ORDER BY odd", {"0|6", "1|4"}},
    {"GroupByConstant", "SELECT Count(*) FROM t GROUP BY 1", {"4"}},
    {"Having", "SELECT g, Sum(n) FROM t GROUP BY g HAVING Sum(n) > 3", {"2|5"}},
    {"HavingText", "SELECT name FROM t GROUP BY name HAVING name = 'b'", {"B"}},
    {"Aggregates", "SELECT Count(*), Count(n), Sum(n), Avg(n), Min(n), Max(n) FROM t", {"4|3|7.5|2.5|1|4"}},
    {"AggregatesOfNone",
     "SELECT Count(*), Sum(n), Max(n), First(n) FROM t WHERE id = 99",
     {"0|NULL|NULL|NULL"}},
    {"AggregatesOfText", "SELECT Min(name), Max(name), Count(name) FROM t WHERE id <> 3", {"A|b|2"}},
    {"SumOfBooleanIsNegative",
     "SELECT Sum(flag), Max(flag), Min(flag), Avg(flag) FROM t WHERE id < 4",
     {"-2|0|-1|-0.6666666666666666"}},
    {"SumOfQuotient", "SELECT Sum(second_count / 60) FROM internet_usage WHERE id < 3", {"2.5"}},
    {"First",
     "SELECT g, First(id), Last(id), First(name) FROM t GROUP BY g ORDER BY g",
     {"1|1|2|b", "2|3|4|B"}},
    {"FirstInTableOrder", "SELECT First(name) FROM (SELECT * FROM t) AS q", {"b"}},
    {"FirstOfBoolean", "SELECT First(flag), Last(flag) FROM t WHERE id < 4", {"true|true"}},
    {"FirstIsTheFirstRowEvenIfNull", "SELECT First(n) FROM t WHERE id > 1", {"NULL"}},
    {"CountJoinedToText", "SELECT Count(id) & ' rows' FROM t", {"4 rows"}},
    {"ConditionalSum", "SELECT Sum(IIf(flag, n, 0)) FROM t", {"6.5"}},
    {"Distinct", "SELECT DISTINCT g FROM t ORDER BY g", {"1", "2"}},
    {"DistinctAnyCase", "SELECT DISTINCT name FROM t ORDER BY name", {"NULL", "A", "b"}},
    {"DistinctBooleans", "SELECT DISTINCT flag FROM t WHERE id <> 4 ORDER BY flag", {"true", "false"}},
    {"DistinctRow", "SELECT DISTINCTROW g FROM t ORDER BY g", {"1", "2"}},
    {"All", "SELECT ALL g FROM t ORDER BY g", {"1", "1", "2", "2"}},
    // TOP takes all that equal the last row.
    {"Top", "SELECT TOP 2 id FROM t ORDER BY id DESC", {"4", "3"}},
    {"TopWithTies", "SELECT TOP 1 id FROM t ORDER BY g", {"1", "2"}},
    {"TopWithTiesOfText",
     "SELECT TOP 2 id, name FROM t WHERE name Is Not Null ORDER BY name",
     {"2|A", "1|b", "3|B"}},
    {"TopByBoolean", "SELECT TOP 1 id FROM t WHERE id < 4 ORDER BY flag", {"1", "3"}},
    {"TopByUnselected", "SELECT TOP 1 name FROM t ORDER BY n DESC", {"B"}},
    {"TopUnordered", "SELECT TOP 2 id FROM t", {"1", "2"}},
    {"TopPercent", "SELECT TOP 50 PERCENT id FROM t ORDER BY id", {"1", "2"}},
    {"TopPercentRoundsUp", "SELECT TOP 26 PERCENT id FROM t ORDER BY id", {"1", "2"}},
    {"TopDistinct", "SELECT DISTINCT TOP 1 g FROM t ORDER BY g DESC", {"2"}},
    {"TopOfGroups", "SELECT TOP 1 g, Sum(id) AS s FROM t GROUP BY g ORDER BY Sum(id) DESC", {"2|7"}},
    {"TopInside",
     "SELECT id FROM t WHERE id In (SELECT TOP 2 id FROM t ORDER BY n DESC) ORDER BY id",
     {"1", "3"}},
    {"TopNone", "SELECT TOP 0 id FROM t ORDER BY id", {}},
    // Unions.
    {"Union", "SELECT g FROM t UNION SELECT id FROM users ORDER BY g", {"1", "2"}},
    {"UnionAll", "SELECT g FROM t UNION ALL SELECT id FROM users ORDER BY g", {"1", "1", "1", "2", "2"}},
    {"UnionAnyCase",
     "SELECT Count(*) FROM (SELECT name FROM t WHERE id = 1 UNION SELECT name FROM t WHERE id = 3) AS u",
     {"1"}},
    {"UnionBooleans",
     "SELECT flag FROM t WHERE id < 4 UNION SELECT True FROM users ORDER BY flag",
     {"true", "false"}},
    {"UnionOfNullAndDate",
     "SELECT Null AS d FROM users UNION ALL SELECT day FROM t WHERE id = 2 ORDER BY d",
     {"NULL", "37781"}},
    {"UnionInParentheses", "(SELECT 1 AS a) UNION ALL (SELECT 2) ORDER BY 1 DESC", {"2", "1"}},
    {"UnionAsSource", "SELECT Count(*) FROM (SELECT id FROM t UNION ALL SELECT id FROM users) AS u", {"5"}},
    {"UnionWithTop", "SELECT TOP 1 id FROM t UNION ALL SELECT 9 FROM users", {"1", "9"}},
    // Sub-selects.
    {"Scalar", "SELECT (SELECT Max(id) FROM t) + 1", {"5"}},
    {"ScalarOfNoRowIsNull", "SELECT (SELECT id FROM t WHERE id = 99)", {"NULL"}},
    {"NotExists",
     "SELECT id FROM t WHERE Not Exists (SELECT * FROM users WHERE users.id = t.id) AND id < 3",
     {"2"}},
    {"InQuery", "SELECT id FROM t WHERE id In (SELECT id FROM users)", {"1"}},
    {"NotInQuery", "SELECT id FROM t WHERE id Not In (SELECT id FROM users) AND id < 3", {"2"}},
    {"CorrelatedTwoLevels",
     "SELECT id FROM t WHERE Exists (SELECT * FROM users AS u WHERE Exists (SELECT * FROM host_src AS h "
     "WHERE h.id "
     "= t.id AND h.id = u.id))",
     {"1"}},
};

std::string RowName(const testing::TestParamInfo<Row>& row) {
    return row.param.name;
}
INSTANTIATE_TEST_SUITE_P(Rows, Queries, testing::ValuesIn(Rows), RowName);

TEST(QueryNames, AreThoseOfTheDialect) {
    SmallDatabase database;
    Fill(database);
    EXPECT_EQ(database.Names("SELECT ID, n AS Amount, n + 1, Count(*) FROM t GROUP BY id, n"),
              (Lines{"id", "Amount", "Expr1002", "Expr1003"}));
    EXPECT_EQ(database.Names("SELECT a.id, b.id, b.name FROM t AS a, t AS b"),
              (Lines{"a.id", "b.id", "name"}));
}

TEST(QueryKinds, AreInferred) {
    SmallDatabase database;
    Fill(database);
    const std::vector<OutputColumn> columns =
        TranslateForSqlite(
            "SELECT day, n, id, flag, name, Max(day), id / 2, id & '', n > 1, First(flag), IIf(id, 1, "
            "2.5), Null, (SELECT Max(day) FROM t), day + 1, day - day, Nz(n, 0), IIf(id, day, Null) "
            "FROM t GROUP BY day, n, id, flag, name",
            database)
            .columns;
    using enum ValueKind;
    const std::vector<ValueKind> wanted = {Date,   Number, Whole,   Boolean, Text,   Date,
                                           Number, Text,   Boolean, Boolean, Number, Null,
                                           Date,   Date,   Number,  Number,  Date};
    ASSERT_EQ(columns.size(), wanted.size());
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(columns[i].kind, wanted[i]);
    }
}

// --- parameters ---------------------------------------------------------------------------------------

TEST(QueryParameters, AreCountedAsTheTextHasThem) {
    SmallDatabase database;
    Fill(database);
    const Translation translation = TranslateForSqlite(
        "PARAMETERS second Long, first DateTime;\r\nSELECT [what?], id FROM (SELECT id FROM t WHERE "
        "n = inner1) AS q\r\n WHERE id = second And [What?] = last1",
        database);
    ASSERT_EQ(translation.parameters.size(), 5U);
    const Lines names = {"second", "first", "what?", "inner1", "last1"};
    for (std::size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(translation.parameters[i].name, names[i]);
    EXPECT_TRUE(translation.parameters[1].declared);
    EXPECT_EQ(translation.parameters[1].kind, ValueKind::Date);
    EXPECT_FALSE(translation.parameters[2].declared);
    EXPECT_EQ(translation.parameters[2].line, 2);
    EXPECT_EQ(translation.parameters[2].column, 8);
    EXPECT_EQ(translation.parameters[4].line, 3);
}

TEST(QueryParameters, TakeTheirValues) {
    SmallDatabase database;
    Fill(database);
    const Value none = Null{};
    EXPECT_EQ(database.Rows("SELECT id FROM t WHERE id Between a And b ORDER BY id",
                            {std::int64_t{3}, std::int64_t{2}}),
              (Lines{"2", "3"}));
    EXPECT_EQ(database.Rows("SELECT id FROM t WHERE a Is Null Or id = a ORDER BY id", {none}),
              (Lines{"1", "2", "3", "4"}));
    EXPECT_EQ(database.Rows("SELECT id FROM t WHERE day = moment", {Date{37780.4166666667}}), Lines{"1"});
    EXPECT_EQ(database.Rows("SELECT id FROM t WHERE day Between a And b", {37781.0, 37780.4166666667}),
              (Lines{"1", "2"}));
    EXPECT_EQ(database.Rows("SELECT id FROM t WHERE name = who ORDER BY id", {std::string("B")}),
              (Lines{"1", "3"}));
    EXPECT_EQ(database.Rows("SELECT Count(*) FROM ofDay", {37781.0}), Lines{"1"});
}

TEST(QueryParameters, OfSavedQueriesGoBeforeLaterNames) {
    SmallDatabase database;
    Fill(database);
    const Translation translation =
        TranslateForSqlite("SELECT first1, id FROM ofDay WHERE id = other", database);
    ASSERT_EQ(translation.parameters.size(), 3U);
    EXPECT_EQ(translation.parameters[0].name, "first1");
    EXPECT_EQ(translation.parameters[1].name, "whichDay");
    EXPECT_EQ(translation.parameters[1].kind, ValueKind::Date);
    EXPECT_EQ(translation.parameters[2].name, "other");
}

// --- statements that write ----------------------------------------------------------------------------

TEST(Writing, InsertsValuesInTheKindOfTheColumn) {
    SmallDatabase database;
    Fill(database);
    EXPECT_EQ(database.Execute("INSERT INTO t VALUES (10, 5.0, '2.5', -1, '15/6/2003 10:00', 2.5)"), 1);
    EXPECT_EQ(database.Rows("SELECT * FROM t WHERE id = 10"), Lines{"10|5|2.5|true|37787.416666666664|2"});
    EXPECT_EQ(database.Execute("INSERT INTO t (id, flag, n) VALUES (11, True, True)"), 1);
    EXPECT_EQ(database.Rows("SELECT flag, n, day FROM t WHERE id = 11"), Lines{"true|-1|NULL"});
}

TEST(Writing, InsertsRowsOfASelect) {
    SmallDatabase database;
    Fill(database);
    EXPECT_EQ(database.Execute(
                  "INSERT INTO t (id, name, day, flag) SELECT id + 20, name, 37780.4166666667, flag FROM "
                  "t WHERE id < 3"),
              2);
    EXPECT_EQ(database.Rows("SELECT id, name, day, flag FROM t WHERE id > 20 ORDER BY id"),
              (Lines{"21|b|37780.416666666664|true", "22|A|37780.416666666664|false"}));
}

TEST(Writing, UpdatesAndDeletes) {
    SmallDatabase database;
    Fill(database);
    EXPECT_EQ(database.Execute("UPDATE t SET n = n * 2, t.name = name & '!' WHERE flag"), 2);
    EXPECT_EQ(database.Rows("SELECT name, n FROM t WHERE flag ORDER BY id"), (Lines{"b!|5", "B!|8"}));
    EXPECT_EQ(
        database.Execute("UPDATE t AS x SET x.day = CDate('16/6/2003') WHERE x.id = (SELECT Max(id) FROM t)"),
        1);
    EXPECT_EQ(database.Rows("SELECT day FROM t WHERE id = 4"), Lines{"37788"});
    EXPECT_EQ(database.Execute("DELETE * FROM t WHERE day = 37780.4166666667"), 1);
    EXPECT_EQ(database.Execute("DELETE FROM t WHERE name Is Null;"), 1);
    EXPECT_EQ(database.Execute("DELETE t.* FROM t"), 2);
}

// --- shapes that must stay fast -----------------------------------------------------------------------

TEST(QueryPlans, KeepTheIndexOnADate) {
    SmallDatabase database;
    Fill(database);
    database.Native("CREATE INDEX day_of_t ON t(day)");
    for (const char* condition :
         {"day Between 37780.4166666667 And 37781", "day Between 37790 And 37781", "day = 37780.4166666667",
          "day >= 37781", "CLng(day) = 37781", "CLng(day) Between 37781 And 37782", "CDbl(day) < 37781",
          "day = #6/9/2003#"}) {
        SCOPED_TRACE(condition);
        const std::string plan = database.Plan(std::string("SELECT id FROM t WHERE ") + condition);
        EXPECT_NE(plan.find("SEARCH t USING COVERING INDEX day_of_t"), std::string::npos) << plan;
    }
}

TEST(QueryPlans, BeginARightJoinWithTheTableThatHasTheCondition) {
    SmallDatabase database;
    FillCafe(database);
    database.Native(
        "CREATE INDEX work_of_log ON local_log(work_id); CREATE INDEX id_of_members ON members(id)");
    const std::string plan = database.Plan(
        "SELECT host_src.name FROM (host_src LEFT JOIN (members RIGHT JOIN local_log ON members.id = "
        "local_log.member_id) ON host_src.id = local_log.host_id) LEFT JOIN users ON local_log.user_id = "
        "users.id "
        "WHERE (NOT local_log.end_time Is Null) AND (local_log.work_id BETWEEN 1 AND 2)");
    EXPECT_EQ(plan.find("SEARCH local_log USING INDEX work_of_log"), 0U) << plan;
}

} // namespace
} // namespace qbrpt::dialect
