// A short run of the fuzzer: statements that are almost right, and bytes that are nothing.
#include "dialect/fuzz_dialect.h"
#include "tools/mutator.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

namespace {

constexpr std::array<std::string_view, 16> Seeds = {
    "SELECT min_log_time, Format(d.date, 'ddd dd MMM yyyy'), net_income + print_income as tnet, t.member "
    "From "
    "daily_sheet AS d RIGHT JOIN (total_use_count AS t RIGHT JOIN host_log_time AS h ON t.work_id = h.id) ON "
    "d.work_id = h.id WHERE(h.id BETWEEN 5 AND 2)  ORDER BY h.id ",
    "SELECT 'x ' & Format([se_id],'#00000') & ' ' AS seid, m.name FROM local_log AS lg INNER JOIN ((pp_dat "
    "AS pd INNER "
    "JOIN members_time AS mt ON pd.pp_id = mt.pp_id) INNER JOIN membership AS m ON mt.membership_id = m.id) "
    "ON "
    "lg.active_membership = mt.id WHERE (mt.id = 20 AND lg.utype <> 0)",
    "SELECT host_src.name, (SELECT Sum(use_time) FROM local_log WHERE local_log.host_id = "
    "[local_log2].[host_id] AND "
    "(Not member_id Is Null) AND ([local_log].[end_time] Between 37780.5 And 37782))AS member_time, "
    "(Sum([use_time])/(SELECT IIf(Sum([use_time]) Is Null Or Sum([use_time]) = 0, 1, Sum([use_time])) as s "
    "FROM "
    "local_log WHERE Not IsNull(end_time))) AS p FROM host_src INNER JOIN local_log AS local_log2 ON "
    "host_src.id = "
    "local_log2.host_id WHERE (((IsNull([end_time]))=False)) GROUP BY host_src.id, host_src.name, "
    "local_log2.host_id "
    "ORDER BY host_src.name",
    "SELECT mm.name, First(mi.begindate), Sum(IIf(mi.ended,0,mi.membertime - mi.totaltime)) AS r, mm.id\r "
    "From members "
    "AS mm INNER JOIN members_info AS mi ON mm.id = mi.member_id WHERE Not mi.ended AND CLng(mi.begindate) "
    "BETWEEN 1 "
    "AND 40000\rGROUP BY mm.name, mm.id\rORDER BY mm.id;",
    "PARAMETERS d1 Long, d2 Long; SELECT u.id FROM local_log AS l INNER JOIN users AS u ON l.user_id = u.id "
    "WHERE [d1] "
    "Is Null Or l.work_id Between [d1] And [d2]",
    "INSERT INTO account_log(acc_from, acc_to, amount, trans_date, descrip) VALUES(1, 3, 12.5, "
    "37787.4166666667, 'x')",
    "UPDATE t AS x SET x.name = 'a' & n, flag = Not flag WHERE day = #6/15/2003# And name Like 'a*[!b]?#'",
    "DELETE * FROM t WHERE id In (SELECT TOP 3 id FROM t ORDER BY n DESC)",
    "SELECT DISTINCT name, flag FROM t WHERE any = name UNION ALL SELECT user_name, True FROM users ORDER BY "
    "1, flag "
    "DESC",
    "SELECT TOP 10 PERCENT id * 2 AS twice, twice & '' AS s FROM (SELECT * FROM t WHERE n Mod 2 = 0) AS q "
    "ORDER BY "
    "twice DESC, name",
    "SELECT t.*, l.* FROM t LEFT JOIN lastOnes AS l ON t.id = l.id, users",
    "SELECT Switch(n > 1, 'a', flag, 'b'), Choose(id, 1, 2.5, day), Nz(n, 0), IIf(id, day, Null), "
    "CBool(name), "
    "CStr(flag), CDate(n), Int(day), Abs(-n), Round(n, 2), Left(name, 2), DateAdd('m', 1, day) FROM t",
    "SELECT name, Count(*), Max(name), Last(flag) FROM t GROUP BY name HAVING Sum(n) > 3 And name <> 'x' "
    "ORDER BY "
    "Count(*), name DESC",
    "SELECT id FROM t WHERE Exists (SELECT * FROM users WHERE users.id = t.id) Xor (id And 3) = 1 Or Not day "
    "Between "
    "day And Now()",
    "SELECT a.id, b.id FROM (t AS a LEFT JOIN t AS b ON a.id = b.id + 1) RIGHT JOIN users AS u ON b.id = "
    "u.id And "
    "a.day = b.day",
    "SELECT \"q\"\"q\", 'it''s', -2 ^ -3 \\ 4, #10:30 PM#, True Eqv False Imp Null, [any] + 1 FROM t"};

constexpr std::array<std::string_view, 62> Words = {
    "SELECT", "FROM",       "WHERE",       "(",          ")",         ",",        ".",        "*",
    "+",      "-",          "/",           "\\",         "^",         "Mod",      "&",        "=",
    "<>",     "<",          ">=",          "And",        "Or",        "Not",      "Is",       "Null",
    "Like",   "In",         "Between",     "IIf(",       "Sum(",      "First(",   "Count(*)", "Format(",
    "CLng(",  "'a*'",       "#6/15/2003#", "5",          "2.5",       "True",     "id",       "name",
    "day",    "flag",       "any",         "n",          "t",         "users",    "AS x",     "x",
    "t.",     "INNER JOIN", "LEFT JOIN",   "RIGHT JOIN", "ON",        "GROUP BY", "HAVING",   "ORDER BY",
    "DESC",   "UNION",      "TOP 2",       "DISTINCT",   "[unknown]", "CDbl("};

void Feed(const std::string& text) {
    FuzzDialect(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
}

TEST(Fuzz, SeedsAreTaken) {
    for (const std::string_view seed : Seeds)
        Feed(std::string(seed));
}

TEST(Fuzz, NearStatementsAndBytesEndInWordsOrInAStatement) {
    const qbrpt::test::FuzzRun run(20'000);
    qbrpt::test::Mutator mutator(run.seed, Seeds, Words);
    for (long i = 0; i < run.turns; ++i)
        Feed(mutator.Next());
}

} // namespace
