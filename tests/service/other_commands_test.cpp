// Subscribers, supervisors, cards, the audit trail and the log of print jobs.
#include "command_rows.h"

namespace qbrpt {
namespace {

std::string Subscriptions(const std::string& where) {
    return "SELECT mm.name, mi.accountname, mi.begindate, mi.totaltime, IIf(mi.ended,0,mi.membertime - "
           "mi.totaltime) AS remintime, mi.paid, mi.remin, mm.id\r From members AS mm INNER JOIN "
           "members_info AS mi ON mm.id = mi.member_id " +
           where + "\rORDER BY mm.id, mi.begindate, mi.accountname, mi.ended;";
}

CommandRow InfoRow(const char* name, const std::string& param, const std::string& where) {
    return {name,
            [=](VantlowCls& cls) { cls.PrintMembersInfo(param); },
            {},
            Subscriptions(where),
            std::nullopt,
            "EOF",
            "MembersInfo",
            {},
            true};
}

INSTANTIATE_TEST_SUITE_P(
    Subscribers, CommandCase,
    ::testing::Values(InfoRow("InfoOfOneTable", "WHERE members_info.ended", "WHERE mi.ended"),
                      InfoRow("InfoOfTheOther", "WHERE members.id = 3", "WHERE mm.id = 3"),
                      InfoRow("InfoOfBoth", "WHERE members.id = 3 AND Not members_info.ended",
                              "WHERE mm.id = 3 AND Not mi.ended"),
                      InfoRow("InfoAnyCase", "where MEMBERS_Info.paid > Members.id", "where mi.paid > mm.id"),
                      InfoRow("InfoInsideLongerWords", "WHERE members_time.xmembers_infox = 'Submembers'",
                              "WHERE mm_time.xmix = 'Submm'"),
                      InfoRow("InfoArabicText", "WHERE members.name = 'أحمد members'",
                              "WHERE mm.name = 'أحمد mm'"),
                      InfoRow("InfoWithoutNames", " ", " ")),
    RowName());

CommandRow JobRow(const char* name, std::int32_t workId1, std::int32_t workId2, const std::string& filter,
                  const std::vector<int>& lookedUp, const std::string& title) {
    return {name,
            [=](VantlowCls& cls) { cls.PrintPrintLog(workId1, workId2); },
            DateLookUps(lookedUp),
            "SELECT print_log.printer, print_log.machine, print_log.print_date,  print_log.pages, "
            "print_log.printed, IIF(local_log.id IS NULL, 'غير مستخدم','مستخدم'), local_log.print_count, "
            "print_log.document, users.user_name  FROM (print_log LEFT JOIN users ON print_log.user_id = "
            "users.id) LEFT JOIN local_log ON print_log.use_id = local_log.id" +
                filter,
            std::nullopt,
            "EOF",
            "rptPrintLog",
            {"SetHeadTitle(\"" + title + "\")"},
            true};
}

const std::string AllJobs = "تقرير كلي لعمليات الطباعة";
const std::string JobsOf = "تقرير بعمليات الطباعة ";

INSTANTIATE_TEST_SUITE_P(
    Logs, CommandCase,
    ::testing::Values(
        JobRow("JobsRange", 5, 9, " WHERE print_log.work_id BETWEEN 5 AND 9", {5, 9},
               JobsOf + ThursdayToMonday),
        JobRow("JobsReversed", 9, 5, " WHERE print_log.work_id BETWEEN 9 AND 5", {9, 5},
               JobsOf + ThursdayToMonday),
        JobRow("JobsEqual", 5, 5, " WHERE print_log.work_id = 5", {5}, JobsOf + Thursday),
        JobRow("JobsFirstOnly", 9, 0, " WHERE print_log.work_id = 9", {9}, JobsOf + Monday),
        JobRow("JobsSecondOnly", 0, 9, "", {}, AllJobs), JobRow("JobsNone", 0, 0, "", {}, AllJobs),
        JobRow("JobsNegative", -5, 0, " WHERE print_log.work_id = -5", {-5}, AllJobs),
        JobRow("JobsNegativeRange", -5, 9, " WHERE print_log.work_id BETWEEN -5 AND 9", {-5, 9}, AllJobs),
        // An unknown last day counts as none.
        JobRow("JobsUnknownLastDay", 5, 6, " WHERE print_log.work_id BETWEEN 5 AND 6", {5, 6},
               JobsOf + Thursday),
        CommandRow{"Audit",
                   [](VantlowCls& cls) { cls.PrintAudit(); },
                   {},
                   "SELECT aud_tag.name, user_audit.a_date, audit_temp.user_name, audit_temp.comments FROM "
                   "(audit_temp INNER JOIN user_audit ON audit_temp.a_id = user_audit.a_id) INNER JOIN "
                   "aud_tag ON user_audit.type = aud_tag.tid ORDER BY user_audit.a_date;",
                   std::nullopt,
                   "EOF",
                   "rptAudit",
                   {},
                   true}),
    RowName());

const std::string HostQuery = "SELECT  anything FROM pp_dat ; ";

INSTANTIATE_TEST_SUITE_P(Cards, CommandCase,
                         ::testing::Values(CommandRow{"Cards",
                                                      [](VantlowCls& cls) { cls.PrintPPCards(HostQuery); },
                                                      {},
                                                      HostQuery,
                                                      std::nullopt,
                                                      "EOF",
                                                      "rptPPCards",
                                                      {"SetCafeName(\"مقهى النجوم\")"},
                                                      true},
                                           CommandRow{"CardList",
                                                      [](VantlowCls& cls) {
                                                          cls.PrintPPInfo(HostQuery, "بطاقات الشهر");
                                                      },
                                                      {},
                                                      HostQuery,
                                                      std::nullopt,
                                                      "EOF",
                                                      "rptPPIncome",
                                                      {"SetTitle(\"بطاقات الشهر\")"},
                                                      true},
                                           CommandRow{"CardListWithoutATitle",
                                                      [](VantlowCls& cls) { cls.PrintPPInfo(HostQuery, ""); },
                                                      {},
                                                      HostQuery,
                                                      std::nullopt,
                                                      "EOF",
                                                      "rptPPIncome",
                                                      {"SetTitle(\"\")"},
                                                      true}),
                         RowName());

TEST_F(ServiceTest, CardsBeforeAnyHeadingHaveAnEmptyName) {
    GiveDatabase();
    cls.PrintPPCards(HostQuery);
    EXPECT_EQ(platform.runtime->made.at(0)->texts.at("CafeNameText1"), "");
    EXPECT_EQ(platform.runtime->made.at(0)->texts.at("CafeNameText2"), "");
}

struct SupervisorRow {
    const char* name;
    std::int32_t d1, d2;
    Value first, last;
    std::vector<int> lookedUp;
    std::string title;
};

class Supervisors : public ServiceTest, public ::testing::WithParamInterface<SupervisorRow> {
protected:
    void Save(const char* name) {
        db->queryDefs[name] =
            std::make_shared<fakes::FakeQueryDef>(name, std::vector<fakes::Row>{{std::int64_t{1}}});
    }
};

TEST_P(Supervisors, GiveTheirQueryItsBounds) {
    const SupervisorRow& row = GetParam();
    GiveDatabase();
    cls.PrintUsersIncome(row.d1, row.d2);
    const auto& parameters = db->queryDefs.at("users_income2")->parameters;
    EXPECT_EQ(parameters.at(0), row.first);
    EXPECT_EQ(parameters.at(1), row.last);
    EXPECT_EQ(Statements(), DateLookUps(row.lookedUp));
    ASSERT_EQ(platform.runtime->made.size(), 1U);
    EXPECT_EQ(platform.runtime->made[0]->templateName, "SPVIncome");
    EXPECT_EQ(platform.runtime->made[0]->texts["OtherTitleText"], row.title);
    EXPECT_EQ(platform.viewer->views, 1);
    EXPECT_THAT(platform.printers->orientations, ::testing::IsEmpty());
}

const std::string BySupervisor = "تقرير بالإيراد حسب المشرفين";
Value Whole(std::int64_t number) {
    return number;
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Supervisors,
    ::testing::Values(
        SupervisorRow{"Range", 5, 9, Whole(5), Whole(9), {5, 9}, BySupervisor + " " + ThursdayToMonday},
        SupervisorRow{"Reversed", 9, 5, Whole(9), Whole(5), {9, 5}, BySupervisor + " " + ThursdayToMonday},
        SupervisorRow{"Equal", 9, 9, Whole(9), Whole(9), {9}, BySupervisor + " " + Monday},
        SupervisorRow{"FirstOnly", 5, 0, Whole(5), Whole(5), {5}, BySupervisor + " " + Thursday},
        SupervisorRow{"SecondIsDropped", 0, 9, Null{}, Null{}, {0, 9}, BySupervisor},
        SupervisorRow{"None", 0, 0, Null{}, Null{}, {0}, BySupervisor},
        SupervisorRow{"NegativeFiltersWithoutAPeriod", -5, 9, Whole(-5), Whole(9), {-5, 9}, BySupervisor}),
    [](const auto& row) { return row.param.name; });

TEST_F(Supervisors, GoInTheirOrder) {
    GiveDatabase();
    const auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    cls.PrintUsersIncome(5, 9);
    EXPECT_THAT(
        log->LinesOf({"DAO.", "CrystalRuntime.Runtime.", "member "}),
        ::testing::ElementsAre(
            "DAO.Database.QueryDefs(\"users_income2\")", "DAO.QueryDef.Parameters(\"users_income2\", 0, 5)",
            "DAO.QueryDef.Parameters(\"users_income2\", 1, 9)",
            "DAO.Database.OpenRecordset(\"SELECT use_date FROM host_log_time WHERE id = 5\", null)",
            "DAO.Recordset.EOF()", "DAO.Recordset.Fields(0)",
            "DAO.Database.OpenRecordset(\"SELECT use_date FROM host_log_time WHERE id = 9\", null)",
            "DAO.Recordset.EOF()", "DAO.Recordset.Fields(0)", "DAO.QueryDef.OpenRecordset(\"users_income2\")",
            "DAO.Recordset.EOF()", "CrystalRuntime.Runtime.NewReport(\"SPVIncome\")",
            "member SetOtherTitels(\"" + BySupervisor + " " + ThursdayToMonday + "\")",
            "member SetHotelInfo(\"\", \"\", \"\")", "DAO.Recordset.Rows()"));
}

TEST_F(Supervisors, UseTheOlderQueryWhereTheNewerIsMissing) {
    GiveDatabase();
    db->queryDefs.clear();
    Save("users_income");
    cls.PrintUsersIncome(5, 9);
    EXPECT_THAT(platform.messages->boxes, ::testing::IsEmpty());
    EXPECT_EQ(db->queryDefs.at("users_income")->parameters.at(1), Whole(9));
    EXPECT_EQ(platform.viewer->views, 1);
}

TEST_F(Supervisors, PreferTheNewerQuery) {
    GiveDatabase();
    Save("users_income");
    cls.PrintUsersIncome(5, 9);
    EXPECT_THAT(db->queryDefs.at("users_income")->parameters, ::testing::IsEmpty());
    EXPECT_EQ(db->queryDefs.at("users_income2")->parameters.at(0), Whole(5));
}

TEST_F(Supervisors, WithoutRowsEndInSilence) {
    GiveDatabase();
    db->queryDefs["users_income2"] =
        std::make_shared<fakes::FakeQueryDef>("users_income2", std::vector<fakes::Row>{});
    cls.PrintUsersIncome(5, 9);
    EXPECT_THAT(platform.messages->boxes, ::testing::IsEmpty());
    EXPECT_THAT(platform.runtime->made, ::testing::IsEmpty());
}

} // namespace
} // namespace qbrpt
