// Use and income of each host: the statement with its sums, the two periods, the title.
#include "command_rows.h"

namespace qbrpt {
namespace {

/// The statement with conditions put in by hand: `inner` on the sums, `outer` and `host` on the lines.
std::string HostStatement(const std::string& inner, const std::string& outer, const std::string& host = "") {
    const std::string with = inner.empty() ? "" : "AND " + inner;
    const std::string withBlank = inner.empty() ? "" : " AND " + inner;
    return "SELECT host_src.name, "
           "(SELECT Sum(use_time) FROM local_log WHERE local_log.host_id = [local_log2].[host_id] AND (Not "
           "member_id Is Null) AND (Not [end_time] Is Null) " +
           with +
           ")AS member_time, "
           "(SELECT Sum(use_time) FROM local_log WHERE local_log.host_id = [local_log2].[host_id] AND "
           "(member_id Is Null) AND (Not [end_time] Is Null) " +
           with +
           ") AS non_member_time, "
           "(SELECT Sum(use_time) FROM local_log WHERE local_log.host_id = [local_log2].[host_id] AND (Not "
           "[end_time] Is Null) " +
           with +
           ") AS total_time, "
           "(SELECT Sum(local_log.net_cost * local_log.use_time)AS netincom FROM local_log WHERE (Not "
           "end_time Is Null) AND (member_id Is Null) AND (local_log.host_id = local_log2.host_id) " +
           withBlank +
           ") AS tnet, Sum(local_log2.print_count) AS sprint_count, "
           "Sum([local_log2].[print_count]*[local_log2].[print_cost]) AS printincom, "
           "Sum(local_log2.paid + local_log2.discount) AS totalcost, Sum(local_log2.Discount) AS sDiscount, "
           "Sum(local_log2.paid) AS netincome, (Sum([use_time])/(SELECT IIf(Sum([use_time]) Is Null  Or "
           "Sum([use_time]) = 0, 1, Sum([use_time])) as s FROM local_log WHERE Not IsNull(end_time)" +
           withBlank +
           ")) AS p FROM host_src INNER JOIN local_log AS local_log2 ON host_src.id = local_log2.host_id "
           "WHERE (((IsNull([end_time]))=False) " +
           (outer.empty() ? "" : " AND " + outer) + host +
           ") GROUP BY host_src.id, host_src.name, local_log2.host_id ORDER BY host_src.name ";
}

CommandRow HostRow(const char* name, double date1, double date2, const std::string& statement,
                   const std::string& period) {
    return {name,
            [=](VantlowCls& cls) { cls.PrintPCUsage(date1, date2); },
            {},
            statement,
            std::nullopt,
            "RecordCount",
            "pcIncomeRpt",
            {"SetInfoData(\"تقرير عن الاستخدام حسب الأجهزة " + period + "\")"},
            true,
            true};
}

std::string Between(const std::string& from, const std::string& to) {
    return HostStatement("([local_log].[end_time] Between " + from + " And " + to + ") ",
                         "([local_log2].[end_time] Between " + from + "  AND " + to + ") ");
}

INSTANTIATE_TEST_SUITE_P(
    Hosts, CommandCase,
    ::testing::Values(HostRow("HostsRange", 38'001, 38'005, Between("38001", "38005"), ThursdayToMonday),
                      HostRow("HostsRangeWithTimes", 38'001.25, 38'005.75, Between("38001.25", "38005.75"),
                              ThursdayToMonday),
                      HostRow("HostsReversed", 38'005, 38'001, Between("38005", "38001"), ThursdayToMonday),
                      HostRow("HostsFifteenDigits", 38'001 + 1.0 / 3, 38'005,
                              Between("38001.3333333333", "38005"), ThursdayToMonday),
                      HostRow("HostsOnOneDay", 38'001.25, 38'001.75, Between("38001.25", "38001.75"),
                              Thursday),
                      HostRow("HostsNegative", -1.5, 38'005, Between("-1.5", "38005"),
                              "من الخميس 28 ديسمبر 1899 إلى الاثنين 19 يناير 2004"),
                      HostRow("HostsEqualMoments", 38'001.5, 38'001.5, HostStatement("", ""), Thursday),
                      HostRow("HostsNoSecondMoment", 38'001.5, 0, HostStatement("", ""), Thursday),
                      HostRow("HostsNoFirstMoment", 0, 38'005, HostStatement("", ""), UpToMonday),
                      HostRow("HostsAllTime", 0, 0, HostStatement("", ""), NoDay),
                      CommandRow{"HostsOneHost",
                                 [](VantlowCls& cls) { cls.PrintPCUsage(38'001, 38'005, 3, 0); },
                                 {"SELECT name FROM host_src WHERE id = 3"},
                                 HostStatement("([local_log].[end_time] Between 38001 And 38005) ",
                                               "([local_log2].[end_time] Between 38001  AND 38005) ",
                                               " AND (local_log2.host_id = 3)"),
                                 std::nullopt,
                                 "RecordCount",
                                 "pcIncomeRpt",
                                 // No blank between the host's name and the period.
                                 {"SetInfoData(\"تقرير عن الاستخدام الخاص بالجهاز جهاز 3" +
                                  std::string(ThursdayToMonday) + "\")"},
                                 false,
                                 true},
                      CommandRow{"HostsUnknownHost",
                                 [](VantlowCls& cls) { cls.PrintPCUsage(0, 0, -4, 0); },
                                 {"SELECT name FROM host_src WHERE id = -4"},
                                 HostStatement("", "", " AND (local_log2.host_id = -4)"),
                                 std::nullopt,
                                 "RecordCount",
                                 "pcIncomeRpt",
                                 {"SetInfoData(\"تقرير عن الاستخدام الخاص بالجهاز ليوم \")"},
                                 false,
                                 true}),
    RowName());

TEST_F(ServiceTest, AMissingHostNameStaysOutOfTheTitle) {
    GiveDatabase();
    db->Fail("SELECT name FROM host_src", "no such table: host_src");
    cls.PrintPCUsage(38'001, 38'001, 3, 0);
    EXPECT_THAT(platform.messages->boxes, ::testing::IsEmpty());
    EXPECT_EQ(platform.runtime->made.at(0)->texts["IncomeTitleText"],
              "تقرير عن الاستخدام الخاص بالجهاز " + std::string(Thursday));
}

TEST_F(ServiceTest, AMomentBeyondAllDaysOverflowsIntoTheTrap) {
    GiveDatabase();
    platform.messages->usual = Retry;
    cls.PrintPCUsage(1, 3e9, 0, 0);
    EXPECT_EQ(platform.messages->Texts(), std::vector<std::string>{"Overflow."});
    EXPECT_EQ(platform.runtime->made.at(0)->texts["IncomeTitleText"], "تقرير عن الاستخدام حسب الأجهزة ");
}

} // namespace
} // namespace qbrpt
