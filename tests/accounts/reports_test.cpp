// What the reports on the journal ask for, say and show.
#include "accounts/reports_fixture.h"

#include <array>

namespace qbrpt {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using fakes::ShownBox;

const std::string Names = "SELECT IIf(name Is Null, 'صافي الإيراد ليوم '  & Format(trans_date,'dd-mm-yyyy "
                          "hh:MM'),account_src.name) AS accname, ";
const std::string Columns = "account_log.amount, account_log.descrip, account_log.trans_date";

std::string In(const std::string& id, const std::string& period) {
    return Names + Columns +
           "\rFROM account_log LEFT JOIN account_src ON account_log.acc_from = account_src.accid\r" +
           "WHERE account_log.acc_to = " + id + period + "\rORDER BY account_log.trans_date";
}
std::string InOfNone(const std::string& period) {
    return "SELECT account_src.name, " + Columns +
           "\rFROM account_log INNER JOIN account_src ON account_log.acc_from = account_src.accid\r" +
           "WHERE account_log.acc_to = 0" + period + "\rORDER BY account_log.trans_date";
}
std::string Out(const std::string& id, const std::string& period) {
    return "SELECT account_src.name, " + Columns +
           " \rFROM account_log INNER JOIN account_src ON account_log.acc_to = account_src.accid\r" +
           "WHERE account_log.acc_from = " + id + period + "\rORDER BY account_log.trans_date";
}
std::string All(const std::string& period) {
    return "SELECT IIf([account_src].[name] Is Null,'صافي الإيراد ليوم ' & "
           "Format([trans_date],'dd-mm-yyyy'),[account_src].[name]) AS accfrom, account_src_1.name AS "
           "accto, " +
           Columns +
           "\r FROM (account_log LEFT JOIN account_src ON account_log.acc_from = account_src.accid) INNER "
           "JOIN "
           "account_src AS account_src_1 ON account_log.acc_to = account_src_1.accid\r" +
           period + "\rORDER BY account_log.trans_date, account_src.accid;";
}

struct PeriodRow {
    const char* name;
    double from, to;
    std::string ofOne, ofAll;
};

class AccountPeriods : public ::testing::TestWithParam<PeriodRow> {};

TEST_P(AccountPeriods, StandInTheStatements) {
    const PeriodRow& row = GetParam();
    EXPECT_EQ(ledger::IncomingMoves(7, row.from, row.to), In("7", row.ofOne));
    EXPECT_EQ(ledger::IncomingMoves(0, row.from, row.to), InOfNone(row.ofOne));
    EXPECT_EQ(ledger::OutgoingMoves(7, row.from, row.to), Out("7", row.ofOne));
    EXPECT_EQ(ledger::OutgoingMoves(0, row.from, row.to), Out("0", row.ofOne));
    EXPECT_EQ(ledger::AllMoves(row.from, row.to), All(row.ofAll));
}

const PeriodRow Periods[] = {
    {"None", 0, 0, "", ""},
    {"NegativeIsNone", -5, 3, "", ""},
    {"EndAloneIsNone", 0, 37790, "", ""},
    {"Range", 37780, 37790, " AND (CDbl(trans_date) BETWEEN 37780 AND 37790)",
     " Where (trans_date BETWEEN 37780 AND 37790)"},
    {"RangeWithTimes", 37780.25, 37790 + 1.0 / 3,
     " AND (CDbl(trans_date) BETWEEN 37780.25 AND 37790.3333333333)",
     " Where (trans_date BETWEEN 37780.25 AND 37790.3333333333)"},
    {"RangeReversed", 37790, 37780, " AND (CDbl(trans_date) BETWEEN 37790 AND 37780)",
     " Where (trans_date BETWEEN 37790 AND 37780)"},
    {"RangeUpToNothing", 37790, 0, " AND (CDbl(trans_date) BETWEEN 37790 AND 0)",
     " Where (trans_date BETWEEN 37790 AND 0)"},
    {"OneMorning", 37780.25, 37780.25, " AND (CLng(trans_date)=37780)", " Where (CLng(trans_date)=37780)"},
    {"OneAfternoonIsTheNextDay", 37780.75, 37780.75, " AND (CLng(trans_date)=37781)",
     " Where (CLng(trans_date)=37781)"},
    {"NoonOfAnEvenDay", 37780.5, 37780.5, " AND (CLng(trans_date)=37780)", " Where (CLng(trans_date)=37780)"},
    {"NoonOfAnOddDay", 37781.5, 37781.5, " AND (CLng(trans_date)=37782)", " Where (CLng(trans_date)=37782)"},
    {"TwoHoursOfOneDay", 37780.25, 37780.5, " AND (CDbl(trans_date) BETWEEN 37780.25 AND 37780.5)",
     " Where (trans_date BETWEEN 37780.25 AND 37780.5)"},
};
INSTANTIATE_TEST_SUITE_P(Rows, AccountPeriods, ::testing::ValuesIn(Periods),
                         [](const auto& row) { return row.param.name; });

struct SideRow {
    const char* name;
    std::vector<double> in, out;
    std::array<bool, 4> hidden; ///< the sections 1 to 4
    std::string amount;
};

class AccountSides : public AccountReportsTest, public ::testing::WithParamInterface<SideRow> {};

TEST_P(AccountSides, AreShownWhereTheyHaveRows) {
    const SideRow& row = GetParam();
    const auto rows = [](const std::vector<double>& amounts) {
        std::vector<fakes::Row> made;
        for (const double amount : amounts)
            made.push_back(Move("البنك", amount));
        return made;
    };
    Give(rows(row.in), rows(row.out));
    PrintOfOne();
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
    EXPECT_EQ(platform.viewer->views, 1);
    EXPECT_TRUE(platform.viewer->arabic);
    for (std::size_t number = 1; number <= row.hidden.size(); ++number)
        EXPECT_EQ(sections.at("AccountSection" + std::to_string(number))->suppress, row.hidden[number - 1])
            << number;
    EXPECT_EQ(Record().templateName, "SngAccountRpt");
    EXPECT_EQ(Record().rowsRead, !row.in.empty());
    EXPECT_EQ(Record().dataTag, row.in.empty() ? std::nullopt : std::optional(3));
    EXPECT_EQ(inside->rowsRead, !row.out.empty());
    EXPECT_EQ(inside->dataTag, row.out.empty() ? std::nullopt : std::optional(3));
    EXPECT_EQ(Text("AccountAmountText"), row.amount);
    EXPECT_EQ(Text("HotelNameText"), "");
    EXPECT_EQ(Text("HeadTitleText"), "حركة القيد الخاصة بحساب الصندوق");
    EXPECT_EQ(Text("AccountSubTitleText"), "");
    EXPECT_FALSE(Record().alive);
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
}

const SideRow Sides[] = {
    {"Both", {40, 4}, {10, 20}, {false, false, false, false}, "30.00"},
    {"IncomingAlone", {40}, {}, {false, false, false, true}, ".00"},
    {"OutgoingAlone", {}, {10}, {true, true, true, false}, "10.00"},
    // A sum that is rounded once would be 4.
    {"RoundedAtEachStep", {}, {1.4, 1.4, 1.4}, {true, true, true, false}, "3.00"},
    {"HalvesToTheEven", {}, {0.5, 0.5, 1.5, 2.5}, {true, true, true, false}, "4.00"},
};
INSTANTIATE_TEST_SUITE_P(Rows, AccountSides, ::testing::ValuesIn(Sides),
                         [](const auto& row) { return row.param.name; });

struct TitleRow {
    const char* name;
    double from, to;
    std::string period; ///< in words; empty for none
};

class AccountTitles : public AccountReportsTest, public ::testing::WithParamInterface<TitleRow> {};

TEST_P(AccountTitles, NameThePeriod) {
    const TitleRow& row = GetParam();
    Give({Move("البنك", 1)}, {});
    PrintOfOne(row.from, row.to);
    EXPECT_EQ(Text("AccountSubTitleText"), row.period);
    platform.runtime->made.clear();
    db->Answer("AS accfrom", {Move("البنك", 1)});
    PrintAllMoves(db, row.from, row.to);
    EXPECT_EQ(Record().templateName, "AccountRpt");
    EXPECT_EQ(Text("HotelNameText"), "");
    EXPECT_EQ(Text("HeadTitleText"), row.period.empty() ? "حركة القيد الكلية" : "حركة القيد " + row.period);
}

double Day(int day, int hour = 0) {
    return DayNumberOf({2004, 1, day, hour, 0, 0, 0, 0});
}

const TitleRow Titles[] = {
    {"None", 0, 0, ""},
    {"EndAlone", 0, Day(19), ""},
    {"OneDay", Day(15, 9), Day(15, 9), "ليوم الخميس 15 يناير 2004"},
    {"Range", Day(15, 9), Day(19, 13), "من الخميس 15 يناير إلى الاثنين 19 يناير 2004"},
    {"WholeMonth", Day(1), Day(31), "لشهر يناير 2004"},
};
INSTANTIATE_TEST_SUITE_P(Rows, AccountTitles, ::testing::ValuesIn(Titles),
                         [](const auto& row) { return row.param.name; });

TEST_F(AccountReportsTest, NothingInAndNothingOutIsSaid) {
    Give({}, {});
    PrintOfOne();
    EXPECT_THAT(platform.messages->boxes,
                ElementsAre(ShownBox{"لا توجد بيانات للطباعة في الوقت الحاضر.", 0x180010, "qbrpt"}));
    EXPECT_THAT(platform.runtime->made, IsEmpty());
    EXPECT_THAT(platform.screen->pointers, ElementsAre(Pointer::Wait, Pointer::Default));
}

TEST_F(AccountReportsTest, NoEntriesAtAllIsSaid) {
    db->Answer("AS accfrom", {});
    PrintAllMoves(db, 0, 0);
    EXPECT_THAT(platform.messages->boxes,
                ElementsAre(ShownBox{"لا توجد بيانات بهذا الخصوص حالياً.", 0x180100, "qbrpt"}));
    EXPECT_THAT(platform.runtime->made, IsEmpty());
    EXPECT_THAT(platform.screen->pointers, ElementsAre(Pointer::Wait, Pointer::Default));
}

TEST_F(AccountReportsTest, NoAccountAsksWithoutTheWordsForTakings) {
    db->Answer("acc_to = 0", {});
    db->Answer("acc_from = 0", {});
    PrintAccountMoves(db, 0, 0, 0, [] { return std::string(); });
    EXPECT_THAT(Statements(), ElementsAre(InOfNone(""), Out("0", "")));
    EXPECT_THAT(platform.messages->boxes, ::testing::SizeIs(1));
}

TEST_F(AccountReportsTest, OfOneAccountGoInTheirOrder) {
    Give({Move("البنك", 5)}, {Move("البنك", 3), Move("البنك", 4)});
    const auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    PrintOfOne();
    const std::string report = "CrystalRuntime.Report.";
    EXPECT_THAT(
        log->LinesOf({"DAO.Database", "DAO.Recordset.Move", "DAO.Recordset.Fields", "CrystalRuntime.Runtime.",
                      "member ", "Screen.", "CRViewer.ViewReport", report + "SetDataSource",
                      report + "ReadRecords", report + "SelectPrinter", report + "SetPaper",
                      "CrystalRuntime.ReportObject.O"}),
        ElementsAre("Screen.MousePointer(11)", "DAO.Database.OpenRecordset(\"" + In("7", "") + "\", null)",
                    "DAO.Database.OpenRecordset(\"" + Out("7", "") + "\", null)",
                    "CrystalRuntime.Runtime.NewReport(\"SngAccountRpt\")",
                    "member ShowAccountSection(false, false)", report + "SetDataSource(3)",
                    report + "ReadRecords()", "CrystalRuntime.ReportObject.OpenSubreport(\"rptFrom\")",
                    report + "SetDataSource(3)", report + "ReadRecords()", "DAO.Recordset.MoveFirst()",
                    "DAO.Recordset.Fields(1)", "DAO.Recordset.MoveNext()", "DAO.Recordset.Fields(1)",
                    "DAO.Recordset.MoveNext()",
                    "member SetTitle(\"\", \"حركة القيد الخاصة بحساب الصندوق\", \"\", 7)",
                    report + "SelectPrinter(\"lazer driver\", \"Lazer\", \"LPT1:\")",
                    report + "SetPaperOrientation(1)", report + "SetPaperSize(9)", "Screen.MousePointer(11)",
                    "CRViewer.ViewReport(true)", "Screen.MousePointer(0)", "Screen.MousePointer(0)",
                    "Screen.MousePointer(0)"));
}

TEST_F(AccountReportsTest, PointAtTheCurrentPrinter) {
    platform.printers->printers[0].orientation = OrientationLandscape;
    db->Answer("AS accfrom", {Move("البنك", 1)});
    Give({Move("البنك", 1)}, {});
    PrintOfOne();
    PrintAllMoves(db, 0, 0);
    for (const auto& record : platform.runtime->made) {
        EXPECT_EQ(record->device, "Lazer");
        EXPECT_EQ(record->driver, "lazer driver");
        EXPECT_EQ(record->port, "LPT1:");
        EXPECT_EQ(record->paperSize, 9);
        EXPECT_EQ(record->orientation, OrientationLandscape);
    }
    EXPECT_EQ(platform.viewer->views, 2);
    EXPECT_EQ(platform.forms->built, 2) << "a window of its own for each report";
}

// It cannot be added up; an amount that came in is not added at all.
TEST_F(AccountReportsTest, AnAmountOfNullThatWentOutIsAFailureAndOneThatCameInIsNone) {
    const fakes::Row without = {std::string("البنك"), Null{}, std::string("بيان"), Date{37780.5}};
    Give({Move("البنك", 1)}, {Move("البنك", 3), without, Move("البنك", 4)});
    PrintOfOne();
    EXPECT_THAT(platform.messages->boxes,
                ElementsAre(ShownBox{"A null stands where a value is needed.", 16, "qbrpt"}));
    EXPECT_EQ(platform.viewer->views, 0);
    EXPECT_FALSE(Record().alive);
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);

    platform.runtime->made.clear();
    Give({without}, {Move("البنك", 3)});
    PrintOfOne();
    EXPECT_EQ(platform.messages->boxes.size(), 1U);
    EXPECT_EQ(platform.viewer->views, 1);
    EXPECT_EQ(Text("AccountAmountText"), "3.00");
}

TEST_F(AccountReportsTest, WithoutADatabaseSayThat) {
    PrintAccountMoves(nullptr, 7, 0, 0, [] { return std::string(); });
    PrintAllMoves(nullptr, 0, 0);
    const ShownBox box{"Object variable not set.", 16, "qbrpt"};
    EXPECT_THAT(platform.messages->boxes, ElementsAre(box, box));
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
}

TEST_F(AccountReportsTest, ASumAboveAllNumbersIsAFailure) {
    Give({}, {Move("البنك", 2e9), Move("البنك", 2e9)});
    PrintOfOne();
    EXPECT_THAT(platform.messages->boxes, ElementsAre(ShownBox{"Overflow.", 16, "qbrpt"}));
    EXPECT_EQ(platform.viewer->views, 0);
    EXPECT_FALSE(Record().alive);
}

} // namespace
} // namespace qbrpt
