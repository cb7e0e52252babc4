// Groups that are summed up before a join give what the engine finds the other way round, and texts that are
// sorted by keys stand as the collation has them.
#include "dialect/small_database.h"
#include "dialect/usage_statements.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

namespace qbrpt::dialect {
namespace {

/// Hosts that stand twice, have no name, or share one in other letters; sessions of unknown hosts and of
/// none, still running, without any number; moments on the bounds. Fractions are quarters, so that sums are
/// exact in any order.
class RandomSessions {
public:
    explicit RandomSessions(unsigned seed) : mRandom(seed) {}

    void Fill(SmallDatabase& database) {
        std::string script =
            "CREATE TABLE host_src (id INTEGER, name TEXT);"
            "CREATE TABLE members (id INTEGER, name TEXT);"
            "CREATE TABLE users (id INTEGER, user_name TEXT);"
            "CREATE TABLE local_log (id INTEGER PRIMARY KEY, host_id INTEGER, member_id INTEGER, "
            "user_id INTEGER, log_time DATETIME, end_time DATETIME, use_time REAL, idle_time REAL, "
            "net_cost REAL, print_count REAL, print_cost REAL, other_cost REAL, discount REAL, "
            "paid REAL);";
        for (int host = 0; host < 8; ++host)
            script += "INSERT INTO host_src VALUES (" + Number(6) + ", " + Name() + ");";
        for (int member = 0; member < 4; ++member)
            script += "INSERT INTO members VALUES (" + Number(4) + ", " + Name() +
                      ");"
                      "INSERT INTO users VALUES (" +
                      Number(2) + ", " + Name() + ");";
        for (int session = 0; session < 60; ++session) {
            script += "INSERT INTO local_log VALUES (" + std::to_string(session) + ", " + Number(7) + ", " +
                      Number(5) + ", " + Number(2) + ", " + Moment() + ", " + Moment();
            for (int number = 0; number < 8; ++number)
                script += ", " + Quarters();
            script += ");";
        }
        if (mRandom() % 2 == 0) script += "CREATE INDEX by_host ON local_log (host_id);";
        if (mRandom() % 2 == 0) script += "CREATE INDEX by_end ON local_log (end_time, host_id);";
        if (mRandom() % 2 == 0) script += "CREATE INDEX of_hosts ON host_src (id);";
        database.Native(script);
    }

private:
    bool Missing() { return mRandom() % 6 == 0; }
    std::string Number(unsigned limit) { return Missing() ? "NULL" : std::to_string(mRandom() % limit); }
    std::string Quarters() {
        return Missing() ? "NULL" : std::to_string(0.25 * static_cast<int>(mRandom() % 40));
    }
    std::string Moment() {
        return Missing() ? "NULL" : std::to_string(37780 + 0.125 * static_cast<int>(mRandom() % 80));
    }
    std::string Name() {
        constexpr std::array<const char*, 8> names = {"NULL",   "'PC1'",  "'pc1'",  "'Pc2'",
                                                      "'جهاز'", "'أحمد'", "'احمد'", "''"};
        return names[mRandom() % names.size()];
    }

    std::mt19937 mRandom;
};

/// The rows of a statement in SQLite's own SQL, with the kinds of columns that the translator found for the
/// same statement.
std::vector<std::string> NativeRows(SmallDatabase& database, const std::string& sql) {
    database.Native("DROP TABLE IF EXISTS found; CREATE TABLE found AS " + sql);
    return database.Rows("SELECT * FROM found");
}

struct Case {
    const char* name;
    std::string text;
    std::string native; ///< as the engine runs it without any help
    bool early;         ///< whether it is grouped before the join
};

class EarlyGroupsRows : public testing::TestWithParam<Case> {};

TEST_P(EarlyGroupsRows, AreThoseOfTheEngine) {
    const unsigned seed = std::random_device{}();
    for (unsigned turn = 0; turn < 60; ++turn) {
        SCOPED_TRACE("seed " + std::to_string(seed + turn));
        SmallDatabase database;
        RandomSessions(seed + turn).Fill(database);
        const std::string sql = TranslateForSqlite(GetParam().text, database).sql;
        ASSERT_EQ(sql.find("\"qb totals 1\" AS \"") != std::string::npos, GetParam().early) << sql;
        std::vector<std::string> rows = database.Rows(GetParam().text);
        std::vector<std::string> wanted = NativeRows(database, GetParam().native);
        std::sort(rows.begin(), rows.end());
        std::sort(wanted.begin(), wanted.end());
        ASSERT_EQ(rows, wanted) << sql;
    }
}

std::string NativeHostUsage(const std::string& period, const std::string& host) {
    const std::string of =
        "FROM local_log l WHERE l.host_id = o.host_id AND l.end_time IS NOT NULL " + period;
    return "SELECT min(h.name COLLATE BINARY) AS name, (SELECT sum(use_time) " + of +
           " AND member_id IS NOT NULL) AS a, (SELECT sum(use_time) " + of +
           " AND member_id IS NULL) AS b, (SELECT sum(use_time) " + of +
           ") AS c, (SELECT sum(net_cost * use_time) " + of +
           " AND member_id IS NULL) AS d, sum(o.print_count) AS e, sum(o.print_count * o.print_cost) AS f, "
           "sum(o.paid + o.discount) AS g, sum(o.discount) AS h, sum(o.paid) AS i, sum(o.use_time) * 1.0 / "
           "(SELECT CASE WHEN sum(use_time) IS NULL OR sum(use_time) = 0 THEN 1 ELSE sum(use_time) END FROM "
           "local_log l WHERE l.end_time IS NOT NULL " +
           period +
           ") AS p FROM host_src h JOIN local_log o ON h.id = o.host_id WHERE (SELECT l.end_time IS NOT "
           "NULL " +
           period + " FROM local_log l WHERE l.id = o.id) " + host +
           " GROUP BY h.id, h.name COLLATE QBRPT, o.host_id";
}

const std::string Within = "AND l.end_time BETWEEN 37782 AND 37785";

const Case Cases[] = {
    {"HostUsage", HostUsage("", ""), NativeHostUsage("", ""), true},
    {"HostUsageOfAPeriod", HostUsage("37782 And 37785", ""), NativeHostUsage(Within, ""), true},
    {"HostUsageOfAPeriodReversed", HostUsage("37785 And 37782", ""), NativeHostUsage(Within, ""), true},
    {"HostUsageOfOne", HostUsage("", "3"), NativeHostUsage("", "AND o.host_id = 3"), true},
    {"HostUsageOfOneInAPeriod", HostUsage("37782 And 37785", "3"),
     NativeHostUsage(Within, "AND o.host_id = 3"), true},
    {"HostUsageOfNoTime", HostUsage("30000 And 30001", ""),
     NativeHostUsage("AND l.end_time BETWEEN 30000 AND 30001", ""), true},
    {"AllThatCanBeAddedUp",
     "SELECT name, Count(*), Count(paid), Sum(paid), Min(log_time), Max(paid), Sum(paid) / Count(*) FROM "
     "local_log INNER JOIN host_src ON local_log.host_id = host_src.id GROUP BY name HAVING Count(paid) > 2",
     "SELECT min(name COLLATE BINARY), count(*), count(paid), sum(paid), min(log_time), max(paid), sum(paid) "
     "/ "
     "count(*) FROM local_log JOIN host_src h ON host_id = h.id GROUP BY name COLLATE QBRPT HAVING "
     "count(paid) > 2",
     true},
    {"OtherConditionsThanTheLookUps",
     "SELECT host_id, (SELECT Count(*) FROM local_log AS i WHERE i.host_id = o.host_id And member_id Is "
     "Null), "
     "Sum(paid) FROM local_log AS o INNER JOIN host_src ON host_src.id = o.host_id WHERE o.paid > 3 GROUP BY "
     "host_id",
     "SELECT host_id, (SELECT count(*) FROM local_log i WHERE i.host_id = o.host_id AND member_id IS NULL), "
     "sum(paid) FROM local_log o JOIN host_src h ON h.id = host_id WHERE paid > 3 GROUP BY host_id",
     true},
    {"EveryHostAppearsOftenForItsOwnSake",
     "SELECT host_src.id, Count(*) FROM host_src, local_log WHERE host_src.id = local_log.host_id GROUP BY "
     "host_src.id",
     "SELECT h.id, count(*) FROM host_src h JOIN local_log ON h.id = host_id GROUP BY h.id", false},
    {"AverageOfAverages",
     "SELECT name, Avg(paid) FROM local_log INNER JOIN host_src ON host_id = host_src.id "
     "GROUP BY name",
     "SELECT min(name COLLATE BINARY), avg(paid) FROM local_log JOIN host_src h ON host_id = h.id GROUP BY "
     "name "
     "COLLATE QBRPT",
     false},
    {"ConditionOnTheOtherTable",
     "SELECT name, Sum(paid) FROM local_log INNER JOIN host_src ON host_id = host_src.id WHERE name <> 'x' "
     "GROUP BY name",
     "SELECT min(name COLLATE BINARY), sum(paid) FROM local_log JOIN host_src h ON host_id = h.id WHERE name "
     "<> "
     "'x' GROUP BY name COLLATE QBRPT",
     false},
    {"SumOverBoth",
     "SELECT name, Sum(paid * host_src.id) FROM local_log INNER JOIN host_src ON host_id = host_src.id GROUP "
     "BY name",
     "SELECT min(name COLLATE BINARY), sum(paid * h.id) FROM local_log JOIN host_src h ON host_id = h.id "
     "GROUP "
     "BY name COLLATE QBRPT",
     false},
    {"GroupedByMoreThanTheKey",
     "SELECT host_id, member_id, Sum(paid) FROM local_log INNER JOIN host_src ON host_id = host_src.id GROUP "
     "BY host_id, member_id",
     "SELECT host_id, member_id, sum(paid) FROM local_log JOIN host_src h ON host_id = h.id GROUP BY "
     "host_id, "
     "member_id",
     false},
    {"LeftJoin",
     "SELECT name, Sum(paid) FROM host_src LEFT JOIN local_log ON host_id = host_src.id GROUP BY name",
     "SELECT min(name COLLATE BINARY), sum(paid) FROM host_src h LEFT JOIN local_log ON host_id = h.id GROUP "
     "BY "
     "name COLLATE QBRPT",
     true},
    {"RightJoin",
     "SELECT h.id, l.host_id, Sum(paid), Max(paid) FROM local_log AS l RIGHT JOIN host_src AS h ON l.host_id "
     "= h.id GROUP BY h.id, l.host_id",
     "SELECT h.id, l.host_id, sum(paid), max(paid) FROM local_log l RIGHT JOIN host_src h ON l.host_id = "
     "h.id GROUP BY h.id, l.host_id",
     true},
    {"LeftJoinFromTheSummedTable",
     "SELECT l.host_id, Sum(paid) FROM local_log AS l LEFT JOIN host_src AS h ON l.host_id = h.id GROUP BY "
     "l.host_id",
     "SELECT l.host_id, sum(paid) FROM local_log l LEFT JOIN host_src h ON l.host_id = h.id GROUP BY "
     "l.host_id",
     false},
    {"LeftJoinThatCounts",
     "SELECT h.id, Count(paid) FROM host_src AS h LEFT JOIN local_log AS l ON l.host_id = h.id GROUP BY h.id",
     "SELECT h.id, count(paid) FROM host_src h LEFT JOIN local_log l ON l.host_id = h.id GROUP BY h.id",
     false},
    {"LeftJoinWhereNothingIsSomething",
     "SELECT h.id, Sum(IIf(paid Is Null, 1, 0)) FROM host_src AS h LEFT JOIN local_log AS l ON l.host_id = "
     "h.id GROUP BY h.id",
     "SELECT h.id, sum(CASE WHEN paid IS NULL THEN 1 ELSE 0 END) FROM host_src h LEFT JOIN local_log l ON "
     "l.host_id = h.id GROUP BY h.id",
     false},
    {"LeftJoinWithACondition",
     "SELECT h.id, Sum(paid) FROM host_src AS h LEFT JOIN local_log AS l ON l.host_id = h.id WHERE "
     "l.member_id Is Null GROUP BY h.id",
     "SELECT h.id, sum(paid) FROM host_src h LEFT JOIN local_log l ON l.host_id = h.id WHERE l.member_id IS "
     "NULL GROUP BY h.id",
     false},
};

std::string CaseName(const testing::TestParamInfo<Case>& info) {
    return info.param.name;
}
INSTANTIATE_TEST_SUITE_P(Rows, EarlyGroupsRows, testing::ValuesIn(Cases), CaseName);

/// Grouped selects in words that both dialects understand.
class GroupMaker {
public:
    explicit GroupMaker(unsigned seed) : mRandom(seed) {}

    std::string Statement() {
        const std::string groups = Some({"h.id", "l.host_id", "l.member_id"}, 1);
        std::string text = "SELECT " + groups + ", " +
                           Some({"Count(*)", "Count(l.paid)", "Sum(l.paid)", "Sum(l.paid * l.use_time)",
                                 "Min(l.log_time)", "Max(l.paid) - Min(l.paid)", "Sum(h.id)", "Avg(l.paid)",
                                 "(SELECT Count(*) FROM members WHERE members.id > 1)",
                                 "(SELECT Sum(i.paid) FROM local_log AS i WHERE i.host_id = 2)"},
                                1);
        constexpr std::array<const char*, 3> joins = {" INNER JOIN ", " LEFT JOIN ", " RIGHT JOIN "};
        const std::string join = joins[mRandom() % joins.size()];
        text += mRandom() % 2 == 0 ? " FROM local_log AS l" + join + "host_src AS h ON h.id = l.host_id"
                                   : " FROM host_src AS h" + join + "local_log AS l ON h.id = l.host_id";
        if (mRandom() % 8 == 0) text += " And l.paid > 2";
        const std::string conditions = Some(
            {"l.paid > 3", "l.member_id Is Null", "Not l.end_time Is Null", "l.host_id = 2", "h.id > 1"}, 0);
        if (!conditions.empty()) text += " WHERE " + Joined(conditions, " And ");
        text += " GROUP BY " + groups;
        if (mRandom() % 3 == 0) text += " HAVING Count(l.paid) > 2";
        return text;
    }

private:
    // Each of the pieces with a chance of a third, at least so many.
    std::string Some(const std::vector<std::string>& pieces, std::size_t least) {
        std::string some;
        std::size_t count = 0;
        while (count < least || some.empty()) {
            for (const std::string& piece : pieces) {
                if (mRandom() % 3 != 0 || some.find(piece) != std::string::npos) continue;
                some += (some.empty() ? "" : ", ") + piece;
                ++count;
            }
            if (least == 0) break;
        }
        return some;
    }
    static std::string Joined(std::string list, const std::string& word) {
        for (std::size_t at = 0; (at = list.find(", ", at)) != std::string::npos; at += word.size())
            list.replace(at, 2, word);
        return list;
    }

    std::mt19937 mRandom;
};

TEST(EarlyGroups, OfAnyShapeKeepTheRows) {
    const unsigned seed = std::random_device{}();
    SmallDatabase database;
    RandomSessions(seed).Fill(database);
    int early = 0;
    for (unsigned turn = 0; turn < 1'000; ++turn) {
        const std::string text = GroupMaker(seed + turn).Statement();
        SCOPED_TRACE("seed " + std::to_string(seed) + ", turn " + std::to_string(turn) + ": " + text);
        std::vector<std::string> rows = database.Rows(text);
        std::vector<std::string> wanted = NativeRows(database, text);
        std::sort(rows.begin(), rows.end());
        std::sort(wanted.begin(), wanted.end());
        ASSERT_EQ(rows, wanted);
        if (TranslateForSqlite(text, database).sql.find("\"qb totals 1\" AS \"") != std::string::npos)
            ++early;
    }
    EXPECT_GT(early, 50);
}

// The statement of all sessions as it is written, but for what SQLite calls otherwise.
std::string NativeDetail(const std::string& filter) {
    return "SELECT host_src.name, CASE WHEN l.member_id IS NOT NULL THEN CASE WHEN members.name IS NOT NULL "
           "THEN "
           "members.name ELSE 'عميل محذوف' END ELSE 'مستخدم عام' END AS m, log_time, use_time, idle_time, "
           "net_cost, print_count, other_cost, discount, paid, user_name FROM (host_src LEFT JOIN (members "
           "RIGHT "
           "JOIN local_log l ON members.id = l.member_id) ON host_src.id = l.host_id) LEFT JOIN users ON "
           "l.user_id = users.id WHERE l.end_time IS NOT NULL " +
           filter + " ORDER BY host_src.name COLLATE QBRPT, l.log_time";
}

// Rows of one place in the order may stand in any order among themselves: a place is the first and the third
// column, the first without regard to case.
std::string PlaceOf(const std::string& row) {
    const std::size_t first = row.find('|');
    const std::size_t second = row.find('|', first + 1);
    std::string name = row.substr(0, first);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
    return name + row.substr(second, row.find('|', second + 1) - second);
}

std::vector<std::string> Settled(std::vector<std::string> rows) {
    for (auto begin = rows.begin(); begin != rows.end();) {
        const auto end = std::find_if(
            begin, rows.end(), [&](const std::string& row) { return PlaceOf(row) != PlaceOf(*begin); });
        std::sort(begin, end);
        begin = end;
    }
    return rows;
}

TEST(SortedByKeys, TheSessionsStandInTheOrderOfTheEngine) {
    const unsigned seed = std::random_device{}();
    for (unsigned turn = 0; turn < 200; ++turn) {
        SCOPED_TRACE("seed " + std::to_string(seed + turn));
        SmallDatabase database;
        RandomSessions(seed + turn).Fill(database);
        const std::string ours = turn % 2 == 0 ? "" : "AND (local_log.host_id = 3)";
        const std::string native = turn % 2 == 0 ? "" : "AND (l.host_id = 3)";
        ASSERT_EQ(Settled(database.Rows(UsageDetail("local_log", ours))),
                  Settled(NativeRows(database, NativeDetail(native))));
    }
}

} // namespace
} // namespace qbrpt::dialect
