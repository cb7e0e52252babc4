// Aggregates that are worked out in one pass give what the engine finds row by row.
#include "dialect/small_database.h"

#include <gtest/gtest.h>

#include <random>

namespace qbrpt::dialect {
namespace {

struct Row {
    const char* name;
    const char* text;
    const char* native; ///< the same, as the engine runs it without any help
    int passes;         ///< how many passes over tables of totals the text becomes
};

class TotalsRows : public testing::TestWithParam<Row> {};

void FillAtRandom(SmallDatabase& database, unsigned seed) {
    std::mt19937 random(seed);
    const auto number = [&random](int limit) {
        const int value = static_cast<int>(random() % static_cast<unsigned>(limit + 2));
        return value > limit ? std::string("NULL") : std::to_string(value);
    };
    std::string script = "CREATE TABLE o (id INTEGER, name TEXT, k INTEGER);"
                         "CREATE TABLE i (k INTEGER, j INTEGER, x REAL, t TEXT, f BOOLEAN, d DATETIME);";
    for (int row = 0; row < 12; ++row)
        script += "INSERT INTO o VALUES (" + number(4) + ", 'n" + number(3) + "', " + number(5) + ");";
    for (int row = 0; row < 40; ++row)
        script += "INSERT INTO i VALUES (" + number(5) + ", " + number(3) + ", " + number(9) + ".25, 't" +
                  number(4) + "', " + number(1) + ", 3778" + std::to_string(row % 10) + ");";
    std::string::size_type at = 0;
    while ((at = script.find("NULL.25")) != std::string::npos)
        script.replace(at, 7, "NULL");
    database.Native(script);
}

std::vector<std::string> NativeRows(SmallDatabase& database, const std::string& sql, std::size_t columns) {
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(database.Handle(), sql.c_str(), -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(database.Handle());
    std::vector<std::string> rows;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        std::string row;
        for (std::size_t i = 0; i < columns; ++i) {
            const auto* text =
                reinterpret_cast<const char*>(sqlite3_column_text(statement, static_cast<int>(i)));
            std::string cell = text == nullptr ? "NULL" : text;
            if (cell.size() > 2 && cell.substr(cell.size() - 2) == ".0") cell.resize(cell.size() - 2);
            row += (i > 0 ? "|" : "") + cell;
        }
        rows.push_back(row);
    }
    sqlite3_finalize(statement);
    return rows;
}

TEST_P(TotalsRows, AreThoseOfTheEngine) {
    const unsigned seed = std::random_device{}();
    for (unsigned turn = 0; turn < 30; ++turn) {
        SCOPED_TRACE("seed " + std::to_string(seed + turn));
        SmallDatabase database;
        FillAtRandom(database, seed + turn);
        const Translation translation = TranslateForSqlite(GetParam().text, database);
        ASSERT_EQ(translation.sql.find("qb totals " + std::to_string(GetParam().passes + 1)),
                  std::string::npos);
        if (GetParam().passes > 0) {
            ASSERT_NE(translation.sql.find("qb totals " + std::to_string(GetParam().passes)),
                      std::string::npos);
        }
        std::vector<std::string> rows = database.Rows(GetParam().text);
        std::vector<std::string> wanted = NativeRows(database, GetParam().native, translation.columns.size());
        std::sort(rows.begin(), rows.end());
        std::sort(wanted.begin(), wanted.end());
        ASSERT_EQ(rows, wanted);
    }
}

const Row Rows[] = {
    {"Sum", "SELECT id, k, (SELECT Sum(x) FROM i WHERE i.k = o.k) FROM o",
     "SELECT id, k, (SELECT Sum(x) FROM i WHERE i.k = o.k) FROM o", 1},
    {"KeysTheOtherWayRound", "SELECT id, (SELECT Sum(x) FROM i WHERE o.k = i.k) FROM o",
     "SELECT id, (SELECT Sum(x) FROM i WHERE o.k = i.k) FROM o", 1},
    {"CountOfNoneIsZero", "SELECT k, (SELECT Count(*) FROM i WHERE i.k = o.k And x > 8) FROM o",
     "SELECT k, (SELECT Count(*) FROM i WHERE i.k = o.k And x > 8) FROM o", 1},
    {"CountOfAColumn", "SELECT k, (SELECT Count(x) FROM i WHERE i.k = o.k) FROM o",
     "SELECT k, (SELECT Count(x) FROM i WHERE i.k = o.k) FROM o", 1},
    {"Others",
     "SELECT k, (SELECT Min(x) + Max(x) FROM i WHERE i.k = o.k), (SELECT Max(t) FROM i WHERE i.k = o.k) FROM "
     "o",
     "SELECT k, (SELECT Min(x) + Max(x) FROM i WHERE i.k = o.k), (SELECT Max(t) FROM i WHERE i.k = o.k) FROM "
     "o",
     1},
    {"NullBecomesZero", "SELECT k, (SELECT IIf(Sum(x) Is Null, 0, Sum(x)) FROM i WHERE i.k = o.k) FROM o",
     "SELECT k, (SELECT COALESCE(Sum(x), 0) FROM i WHERE i.k = o.k) FROM o", 1},
    {"DifferentConditionsShareAPass",
     "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k And j Is Null And x > 1), (SELECT Sum(x) FROM i WHERE "
     "i.k = o.k "
     "And Not j Is Null And x > 1), (SELECT Count(*) FROM i WHERE i.k = o.k And x > 1 And t = 't2'), (SELECT "
     "Count(*) "
     "FROM i WHERE i.k = o.k And x > 1) FROM o",
     "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k And j Is Null And x > 1), (SELECT Sum(x) FROM i WHERE "
     "i.k = o.k "
     "And Not j Is Null And x > 1), (SELECT Count(*) FROM i WHERE i.k = o.k And x > 1 And t = 't2'), (SELECT "
     "Count(*) "
     "FROM i WHERE i.k = o.k And x > 1) FROM o",
     1},
    {"OtherKeysMakeOtherPasses",
     "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k), (SELECT Sum(x) FROM i WHERE i.j = o.k) FROM o",
     "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k), (SELECT Sum(x) FROM i WHERE i.j = o.k) FROM o", 2},
    {"InGroups",
     "SELECT k, Sum(id), (SELECT Sum(x) FROM i WHERE i.k = o.k And f) FROM o WHERE Not id Is Null GROUP BY k",
     "SELECT k, Sum(id), (SELECT Sum(x) FROM i WHERE i.k = o.k And f) FROM o WHERE Not id Is Null GROUP BY k",
     1},
    {"InGroupsOfOneKey",
     "SELECT k, Count(*), (SELECT Sum(x) FROM i WHERE i.k = o.k) FROM o WHERE o.k = 3 GROUP BY k",
     "SELECT k, Count(*), (SELECT Sum(x) FROM i WHERE i.k = o.k) FROM o WHERE o.k = 3 GROUP BY k", 1},
    {"InsideAnExpression", "SELECT k, 100 - (SELECT Sum(x) FROM i WHERE i.k = o.k) * 2 FROM o",
     "SELECT k, 100 - (SELECT Sum(x) FROM i WHERE i.k = o.k) * 2 FROM o", 1},
    {"WithinADate", "SELECT k, (SELECT Count(*) FROM i WHERE i.k = o.k And d Between 37786 And 37783) FROM o",
     "SELECT k, (SELECT Count(*) FROM i WHERE i.k = o.k And d Between 37783 And 37786) FROM o", 1},
    // What stays as it is.
    {"ConditionOnTheOuterRows", "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k) FROM o WHERE id = 1",
     "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k) FROM o WHERE id = 1", 0},
    {"SecondTie", "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k And i.j < o.id) FROM o",
     "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k And i.j < o.id) FROM o", 0},
    {"OtherTie", "SELECT k, (SELECT Sum(x) FROM i WHERE i.k < o.k) FROM o",
     "SELECT k, (SELECT Sum(x) FROM i WHERE i.k < o.k) FROM o", 0},
    {"OuterColumnInTheValue", "SELECT k, (SELECT Sum(x * o.id) FROM i WHERE i.k = o.k) FROM o",
     "SELECT k, (SELECT Sum(x * o.id) FROM i WHERE i.k = o.k) FROM o", 0},
    {"Untied", "SELECT k, (SELECT Sum(x) FROM i) FROM o", "SELECT k, (SELECT Sum(x) FROM i) FROM o", 0},
    {"TextKeys", "SELECT k, (SELECT Sum(x) FROM i WHERE i.t = o.name) FROM o",
     "SELECT k, (SELECT Sum(x) FROM i WHERE i.t = o.name) FROM o", 0},
    {"Grouped", "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k GROUP BY i.k HAVING Sum(x) > 1) FROM o",
     "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k GROUP BY i.k HAVING Sum(x) > 1) FROM o", 0},
    {"TwoTables", "SELECT k, (SELECT Sum(a.x) FROM i AS a, o AS b WHERE a.k = o.k And a.j = b.id) FROM o",
     "SELECT k, (SELECT Sum(a.x) FROM i AS a, o AS b WHERE a.k = o.k And a.j = b.id) FROM o", 0},
    {"QueryInside", "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k And j In (SELECT id FROM o)) FROM o",
     "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k And j In (SELECT id FROM o)) FROM o", 0},
};

std::string RowName(const testing::TestParamInfo<Row>& row) {
    return row.param.name;
}
INSTANTIATE_TEST_SUITE_P(Rows, TotalsRows, testing::ValuesIn(Rows), RowName);

struct WayRow {
    const char* name;
    const char* index; ///< columns of an index of i
    const char* text;
    const char* way; ///< how the engine walks through i
};

class WaysOfTotals : public testing::TestWithParam<WayRow> {};

TEST_P(WaysOfTotals, AreTheQuickerOnes) {
    SmallDatabase database;
    FillAtRandom(database, 1);
    database.Native(std::string("CREATE INDEX way ON i (") + GetParam().index + ")");
    const std::string plan = database.Plan(GetParam().text);
    EXPECT_NE(plan.find(GetParam().way), std::string::npos) << plan;
}

constexpr const char* Sums = "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k And j Is Null) FROM o";

const WayRow Ways[] = {
    {"AlongAnIndexThatHoldsAll", "k, j, x", Sums, "SCAN i USING COVERING INDEX way\nSEARCH qb totals 1"},
    {"NotAlongTheKeyAlone", "k", Sums, "SCAN i\nUSE TEMP B-TREE FOR GROUP BY"},
    {"NotWhereAConditionIsMissing", "k, x", Sums, "SCAN i\nUSE TEMP B-TREE FOR GROUP BY"},
    {"NotWhereTheKeyStandsBehind", "x, j, k", Sums, "USE TEMP B-TREE FOR GROUP BY"},
    {"ByAnIndexForOneKey", "k",
     "SELECT k, (SELECT Sum(x) FROM i WHERE i.k = o.k) FROM o WHERE o.k = 3 GROUP BY k",
     "SEARCH i USING INDEX way (k=?)"},
};

std::string WayName(const testing::TestParamInfo<WayRow>& info) {
    return info.param.name;
}
INSTANTIATE_TEST_SUITE_P(Rows, WaysOfTotals, testing::ValuesIn(Ways), WayName);

TEST(Totals, LeaveFirstToTheRowsOfItsOwnQuery) {
    SmallDatabase database;
    database.Native(
        "CREATE TABLE o (k INTEGER); INSERT INTO o VALUES (1), (2);"
        "CREATE TABLE i (k INTEGER, x TEXT); INSERT INTO i VALUES (1, 'b'), (1, 'a'), (NULL, 'c')");
    EXPECT_EQ(database.Rows("SELECT k, (SELECT First(x) FROM i WHERE i.k = o.k) FROM o ORDER BY k"),
              (std::vector<std::string>{"1|b", "2|NULL"}));
}

} // namespace
} // namespace qbrpt::dialect
