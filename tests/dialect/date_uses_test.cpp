// The dates that a statement works with, so that a text in one of them can be looked for.
#include "dialect/small_database.h"
#include "dialect/usage_statements.h"

#include <gtest/gtest.h>

namespace qbrpt::dialect {
namespace {

struct UseRow {
    const char* name;
    std::string text;
    std::string dates; ///< table.column, one after the other
};

class DateUses : public testing::TestWithParam<UseRow> {};

TEST_P(DateUses, AreTheseColumns) {
    SmallDatabase database;
    database.Native(
        "CREATE TABLE host_src (id INTEGER, name TEXT);"
        "CREATE TABLE members (id INTEGER, name TEXT, since DATETIME);"
        "CREATE TABLE users (id INTEGER, user_name TEXT);"
        "CREATE TABLE local_log (id INTEGER, host_id INTEGER, member_id INTEGER, user_id INTEGER, "
        "log_time DATETIME, end_time DATETIME, use_time REAL, idle_time REAL, net_cost REAL, print_count "
        "REAL, print_cost REAL, other_cost REAL, discount REAL, paid REAL);");
    database.Save("ends", "SELECT id, end_time AS e FROM local_log");
    std::string dates;
    for (const DateColumn& date : TranslateForSqlite(GetParam().text, database).dates)
        dates += (dates.empty() ? "" : " ") + date.table + "." + date.column;
    EXPECT_EQ(dates, GetParam().dates);
}

const UseRow Rows[] = {
    {"ComesOut", "SELECT id, since FROM members", ""},
    {"ComesOutUnderAStar", "SELECT * FROM Members", ""},
    {"ComesOutAndSorts", "SELECT id, since AS s FROM members ORDER BY since DESC", ""},
    {"SortsOnly", "SELECT id FROM members ORDER BY since", "members.since"},
    {"CutOff", "SELECT TOP 2 since FROM members ORDER BY since", "members.since"},
    {"Compared", "SELECT id FROM members WHERE since > 5", "members.since"},
    {"ComparedInEitherOrder", "SELECT id FROM members WHERE 5 > since", "members.since"},
    {"Between", "SELECT since FROM members WHERE since Between 1 And 2", "members.since"},
    {"ComparedByItsAlias", "SELECT since AS s FROM members WHERE s = 5", "members.since"},
    {"TestedForNull", "SELECT id FROM members WHERE Not since Is Null Or IsNull(since) = False", ""},
    {"ExpressionTestedForNull", "SELECT id FROM members WHERE since + 1 Is Null", "members.since"},
    {"WorkedWith", "SELECT Format(since, 'yyyy'), CLng(log_time) FROM members, local_log",
     "members.since local_log.log_time"},
    {"Aggregated", "SELECT Max(since) FROM members", "members.since"},
    {"GroupedBy", "SELECT since, Count(*) FROM members GROUP BY since", "members.since"},
    {"InAJoin", "SELECT m.id FROM members AS m INNER JOIN local_log AS l ON m.since = l.end_time",
     "members.since local_log.end_time"},
    {"InASubselect",
     "SELECT id FROM members WHERE id In (SELECT member_id FROM local_log WHERE end_time < 3)",
     "local_log.end_time"},
    {"OutOfASubselect", "SELECT (SELECT Max(end_time) FROM local_log) FROM members", "local_log.end_time"},
    {"OutOfASavedQuery", "SELECT e FROM ends", "local_log.end_time"},
    {"UnionOfKinds", "SELECT since FROM members UNION ALL SELECT name FROM members", "members.since"},
    {"WithATextInOneColumn", "SELECT IIf(id > 1, since, name) FROM members", "members.since"},
    {"ChoosesWhatToDelete", "DELETE FROM members WHERE since < 5", "members.since"},
    {"Stored", "INSERT INTO members (since) SELECT end_time FROM local_log", "local_log.end_time"},
    {"Changed", "UPDATE members SET since = since + 1", "members.since"},
    {"SessionList", UsageDetail("local_log", "AND (local_log.host_id = 2)"), ""},
    {"HostUse", HostUsage("", ""), ""},
    {"HostUseOfAPeriod", HostUsage("1 And 2", ""), "local_log.end_time"},
};

std::string UseName(const testing::TestParamInfo<UseRow>& info) {
    return info.param.name;
}
INSTANTIATE_TEST_SUITE_P(Rows, DateUses, testing::ValuesIn(Rows), UseName);

} // namespace
} // namespace qbrpt::dialect
