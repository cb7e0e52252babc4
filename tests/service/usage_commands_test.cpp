// Sessions: of one customer, one by one, and the internet devices' times.
#include "command_rows.h"

namespace qbrpt {
namespace {

const std::string MemberHead =
    "SELECT members.name & ' ', membership.name, log_time, end_time, local_log.use_time FROM ((local_log "
    "INNER "
    "JOIN members ON local_log.member_id = members.id) INNER JOIN members_time ON "
    "local_log.active_membership "
    "= members_time.id) LEFT JOIN membership ON members_time.membership_id = membership.id WHERE "
    "(local_log.utype = 2) ";

std::string CardStatement(const std::string& card) {
    return "SELECT 'بطاقة رقم ' & Format([se_id],'#00000') & ' ' AS seid, m.name, lg.log_time, lg.end_time, "
           "lg.use_time FROM local_log AS lg INNER JOIN ((pp_dat AS pd INNER JOIN members_time AS mt ON "
           "pd.pp_id = mt.pp_id) INNER JOIN membership AS m ON mt.membership_id = m.id) ON "
           "lg.active_membership = mt.id WHERE (mt.id = " +
           card + " AND lg.utype <> 0) ";
}

CommandRow MemberRow(const char* name, std::int32_t usageID, std::int32_t memberID,
                     const std::string& filter) {
    return {name,
            [=](VantlowCls& cls) { cls.PrintMemberUsage(usageID, memberID, 0); },
            {},
            MemberHead + filter,
            std::nullopt,
            "RecordCount",
            "MemberUseRpt",
            {}};
}

CommandRow CardRow(const char* name, std::int32_t usageID, std::int32_t memberID,
                   const std::string& statement) {
    return {name,
            [=](VantlowCls& cls) { cls.PrintPPUsage(usageID, memberID); },
            {},
            statement,
            std::nullopt,
            "EOF",
            "MemberUseRpt",
            {},
            true};
}

INSTANTIATE_TEST_SUITE_P(
    Customers, CommandCase,
    ::testing::Values(MemberRow("MemberUsageOfAll", 0, 0, ""),
                      MemberRow("MemberUsageOfASubscription", 7, 0, "AND (local_log.active_membership = 7)"),
                      MemberRow("MemberUsageSubscriptionGoesFirst", 7, 3,
                                "AND (local_log.active_membership = 7)"),
                      MemberRow("MemberUsageOfASubscriber", 0, 3, "AND (local_log.member_id = 3)"),
                      MemberRow("MemberUsageNegative", -7, 3, "AND (local_log.active_membership = -7)"),
                      MemberRow("MemberUsageSubscriberNegative", 0, -3, "AND (local_log.member_id = -3)"),
                      CardRow("PPUsageOfACard", 0, 12, CardStatement("12")),
                      CardRow("PPUsageOnADay", 5, 12, CardStatement("12") + "AND (lg.work_id = 5)"),
                      CardRow("PPUsageWithoutACard", 5, 0, CardStatement("0") + "AND (lg.work_id = 5)"),
                      CardRow("PPUsageNegative", -5, -12, CardStatement("-12") + "AND (lg.work_id = -5)")),
    RowName());

std::string SessionHead(const std::string& t) {
    return "SELECT host_src.name, IIf(Not " + t +
           ".member_id Is Null, IIf(not members.name Is Null, members.name, 'عميل محذوف'), 'مستخدم عام') AS "
           "member,log_time, use_time, idle_time,  net_cost, print_count, other_cost, discount, paid, "
           "user_name FROM (host_src LEFT JOIN (members RIGHT JOIN " +
           t + " ON members.id = " + t + ".member_id) ON host_src.id = " + t +
           ".host_id) LEFT JOIN users ON " + t + ".user_id = users.id  WHERE (NOT " + t +
           ".end_time Is Null) ";
}

CommandRow SessionRow(const char* name, std::int32_t date1, std::int32_t date2, std::int32_t pcID,
                      const std::string& clauses, const std::vector<int>& lookedUp,
                      const std::string& period) {
    return {name,
            [=](VantlowCls& cls) { cls.PrintUsage(date1, date2, pcID, 0); },
            DateLookUps(lookedUp),
            SessionHead("local_log") + clauses + " ORDER BY host_src.name, local_log.log_time",
            2,
            "RecordCount",
            "UsageRpt",
            {"SetOtherTitels(\"تفاصيل الاستخدام " + period + "\")"},
            false,
            true};
}

INSTANTIATE_TEST_SUITE_P(
    Sessions, CommandCase,
    ::testing::Values(
        SessionRow("UsageRange", 5, 9, 0, " AND (local_log.work_id BETWEEN 5 AND 9)", {5, 9},
                   ThursdayToMonday),
        SessionRow("UsageReversed", 9, 5, 0, " AND (local_log.work_id BETWEEN 9 AND 5)", {9, 5},
                   ThursdayToMonday),
        SessionRow("UsageNoBitInCommon", 4, 9, 0, " AND (local_log.work_id = 4)", {4, 9}, UpToMonday),
        SessionRow("UsageFourAndEight", 4, 8, 0, " AND (local_log.work_id = 4)", {4, 8}, NoDay),
        SessionRow("UsageOneAndTwo", 1, 2, 0, " AND (local_log.work_id = 1)", {1, 2}, NoDay),
        SessionRow("UsageThreeAndFive", 3, 5, 0, " AND (local_log.work_id BETWEEN 3 AND 5)", {3, 5},
                   "من  إلى الخميس 15 يناير 2004"),
        SessionRow("UsageEqual", 5, 5, 0, " AND (local_log.work_id = 5)", {5}, Thursday),
        SessionRow("UsageFirstOnly", 5, 0, 0, " AND (local_log.work_id = 5)", {5}, Thursday),
        SessionRow("UsageSecondOnly", 0, 9, 0, "", {0, 9}, UpToMonday),
        SessionRow("UsageNone", 0, 0, 0, "", {0}, NoDay),
        SessionRow("UsageNegative", -1, 9, 0, " AND (local_log.work_id BETWEEN -1 AND 9)", {-1, 9},
                   UpToMonday),
        SessionRow("UsageOfAHost", 5, 9, 3,
                   " AND (local_log.work_id BETWEEN 5 AND 9) AND (local_log.host_id = 3)", {5, 9},
                   ThursdayToMonday),
        SessionRow("UsageOfAHostAllDays", 0, 0, -3, " AND (local_log.host_id = -3)", {0}, NoDay),
        CommandRow{"UsageDeleted",
                   [](VantlowCls& cls) { cls.PrintUsage(5, 9, 3, 1, -1); },
                   DateLookUps({5, 9}),
                   SessionHead("local_log_delete") +
                       " AND (local_log_delete.work_id BETWEEN 5 AND 9) AND (local_log_delete.host_id = 3)"
                       " ORDER BY host_src.name, local_log_delete.log_time",
                   2,
                   "RecordCount",
                   "UsageRpt",
                   {"SetOtherTitels(\"تفاصيل الاستخدام المحذوف " + std::string(ThursdayToMonday) + "\")"},
                   true,
                   true}),
    RowName());

const std::string ByDevice = "SELECT device_name, (Count([id]) & '  يوم/أيام') AS days, Sum(second_count/60) "
                             "AS sc_count FROM internet_usage ";
const std::string ByDay = "SELECT device_name, Format(use_date, 'ddd, dd MMM yyyy') AS d, (second_count/60) "
                          "AS t FROM internet_usage";

CommandRow InternetRow(const char* name, std::int32_t d1, std::int32_t d2, const std::string& period,
                       const std::string& title) {
    return {name,
            [=](VantlowCls& cls) { cls.PrintInternetUsage(d1, d2); },
            {},
            ByDevice + period + " GROUP BY device_name",
            std::nullopt,
            "RecordCount",
            "InternetTimerpt",
            {"SetOtherTitels(\"أوقات استهلاك الإنترنت  " + title + "\")", "SetGroup(true)"},
            true};
}

INSTANTIATE_TEST_SUITE_P(
    Internet, CommandCase,
    ::testing::Values(
        InternetRow("InternetRange", 38'001, 38'005, " WHERE (use_date BETWEEN 38001 AND 38006)",
                    ThursdayToMonday),
        InternetRow("InternetReversed", 38'005, 38'001, " WHERE (use_date BETWEEN 38005 AND 38002)",
                    ThursdayToMonday),
        InternetRow("InternetEqual", 38'001, 38'001, " WHERE (use_date BETWEEN 38001 AND 38002)", Thursday),
        InternetRow("InternetFirstOnly", 38'001, 0, " WHERE (use_date BETWEEN 38001 AND 38002)", Thursday),
        InternetRow("InternetSecondOnly", 0, 38'005, "", UpToMonday),
        InternetRow("InternetNone", 0, 0, "", NoDay),
        InternetRow("InternetOneWholeMonth", 37'987, 38'017, " WHERE (use_date BETWEEN 37987 AND 38018)",
                    "لشهر يناير 2004"),
        CommandRow{"InternetByDay",
                   [](VantlowCls& cls) { cls.PrintInternetUsage(38'001, 38'005, 0, 0); },
                   {},
                   ByDay + " WHERE (use_date BETWEEN 38001 AND 38006)",
                   std::nullopt,
                   "RecordCount",
                   "InternetTimerpt",
                   {"SetOtherTitels(\"أوقات استهلاك الإنترنت  " + std::string(ThursdayToMonday) + "\")",
                    "SetGroup(false)"}},
        CommandRow{"InternetByDayAllTime",
                   [](VantlowCls& cls) { cls.PrintInternetUsage(0, 0, 0, 0); },
                   {},
                   ByDay,
                   std::nullopt,
                   "RecordCount",
                   "InternetTimerpt",
                   {"SetOtherTitels(\"أوقات استهلاك الإنترنت  ليوم \")", "SetGroup(false)"}}),
    RowName());

TEST_F(ServiceTest, TheLastDayOfAllOverflowsIntoTheTrap) {
    GiveDatabase();
    for (const bool second : {true, false}) {
        platform.messages->boxes.clear();
        db->opened.clear();
        const std::int32_t d1 = second ? 5 : INT32_MAX;
        const std::int32_t d2 = second ? INT32_MAX : 0;
        cls.PrintInternetUsage(d1, d2, 1, 0);
        EXPECT_THAT(platform.messages->boxes,
                    ::testing::ElementsAre(fakes::ShownBox{"Overflow.", 21, "qbrpt"}));
        EXPECT_THAT(db->opened, ::testing::IsEmpty());
        platform.messages->answers = {Retry};
        cls.PrintInternetUsage(d1, d2, 1, 0);
        EXPECT_THAT(Statements(), ::testing::ElementsAre(ByDevice + " GROUP BY device_name"));
    }
}

TEST_F(ServiceTest, ACancelledTitleLeavesAWideReportsPrinterTurned) {
    GiveDatabase();
    class NoReports final : public CrystalRuntime::Runtime {
        Ref<CrystalRuntime::Report> DoNewReport(const std::string&, std::span<const Field>) override {
            throw Failure(FailureNumber::Report, "no report");
        }
    };
    Platform::Current().reports = std::make_shared<NoReports>();
    cls.PrintUsage(5, 9, 0, 0);
    EXPECT_EQ(platform.printers->printers[0].orientation, OrientationLandscape);
    platform.printers->printers[0].orientation = OrientationPortrait;
    platform.messages->usual = Retry;
    cls.PrintUsage(5, 9, 0, 0);
    EXPECT_EQ(platform.printers->printers[0].orientation, OrientationPortrait);
}

} // namespace
} // namespace qbrpt
