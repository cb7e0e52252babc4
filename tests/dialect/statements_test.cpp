// The system's own statements, as its commands build them, each in all its variants, against rows that were
// worked out by hand.
#include "dialect/cafe_database.h"
#include "dialect/real_cafe.h"
#include "dialect/usage_statements.h"

#include <gtest/gtest.h>

namespace qbrpt::dialect {
namespace {

using Lines = std::vector<std::string>;

struct Statement {
    const char* name;
    std::string text;
    Lines rows;
    bool sorted = true; ///< the text asks for an order
};

class SystemStatements : public testing::TestWithParam<Statement> {};

void ExpectRows(Lines rows, const Statement& statement) {
    Lines wanted = statement.rows;
    if (!statement.sorted) {
        std::sort(rows.begin(), rows.end());
        std::sort(wanted.begin(), wanted.end());
    }
    EXPECT_EQ(rows, wanted);
}

TEST_P(SystemStatements, GiveTheirRows) {
    SmallDatabase database;
    FillCafe(database);
    ExpectRows(database.Rows(GetParam().text), GetParam());
}

TEST_P(SystemStatements, GiveTheirRowsThroughTheAdapter) {
    RealCafe cafe;
    ExpectRows(RealCafe::Rows(cafe.Database().OpenRecordset(GetParam().text)), GetParam());
}

std::string StatementName(const testing::TestParamInfo<Statement>& info) {
    return info.param.name;
}

// --- the look-ups -------------------------------------------------------------------------------------

const Statement LookUps[] = {
    {"WorkDate", "SELECT use_date FROM host_log_time WHERE id = 2", {"37781.5"}},
    {"WorkDateMissing", "SELECT use_date FROM host_log_time WHERE id = 0", {}},
    {"WorkDateNegative", "SELECT use_date FROM host_log_time WHERE id = -3", {}},
    {"HostName", "SELECT name FROM host_src WHERE id = 3", {"جهاز 3"}},
};
INSTANTIATE_TEST_SUITE_P(LookUps, SystemStatements, testing::ValuesIn(LookUps), StatementName);

// --- PrintIncome --------------------------------------------------------------------------------------

std::string Income(const std::string& where) {
    return "SELECT min_log_time, max_log_time, Format(d.date, 'ddd dd MMM yyyy'), net_income + print_income "
           "as tnet, "
           "members_income, pp_income, other_Income, total_discount, 0 as paid_out, total_income, t.prints, "
           "t.pp, "
           "t.general, t.member, d.work_time, t.total_time, pc_count From daily_sheet AS d RIGHT JOIN "
           "(total_use_count AS t RIGHT JOIN host_log_time AS h ON t.work_id = h.id) ON d.work_id = h.id" +
           where + " ORDER BY h.id ";
}
const std::string IncomeDay1 =
    "37780.375|37780.5625|الأحد 08 يونيو 2003|10|4|0|2.5|1|0|16.5|2|0|1|1|600|150|3";
const std::string IncomeDay2 = "37781.5|NULL|الاثنين 09 يونيو 2003|NULL|3|0|0|0|0|3|0|0|1|1|480|40|3";
const std::string IncomeDay3 =
    "NULL|NULL||NULL|NULL|NULL|NULL|NULL|0|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL";
const std::string IncomeDay4 =
    "37783.25|37783.5|الأربعاء 11 يونيو 2003|1.5|5|0|0|0|0|6.5|NULL|NULL|NULL|NULL|300|NULL|3";

const Statement Incomes[] = {
    {"Range", Income(" WHERE(h.id BETWEEN 1 AND 2) "), {IncomeDay1, IncomeDay2}},
    {"RangeReversed", Income(" WHERE(h.id BETWEEN 4 AND 2) "), {IncomeDay2, IncomeDay3, IncomeDay4}},
    {"Single", Income(" WHERE(h.id = 1) "), {IncomeDay1}},
    {"DayWithoutSheet", Income(" WHERE(h.id = 3) "), {IncomeDay3}},
    {"All", Income(""), {IncomeDay1, IncomeDay2, IncomeDay3, IncomeDay4, IncomeDay3}},
    {"None", Income(" WHERE(h.id = 99) "), {}},
};
INSTANTIATE_TEST_SUITE_P(PrintIncome, SystemStatements, testing::ValuesIn(Incomes), StatementName);

// --- PrintMemberUsage, PrintPPUsage -------------------------------------------------------------------

std::string MemberUsage(const std::string& filter) {
    return "SELECT members.name & ' ', membership.name, log_time, end_time, local_log.use_time FROM "
           "((local_log "
           "INNER JOIN members ON local_log.member_id = members.id) INNER JOIN members_time ON "
           "local_log.active_membership = members_time.id) LEFT JOIN membership ON "
           "members_time.membership_id = "
           "membership.id WHERE (local_log.utype = 2) " +
           filter;
}
std::string CardUsage(const std::string& member, const std::string& filter) {
    return "SELECT 'بطاقة رقم ' & Format([se_id],'#00000') & ' ' AS seid, m.name, lg.log_time, lg.end_time, "
           "lg.use_time FROM local_log AS lg INNER JOIN ((pp_dat AS pd INNER JOIN members_time AS mt ON "
           "pd.pp_id = "
           "mt.pp_id) INNER JOIN membership AS m ON mt.membership_id = m.id) ON lg.active_membership = mt.id "
           "WHERE (mt.id = " +
           member + " AND lg.utype <> 0) " + filter;
}
const std::string Use1 = "أحمد |شهري|37780.375|37780.416666666664|60";
const std::string Use5 = "Ahmed |شهري|37783.25|37783.5|45";
const std::string UseOfCard = "بطاقة رقم 00042 |Weekly|37784.5|37784.75|120";

const Statement Usages[] = {
    {"Members", MemberUsage(""), {Use1, Use5}, false},
    {"BySubscription", MemberUsage("AND (local_log.active_membership = 10)"), {Use1, Use5}, false},
    {"ByMember", MemberUsage("AND (local_log.member_id = 2)"), {Use5}, false},
    {"NoSuchMember", MemberUsage("AND (local_log.member_id = 99)"), {}, false},
    {"Card", CardUsage("20", ""), {UseOfCard}, false},
    {"CardOnDay", CardUsage("20", "AND (lg.work_id = 5)"), {UseOfCard}, false},
    {"CardOnOtherDay", CardUsage("20", "AND (lg.work_id = 1)"), {}, false},
    {"CardZero", CardUsage("0", ""), {}, false},
};
INSTANTIATE_TEST_SUITE_P(PrintUsages, SystemStatements, testing::ValuesIn(Usages), StatementName);

TEST(SystemStatement, MemberUsageKeepsASubscriptionWhoseKindIsGone) {
    SmallDatabase database;
    FillCafe(database);
    database.Native("INSERT INTO members VALUES (99, 'عائد')");
    EXPECT_EQ(database.Rows(MemberUsage("AND (local_log.member_id = 99)")),
              Lines{"عائد |NULL|37781.5|37781.75|30"});
}

// --- PrintPCUsage -------------------------------------------------------------------------------------

// All finished sessions: 60 + 90 + 30 + 45 + 15 + 120 = 360 minutes.
const std::string Host1 = "PC1|105|90|195|9|2|1|19|1|18|0.5416666666666666";
const std::string Host2 = "pc2|30|120|150|0|3|1.5|3|0|3|0.4166666666666667";
// From 10:00 of day 37780 (the first session ends on that very second) to the end of day 37781: 180 minutes.
const std::string Host1OfPeriod = "PC1|60|90|150|9|2|1|14|1|13|0.8333333333333334";
const std::string Host2OfPeriod = "pc2|30|NULL|30|NULL|0|0|3|0|3|0.16666666666666666";

const Statement Hosts[] = {
    {"All", HostUsage("", ""), {Host1, Host2}},
    {"OneHost", HostUsage("", "2"), {Host2}},
    {"HostWithoutSessions", HostUsage("", "3"), {}},
    {"Period", HostUsage("37780.4166666667 And 37782", ""), {Host1OfPeriod, Host2OfPeriod}},
    {"PeriodReversed", HostUsage("37782 And 37780.4166666667", ""), {Host1OfPeriod, Host2OfPeriod}},
    {"PeriodOneHost", HostUsage("37780.4166666667 And 37782", "1"), {Host1OfPeriod}},
    {"EmptyPeriod", HostUsage("30000 And 30001", ""), {}},
    {"NoUseTime", HostUsage("37783.4 And 37783.5", ""), {"PC1|45|NULL|45|NULL|0|0|5|0|5|1"}},
};
INSTANTIATE_TEST_SUITE_P(PrintPCUsage, SystemStatements, testing::ValuesIn(Hosts), StatementName);

TEST(SystemStatement, HostUsageDividesByOneWhereNothingWasUsed) {
    SmallDatabase database;
    FillCafe(database);
    database.Native("UPDATE local_log SET use_time = 0");
    EXPECT_EQ(database.Rows(HostUsage("", "2")), Lines{"pc2|0|0|0|0|3|1.5|3|0|3|0"});
    database.Native("UPDATE local_log SET use_time = NULL");
    EXPECT_EQ(database.Rows(HostUsage("", "2")), Lines{"pc2|NULL|NULL|NULL|NULL|3|1.5|3|0|3|NULL"});
}

// --- PrintInternetUsage -------------------------------------------------------------------------------

const std::string Grouped =
    "SELECT device_name, (Count([id]) & '  يوم/أيام') AS days, Sum(second_count/60) AS "
    "sc_count FROM internet_usage ";
const std::string Detailed =
    "SELECT device_name, Format(use_date, 'ddd, dd MMM yyyy') AS d, (second_count/60) AS "
    "t FROM internet_usage";

const Statement Internet[] = {
    {"GroupedAll",
     Grouped + " GROUP BY device_name",
     {"Router|2  يوم/أيام|2.5", "مودم|3  يوم/أيام|61.5"},
     false},
    {"GroupedPeriod",
     Grouped + " WHERE (use_date BETWEEN 37781 AND 37783) GROUP BY device_name",
     {"router|1  يوم/أيام|1", "مودم|1  يوم/أيام|60"},
     false},
    {"GroupedReversed",
     Grouped + " WHERE (use_date BETWEEN 37783 AND 37781) GROUP BY device_name",
     {"router|1  يوم/أيام|1", "مودم|1  يوم/أيام|60"},
     false},
    {"DetailAll",
     Detailed,
     {"Router|الأحد, 08 يونيو 2003|1.5", "router|الاثنين, 09 يونيو 2003|1", "مودم|الثلاثاء, 10 يونيو 2003|60",
      "مودم|الأربعاء, 11 يونيو 2003|0.5", "مودم||1"},
     false},
    {"DetailOneDayWithMidnight",
     Detailed + " WHERE (use_date BETWEEN 37780 AND 37781)",
     {"Router|الأحد, 08 يونيو 2003|1.5", "router|الاثنين, 09 يونيو 2003|1"},
     false},
};
INSTANTIATE_TEST_SUITE_P(PrintInternetUsage, SystemStatements, testing::ValuesIn(Internet), StatementName);

// --- the lists of money -------------------------------------------------------------------------------

const std::string Payments = "SELECT p.pay_date, IIf(Not m.name Is Null, m.name, 'عميل تم حذفه')  AS mName, "
                             "p.amount, IIf(Not ms.name Is "
                             "Null, ms.name, 'اشتراك محذوف') FROM (members_payment AS p LEFT JOIN members AS "
                             "m ON p.member_id = m.id) LEFT "
                             "JOIN membership ms ON p.membership_id = ms.id";
const std::string PaidOut = "SELECT amount, pay_date, details FROM pay_out ";
const std::string OtherIncome = "SELECT amount, pay_date, details FROM other_income ";
const std::string Services =
    "SELECT c.name, c.item_count, c.price, l.end_time, h.name AS hostname FROM host_src AS h "
    "INNER JOIN (cafe_orders AS c INNER JOIN local_log AS l ON c.useid = l.id) ON h.id = "
    "l.host_id ";
const std::string Pay1 = "37780.5|أحمد|50|شهري";
const std::string Pay2 = "37781|عميل تم حذفه|20.25|اشتراك محذوف";
const std::string Pay4 = "37783|Ahmed|30|اشتراك محذوف";

const Statement Money[] = {
    {"PaymentsAll", Payments, {Pay1, Pay2, Pay4}, false},
    {"PaymentsRange", Payments + " WHERE (p.work_id BETWEEN 2 AND 1)", {Pay1, Pay2}, false},
    {"PaymentsSingle", Payments + " WHERE (p.work_id = 4)", {Pay4}, false},
    {"PaidOutAll", PaidOut, {"10|37780|شاي", "5.5|37781|NULL"}, false},
    {"PaidOutRange", PaidOut + " WHERE (work_id BETWEEN 2 AND 9)", {"5.5|37781|NULL"}, false},
    {"PaidOutSingle", PaidOut + " WHERE (work_id = 1)", {"10|37780|شاي"}, false},
    {"OtherIncomeAll", OtherIncome, {"7|37783|طباعة"}, false},
    {"OtherIncomeRange", OtherIncome + " WHERE work_id BETWEEN 5 AND 3", {"7|37783|طباعة"}, false},
    {"OtherIncomeSingle", OtherIncome + " WHERE work_id = 1", {}, false},
    {"ServicesAll", Services, {"قهوة|2|1.5|37780.416666666664|PC1", "Tea|1|1|NULL|pc2"}, false},
    {"ServicesRange", Services + " WHERE (l.work_id BETWEEN 2 AND 4)", {"Tea|1|1|NULL|pc2"}, false},
    {"ServicesSingle", Services + " WHERE (l.work_id = 1)", {"قهوة|2|1.5|37780.416666666664|PC1"}, false},
};
INSTANTIATE_TEST_SUITE_P(MoneyLists, SystemStatements, testing::ValuesIn(Money), StatementName);

// --- PrintUsage ---------------------------------------------------------------------------------------

const std::string Detail1 = "PC1|أحمد|37780.375|60|0|0.05|2|0|1|4|سعيد";
const std::string Detail2 = "PC1|مستخدم عام|37780.5|90|5|0.1|0|2.5|0|9|سعيد";
const std::string Detail3 = "pc2|عميل محذوف|37781.5|30|0|0.1|0|0|0|3|NULL";
const std::string Detail5 = "PC1|Ahmed|37783.25|45|0|0.1|0|0|0|5|سعيد";
const std::string Detail7 = "pc2|مستخدم عام|37784.5|120|0|0|3|0|0|0|سعيد";

const Statement Details[] = {
    {"All", UsageDetail("local_log", ""), {Detail1, Detail2, Detail5, Detail3, Detail7}},
    {"Range",
     UsageDetail("local_log", " AND (local_log.work_id BETWEEN 3 AND 1)"),
     {Detail1, Detail2, Detail3}},
    {"Single", UsageDetail("local_log", " AND (local_log.work_id = 4)"), {Detail5}},
    {"OneHost", UsageDetail("local_log", " AND (local_log.host_id = 2)"), {Detail3, Detail7}},
    {"SingleOneHost",
     UsageDetail("local_log", " AND (local_log.work_id = 1) AND (local_log.host_id = 1)"),
     {Detail1, Detail2}},
    {"Deleted", UsageDetail("local_log_delete", ""), {"جهاز 3|أحمد|37780.25|5|0|0.1|0|0|0|0.5|سعيد"}},
    {"DeletedSingle", UsageDetail("local_log_delete", " AND (local_log_delete.work_id = 2)"), {}},
};
INSTANTIATE_TEST_SUITE_P(PrintUsage, SystemStatements, testing::ValuesIn(Details), StatementName);

// --- PrintMembersInfo ---------------------------------------------------------------------------------

std::string MembersInfo(const std::string& where) {
    return "SELECT mm.name, mi.accountname, mi.begindate, mi.totaltime, IIf(mi.ended,0,mi.membertime - "
           "mi.totaltime) "
           "AS remintime, mi.paid, mi.remin, mm.id\r From members AS mm INNER JOIN members_info AS mi ON "
           "mm.id = "
           "mi.member_id " +
           where + "\rORDER BY mm.id, mi.begindate, mi.accountname, mi.ended;";
}
std::string MembersInfoGrouped(const std::string& where) {
    return "SELECT mm.name, mi.accountname, First(mi.begindate), Sum(mi.totaltime), "
           "Sum(IIf(mi.ended,0,mi.membertime - mi.totaltime)) AS remintime, Sum(mi.paid), Sum(mi.remin), "
           "mm.id\r "
           "From members AS mm INNER JOIN members_info AS mi ON mm.id = mi.member_id " +
           where + "\rGROUP BY mm.name, mi.accountname, mm.id\rORDER BY mm.id;";
}
const std::string Info1Old = "أحمد|شهري|37780.5|600|0|50|0|1";
const std::string Info1New = "أحمد|شهري|37785|100|500|50|0|1";
const std::string Info2Old = "Ahmed|GOLD|37779|300|0|30|5|2";
const std::string Info2New = "Ahmed|Gold|37781.5|30|270|20|10|2";

const Statement Infos[] = {
    {"All", MembersInfo(""), {Info1Old, Info1New, Info2Old, Info2New}},
    {"Running", MembersInfo("WHERE Not mi.ended"), {Info1New, Info2New}},
    {"Owing", MembersInfo("WHERE mi.remin <> 0"), {Info2Old, Info2New}},
    // 37780.5 rounds to the even day 37780, 37781.5 to 37782.
    {"DayEven", MembersInfo("WHERE CLng(mi.begindate) = 37780"), {Info1Old}},
    {"DayOdd", MembersInfo("WHERE CLng(mi.begindate) = 37781"), {}},
    {"DayAfterHalf", MembersInfo("WHERE CLng(mi.begindate) = 37782"), {Info2New}},
    {"Days", MembersInfo("WHERE CLng(mi.begindate) BETWEEN 37779 AND 37780"), {Info1Old, Info2Old}},
    {"DaysReversed", MembersInfo("WHERE CLng(mi.begindate) BETWEEN 37782 AND 37780"), {Info1Old, Info2New}},
    {"RunningDays",
     MembersInfo("WHERE Not mi.ended AND CLng(mi.begindate) BETWEEN 37781 AND 37785"),
     {Info1New, Info2New}},
    {"HostText", MembersInfo("WHERE mi.ended = -1"), {Info1Old, Info2Old}},
    {"HostTextOne", MembersInfo("WHERE mi.ended = 1 AND mm.name Like \"ah*\""), {Info2Old}},
    {"HostTextTrue", MembersInfo("WHERE mi.ended = True"), {Info1Old, Info2Old}},
    {"HostTextNotZero", MembersInfo("WHERE mi.ended <> 0"), {Info1Old, Info2Old}},
    {"HostTextFalse", MembersInfo("WHERE mi.ended = 0"), {Info1New, Info2New}},
    {"Grouped",
     MembersInfoGrouped(""),
     {"أحمد|شهري|37785|700|500|100|0|1", "Ahmed|GOLD|37781.5|330|270|50|15|2"}},
    {"GroupedRunning",
     MembersInfoGrouped("WHERE Not mi.ended"),
     {"أحمد|شهري|37785|100|500|50|0|1", "Ahmed|Gold|37781.5|30|270|20|10|2"}},
    {"GroupedOwingDays",
     MembersInfoGrouped("WHERE mi.remin <> 0 AND CLng(mi.begindate) = 37779"),
     {"Ahmed|GOLD|37779|300|0|30|5|2"}},
};
INSTANTIATE_TEST_SUITE_P(PrintMembersInfo, SystemStatements, testing::ValuesIn(Infos), StatementName);

// --- PrintAudit, PrintPrintLog ------------------------------------------------------------------------

const std::string Audit =
    "SELECT aud_tag.name, user_audit.a_date, audit_temp.user_name, audit_temp.comments FROM "
    "(audit_temp INNER JOIN user_audit ON audit_temp.a_id = user_audit.a_id) INNER JOIN "
    "aud_tag ON user_audit.type = aud_tag.tid ORDER BY user_audit.a_date;";
const std::string PrintLog =
    "SELECT print_log.printer, print_log.machine, print_log.print_date,  print_log.pages, print_log.printed, "
    "IIF(local_log.id IS NULL, 'غير مستخدم','مستخدم'), local_log.print_count, print_log.document, "
    "users.user_name  "
    "FROM (print_log LEFT JOIN users ON print_log.user_id = users.id) LEFT JOIN local_log ON "
    "print_log.use_id = "
    "local_log.id";
const std::string Print1 = "HP|PC1|37780.4|2|2|مستخدم|2|doc|سعيد";
const std::string Print2 = "HP|pc2|37781.4|5|4|غير مستخدم|NULL|b|NULL";

const Statement Logs[] = {
    {"Audit", Audit, {"خروج|37780|Ali|NULL", "دخول|37781|سعيد|دخول"}},
    {"PrintLogAll", PrintLog, {Print1, Print2}, false},
    {"PrintLogRange", PrintLog + " WHERE print_log.work_id BETWEEN 2 AND 1", {Print1, Print2}, false},
    {"PrintLogSingle", PrintLog + " WHERE print_log.work_id = 2", {Print2}, false},
};
INSTANTIATE_TEST_SUITE_P(Logs, SystemStatements, testing::ValuesIn(Logs), StatementName);

// --- general accounts ---------------------------------------------------------------------------------

std::string Balance(const std::string& id) {
    return "SELECT IIf(Sum(amount) Is Null, 0, Sum(amount))-(SELECT IIf(Sum(amount) Is Null, 0, Sum(amount)) "
           "FROM "
           "account_log WHERE acc_from = " +
           id + ") FROM account_log WHERE acc_to = " + id;
}
const std::string Balances =
    "SELECT account_src.accid, account_src.name, IIf(Sum([amount]) Is Null,0,Sum([amount]))-(Select "
    "IIf(Sum(amount) Is Null, 0, Sum(amount)) FROM account_log WHERE acc_from = [account_log1].[acc_to]) AS "
    "total, "
    "account_log1.acc_to FROM account_log AS account_log1 RIGHT JOIN account_src ON account_log1.acc_to = "
    "account_src.accid\rGROUP BY account_src.accid, account_src.name, account_log1.acc_to;";

std::string Incoming(const std::string& id, const std::string& period) {
    return "SELECT IIf(name Is Null, 'صافي الإيراد ليوم '  & Format(trans_date,'dd-mm-yyyy "
           "hh:MM'),account_src.name) AS accname, account_log.amount, account_log.descrip, "
           "account_log.trans_date\rFROM account_log LEFT JOIN account_src ON account_log.acc_from = "
           "account_src.accid\rWHERE account_log.acc_to = " +
           id + period + "\rORDER BY account_log.trans_date";
}
std::string IncomingOfNone(const std::string& period) {
    return "SELECT account_src.name, account_log.amount, account_log.descrip, account_log.trans_date\rFROM "
           "account_log INNER JOIN account_src ON account_log.acc_from = account_src.accid\rWHERE "
           "account_log.acc_to = 0" +
           period + "\rORDER BY account_log.trans_date";
}
std::string Outgoing(const std::string& id, const std::string& period) {
    return "SELECT account_src.name, account_log.amount, account_log.descrip, account_log.trans_date \rFROM "
           "account_log INNER JOIN account_src ON account_log.acc_to = account_src.accid\rWHERE "
           "account_log.acc_from = " +
           id + period + "\rORDER BY account_log.trans_date";
}
std::string AllMoves(const std::string& period) {
    return "SELECT IIf([account_src].[name] Is Null,'صافي الإيراد ليوم ' & "
           "Format([trans_date],'dd-mm-yyyy'),[account_src].[name]) AS accfrom, account_src_1.name AS accto, "
           "account_log.amount, account_log.descrip, account_log.trans_date\r FROM (account_log LEFT JOIN "
           "account_src ON account_log.acc_from = account_src.accid) INNER JOIN account_src AS account_src_1 "
           "ON "
           "account_log.acc_to = account_src_1.accid\r" +
           period + "\rORDER BY account_log.trans_date, account_src.accid;";
}
const std::string Move1 = "صافي الإيراد ليوم 08-06-2003|الصندوق|100.5|اليوم|37780.416666666664";
const std::string Move2 = "الصندوق|البنك|40|NULL|37781.75";
const std::string Move3 = "البنك|Safe|10||37782.5";
const std::string Move4 = "Safe|البنك|4|back|37783.5";

const Statement Ledger[] = {
    {"NextNumber", "SELECT IIf(Max(accid) Is Null, 0, Max(accid)) + 1 As newid FROM account_src", {"4"}},
    {"BalanceOf1", Balance("1"), {"60.5"}},
    {"BalanceOf2", Balance("2"), {"34"}},
    {"BalanceOfNobody", Balance("55"), {"0"}},
    {"BalanceOf0", Balance("0"), {"-108.5"}},
    {"Balances", Balances, {"1|الصندوق|60.5|1", "2|البنك|34|2", "3|Safe|6|3"}, false},
    {"Accounts", "SELECT * FROM account_src", {"2|البنك", "1|الصندوق", "3|Safe"}},
    {"IncomingTakings",
     Incoming("1", ""),
     {"صافي الإيراد ليوم 08-06-2003 10:06|100.5|اليوم|37780.416666666664"}},
    {"Incoming", Incoming("2", ""), {"الصندوق|40|NULL|37781.75", "Safe|4|back|37783.5"}},
    {"IncomingRange",
     Incoming("2", " AND (CDbl(trans_date) BETWEEN 37781 AND 37782)"),
     {"الصندوق|40|NULL|37781.75"}},
    {"IncomingRangeReversed",
     Incoming("2", " AND (CDbl(trans_date) BETWEEN 37783.5 AND 37782)"),
     {"Safe|4|back|37783.5"}},
    {"IncomingAtTheVerySecond",
     Incoming("1", " AND (CDbl(trans_date) BETWEEN 37780.4166666667 AND 37790)"),
     {"صافي الإيراد ليوم 08-06-2003 10:06|100.5|اليوم|37780.416666666664"}},
    {"IncomingASecondLater", Incoming("1", " AND (CDbl(trans_date) BETWEEN 37780.4166782407 AND 37790)"), {}},
    // 37783.5 rounds to 37784.
    {"IncomingDay", Incoming("2", " AND (CLng(trans_date)=37784)"), {"Safe|4|back|37783.5"}},
    {"IncomingOtherDay", Incoming("2", " AND (CLng(trans_date)=37783)"), {}},
    {"IncomingOfNone", IncomingOfNone(""), {}},
    {"IncomingOfNoneDay", IncomingOfNone(" AND (CLng(trans_date)=37783)"), {}},
    {"Outgoing", Outgoing("2", ""), {"Safe|10||37782.5"}},
    {"OutgoingEven", Outgoing("2", " AND (CLng(trans_date)=37782)"), {"Safe|10||37782.5"}},
    {"AllMoves", AllMoves(""), {Move1, Move2, Move3, Move4}},
    {"AllMovesRange", AllMoves(" Where (trans_date BETWEEN 37781.75 AND 37782.5)"), {Move2, Move3}},
    {"AllMovesVerySecond", AllMoves(" Where (trans_date BETWEEN 37780.4166666667 AND 37781)"), {Move1}},
    {"AllMovesDay", AllMoves(" Where (CLng(trans_date)=37780)"), {Move1}},
};
INSTANTIATE_TEST_SUITE_P(GeneralAccounts, SystemStatements, testing::ValuesIn(Ledger), StatementName);

TEST(SystemStatement, AnAccountThatNeverReceivedShowsZeroEvenIfItGave) {
    SmallDatabase database;
    FillCafe(database);
    database.Native("INSERT INTO account_src VALUES (4, 'new'), (4, 'twice');"
                    "INSERT INTO account_log VALUES (4, 1, 9, 37785, NULL)");
    Lines rows = database.Rows(Balances);
    std::sort(rows.begin(), rows.end());
    EXPECT_EQ(rows,
              (Lines{"1|الصندوق|69.5|1", "2|البنك|34|2", "3|Safe|6|3", "4|new|0|NULL", "4|twice|0|NULL"}));
}

TEST(SystemStatement, NextNumberOfAnEmptyLedgerIsOne) {
    SmallDatabase database;
    FillCafe(database);
    database.Native("DELETE FROM account_src");
    EXPECT_EQ(database.Rows("SELECT IIf(Max(accid) Is Null, 0, Max(accid)) + 1 As newid FROM account_src"),
              Lines{"1"});
}

TEST(SystemStatement, AccountsAreMadeAndRenamed) {
    SmallDatabase database;
    FillCafe(database);
    EXPECT_EQ(database.Execute("INSERT INTO account_src(accid, name) VALUES(4, 'الخزنة')"), 1);
    EXPECT_EQ(database.Execute("UPDATE account_src SET name = 'صندوق 2' WHERE accid = 4"), 1);
    EXPECT_EQ(database.Rows("SELECT * FROM account_src WHERE accid = 4"), Lines{"4|صندوق 2"});
}

TEST(SystemStatement, AnApostropheInANameBreaksTheStatement) {
    SmallDatabase database;
    FillCafe(database);
    EXPECT_NE(database.Error("INSERT INTO account_src(accid, name) VALUES(4, 'O'Brien')"), "no failure");
    EXPECT_NE(database.Error("UPDATE account_src SET name = 'it's' WHERE accid = 4"), "no failure");
}

TEST(SystemStatement, AJournalEntryIsStoredAtItsMillisecond) {
    SmallDatabase database;
    FillCafe(database);
    EXPECT_EQ(database.Execute(
                  "INSERT INTO account_log(acc_from, acc_to, amount, trans_date, descrip) VALUES(1, 3, "
                  "12.5, 37787.4166666667, 'نقل')"),
              1);
    EXPECT_EQ(database.Rows("SELECT * FROM account_log WHERE amount = 12.5"),
              Lines{"1|3|12.5|37787.416666666664|نقل"});
}

TEST(SystemStatement, SavedQueryRunsThroughTheAdapter) {
    RealCafe cafe;
    const Ref<DAO::QueryDef> query = cafe.Database().QueryDefs("USERS_INCOME2");
    query->SetParameter(0, std::int64_t{1});
    query->SetParameter(1, std::int64_t{2});
    EXPECT_EQ(RealCafe::Rows(query->OpenRecordset()), (Lines{"1|37780|سعيد|150", "1|37781.5|سعيد|10"}));
}

TEST(SystemStatement, SavedQueryTakesItsPeriodOrNone) {
    SmallDatabase database;
    FillCafe(database);
    const std::string text = *database.SavedQuery("users_income2");
    const Value none = Null{};
    EXPECT_EQ(database.Rows(text, {std::int64_t{1}, std::int64_t{2}}),
              (Lines{"1|37780|سعيد|150", "1|37781.5|سعيد|10"}));
    EXPECT_EQ(database.Rows(text, {std::int64_t{4}, std::int64_t{2}}),
              (Lines{"1|37781.5|سعيد|10", "1|37783|سعيد|60"}));
    EXPECT_EQ(database.Rows(text, {none, none}),
              (Lines{"1|NULL|سعيد|120", "1|37780|سعيد|150", "1|37781.5|سعيد|10", "1|37783|سعيد|60"}));
}

} // namespace
} // namespace qbrpt::dialect
