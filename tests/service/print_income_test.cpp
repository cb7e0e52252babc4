#include "service_fixture.h"

namespace qbrpt {
namespace {

using fakes::CallLog;
using fakes::ShownBox;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr const char* StatementHead =
    "SELECT min_log_time, max_log_time, Format(d.date, 'ddd dd MMM yyyy'), net_income + print_income as "
    "tnet, "
    "members_income, pp_income, other_Income, total_discount, 0 as paid_out, total_income, t.prints, t.pp, "
    "t.general, t.member, d.work_time, t.total_time, pc_count From daily_sheet AS d RIGHT JOIN "
    "(total_use_count AS t RIGHT JOIN host_log_time AS h ON t.work_id = h.id) ON d.work_id = h.id ";

std::string Title(const std::string& period) {
    return "تقرير بالإيراد " + period;
}

const std::string Thursday = "ليوم الخميس 15 يناير 2004";
const std::string ThursdayToMonday = "من الخميس 15 يناير إلى الاثنين 19 يناير 2004";

struct ClauseRow {
    const char* name;
    std::int32_t date1;
    std::int32_t date2;
    std::vector<std::int32_t> lookedUp;
    const char* clause;
    std::string period;
};

class IncomeClause : public ServiceTest, public ::testing::WithParamInterface<ClauseRow> {};

TEST_P(IncomeClause, ReachesTheStatementAndTheTitle) {
    const ClauseRow& row = GetParam();
    GiveDatabase();
    cls.PrintIncome(row.date1, row.date2, 0, 0);
    std::vector<std::string> expected;
    for (const std::int32_t id : row.lookedUp)
        expected.push_back("SELECT use_date FROM host_log_time WHERE id = " + std::to_string(id));
    expected.push_back(StatementHead + std::string(row.clause) + " ORDER BY h.id ");
    EXPECT_EQ(Statements(), expected);
    for (const auto& statement : db->opened) {
        const bool income = statement.text.starts_with("SELECT min_log_time");
        EXPECT_EQ(statement.type, income ? std::optional<int>(2) : std::nullopt);
    }
    ASSERT_THAT(platform.runtime->made, SizeIs(1));
    EXPECT_EQ(platform.runtime->made[0]->texts["IncomeTitleText"], Title(row.period));
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Rows, IncomeClause,
    ::testing::Values(
        ClauseRow{"Range", 5, 9, {5, 9}, " WHERE(h.id BETWEEN 5 AND 9) ", ThursdayToMonday},
        ClauseRow{"BoundsAreNotSorted", 9, 5, {9, 5}, " WHERE(h.id BETWEEN 9 AND 5) ", ThursdayToMonday},
        ClauseRow{"EqualBounds", 5, 5, {5}, " WHERE(h.id = 5) ", Thursday},
        ClauseRow{"NoSecondBound", 5, 0, {5}, " WHERE(h.id = 5) ", Thursday},
        ClauseRow{"NegativeSecondBound", 5, -3, {5}, " WHERE(h.id = 5) ", Thursday},
        ClauseRow{"NoBounds", 0, 0, {0}, "", "ليوم "},
        ClauseRow{"OnlyTheSecondBound", 0, 9, {0, 9}, "", "من  إلى الاثنين 19 يناير 2004"},
        ClauseRow{"NegativeFirstBound", -4, 9, {-4, 9}, "", "من  إلى الاثنين 19 يناير 2004"},
        ClauseRow{"BothNegative", -4, -4, {-4}, "", "ليوم "},
        ClauseRow{"NegativeAndDifferent", -4, -5, {-4, -5}, "", "ليوم "},
        ClauseRow{"ADayThatIsNotThere", 6, 6, {6}, " WHERE(h.id = 6) ", "ليوم "},
        ClauseRow{"ASecondDayThatIsNotThere", 5, 6, {5, 6}, " WHERE(h.id BETWEEN 5 AND 6) ", Thursday},
        ClauseRow{"TheLargestNumbers",
                  INT32_MAX,
                  2'147'483'646,
                  {INT32_MAX, 2'147'483'646},
                  " WHERE(h.id BETWEEN 2147483647 AND 2147483646) ",
                  "ليوم "}),
    [](const auto& row) { return row.param.name; });

struct RoundingRow {
    const char* name;
    double workDate;
    const char* period;
};

class IncomeRounding : public ServiceTest, public ::testing::WithParamInterface<RoundingRow> {};

TEST_P(IncomeRounding, GoesToTheNearestDay) {
    GiveDatabase();
    db->Answer("WHERE id = 5", {{Date{GetParam().workDate}}});
    cls.PrintIncome(5, 5, 0, 0);
    EXPECT_EQ(platform.runtime->made.at(0)->texts["IncomeTitleText"], Title(GetParam().period));
}

INSTANTIATE_TEST_SUITE_P(
    Rows, IncomeRounding,
    ::testing::Values(RoundingRow{"BeforeNoon", 38'001.4999, "ليوم الخميس 15 يناير 2004"},
                      RoundingRow{"AfterNoon", 38'001.75, "ليوم الجمعة 16 يناير 2004"},
                      RoundingRow{"NoonGoesUpToTheEvenDay", 38'001.5, "ليوم الجمعة 16 يناير 2004"},
                      RoundingRow{"NoonGoesDownToTheEvenDay", 38'000.5, "ليوم الأربعاء 14 يناير 2004"},
                      RoundingRow{"RoundedToNoDate", 0.25, "ليوم "}),
    [](const auto& row) { return row.param.name; });

TEST_F(ServiceTest, TheIncomeRunGoesInItsOrder) {
    GiveDatabase();
    cls.SetMainTitle("مقهى النجوم", "شارع الملك", "هاتف 123");
    cls.PrintIncome(5, 9, 0, 0); // the font table stands from here on
    const auto log = std::make_shared<CallLog>();
    fakes::FakePlatform::Observe(log);
    cls.PrintIncome(5, 9, 0, 0);
    const std::vector<std::string> watched = {
        "DAO.",
        "Screen.",
        "Printer",
        "member ",
        "CrystalRuntime.Runtime.",
        "CrystalRuntime.Report.Set",
        "CrystalRuntime.Report.Select",
        "CrystalRuntime.Report.Read",
        "CrystalRuntime.Report.PrintOut",
        "CRViewer.",
    };
    EXPECT_THAT(
        log->LinesOf(watched),
        ElementsAre("Printers.Count()",
                    "DAO.Database.OpenRecordset(\"SELECT use_date FROM host_log_time WHERE id = 5\", null)",
                    "DAO.Recordset.EOF()", "DAO.Recordset.Fields(0)",
                    "DAO.Database.OpenRecordset(\"SELECT use_date FROM host_log_time WHERE id = 9\", null)",
                    "DAO.Recordset.EOF()", "DAO.Recordset.Fields(0)",
                    "DAO.Database.OpenRecordset(\"" + std::string(StatementHead) +
                        " WHERE(h.id BETWEEN 5 AND 9)  ORDER BY h.id \", 2)",
                    "DAO.Recordset.RecordCount()", "DAO.Recordset.MoveLast()", "DAO.Recordset.MoveFirst()",
                    "DAO.Recordset.RecordCount()", "CrystalRuntime.Runtime.NewReport(\"IncomeGrpRpt\")",
                    "member SetOtherTitle(\"" + Title(ThursdayToMonday) + "\")", "Printer.Orientation()",
                    "Printer.SetOrientation(2)", "Screen.MousePointer(11)",
                    "member SetHotelInfo(\"مقهى النجوم\", \"شارع الملك\", \"هاتف 123\")",
                    "CrystalRuntime.Report.SetDataSource(3)", "DAO.Recordset.Rows()",
                    "CrystalRuntime.Report.ReadRecords()", "Printer.Current()",
                    "CrystalRuntime.Report.SelectPrinter(\"lazer driver\", \"Lazer\", \"LPT1:\")",
                    "Printer.Current()", "CrystalRuntime.Report.SetPaperSize(9)", "Printer.Orientation()",
                    "CrystalRuntime.Report.SetPaperOrientation(2)",
                    "CrystalRuntime.Report.PrintOut(false, \"Lazer\", null, null, null)",
                    "Screen.MousePointer(0)", "Printer.SetOrientation(1)"));
}

TEST_F(ServiceTest, TheIncomeSheetIsPrintedWithItsHeading) {
    GiveDatabase();
    cls.SetMainTitle("مقهى النجوم", "شارع الملك", "");
    cls.PrintIncome(5, 9, 0, 0);
    ASSERT_THAT(platform.runtime->made, SizeIs(1));
    fakes::ReportRecord& report = *platform.runtime->made[0];
    EXPECT_EQ(report.templateName, "IncomeGrpRpt");
    EXPECT_EQ(report.texts["HotelNameTextTop"], "مقهى النجوم");
    EXPECT_EQ(report.texts["HotelNameTextBottom"], "مقهى النجوم");
    EXPECT_EQ(report.texts["HotelAddr1Text"], "شارع الملك");
    EXPECT_EQ(report.texts["HotelAddr2Text"], "");
    EXPECT_EQ(report.dataTag, 3);
    EXPECT_TRUE(report.rowsRead);
    EXPECT_EQ(report.printed, 1);
    EXPECT_FALSE(report.promptUser);
    EXPECT_EQ(report.orientation, OrientationLandscape);
    EXPECT_FALSE(report.alive);
    EXPECT_EQ(platform.viewer->views, 0);
}

TEST_F(ServiceTest, EveryShowButZeroPreviews) {
    GiveDatabase();
    platform.viewer->whileOpen = [this] {
        EXPECT_EQ(platform.screen->Current(), Pointer::Default);
        EXPECT_EQ(platform.printers->printers[0].orientation, OrientationLandscape);
    };
    int views = 0;
    for (const int show : {1, 2, -1}) {
        cls.PrintIncome(5, 9, 0, static_cast<std::int16_t>(show));
        EXPECT_EQ(platform.viewer->views, ++views);
        EXPECT_TRUE(platform.viewer->arabic);
        EXPECT_EQ(platform.runtime->made.back()->printed, 0);
        EXPECT_FALSE(platform.runtime->made.back()->alive);
        EXPECT_EQ(platform.printers->printers[0].orientation, OrientationPortrait);
    }
    cls.PrintIncome(5, 9, 0);
    EXPECT_EQ(platform.viewer->views, ++views);
    EXPECT_THAT(platform.screen->pointers, SizeIs(20)); // 11, 11, 0, 0, 0 a preview
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
}

TEST_F(ServiceTest, TheGroupArgumentIsNotRead) {
    GiveDatabase();
    cls.PrintIncome(5, 9, 0, 0);
    const auto first = Statements();
    db->opened.clear();
    cls.PrintIncome(5, 9, 1, 0);
    EXPECT_EQ(Statements(), first);
    EXPECT_EQ(platform.runtime->made[0]->texts, platform.runtime->made[1]->texts);
    EXPECT_EQ(platform.runtime->made[1]->templateName, "IncomeGrpRpt");
}

TEST_F(ServiceTest, TheGuardLeavesInSilence) {
    cls.PrintIncome(5, 9, 0, 1); // no database
    GiveDatabase();
    platform.printers->count = 0;
    cls.PrintIncome(5, 9, 0, 1);
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
    EXPECT_THAT(db->opened, IsEmpty());
    EXPECT_THAT(platform.runtime->made, IsEmpty());
}

TEST_F(ServiceTest, NoRowsEndInSilence) {
    GiveDatabase();
    db->Answer("From daily_sheet", {});
    cls.PrintIncome(5, 9, 0, 1);
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
    EXPECT_THAT(platform.runtime->made, IsEmpty());
    EXPECT_THAT(platform.printers->orientations, IsEmpty());
    EXPECT_THAT(platform.screen->pointers, IsEmpty());
}

TEST_F(ServiceTest, ARangeOfOneRowKeepsTheTitleOfTheRange) {
    GiveDatabase();
    db->Answer("From daily_sheet", {{std::int64_t{1}}});
    cls.PrintIncome(5, 9, 0, 0);
    EXPECT_EQ(platform.runtime->made.at(0)->texts["IncomeTitleText"], Title(ThursdayToMonday));
}

TEST_F(ServiceTest, ALandscapePrinterStaysLandscape) {
    GiveDatabase();
    platform.printers->printers[0].orientation = OrientationLandscape;
    cls.PrintIncome(5, 9, 0, 0);
    EXPECT_THAT(platform.printers->orientations, ElementsAre(2, 2));
}

TEST_F(ServiceTest, ANewHeadingStandsOnTheNextReport) {
    GiveDatabase();
    cls.PrintIncome(5, 9, 0, 0);
    cls.SetMainTitle("الأول", "", "");
    cls.PrintIncome(5, 9, 0, 0);
    cls.SetMainTitle("الثاني", "", "");
    cls.PrintIncome(5, 9, 0, 0);
    ASSERT_THAT(platform.runtime->made, SizeIs(3));
    EXPECT_EQ(platform.runtime->made[0]->texts["HotelNameTextTop"], "");
    EXPECT_EQ(platform.runtime->made[1]->texts["HotelNameTextTop"], "الأول");
    EXPECT_EQ(platform.runtime->made[2]->texts["HotelNameTextTop"], "الثاني");
}

TEST_F(ServiceTest, WorkDatesThatAreNoDatesEndInTheTrap) {
    GiveDatabase();
    platform.messages->usual = Retry;
    db->Answer("WHERE id = 5", {{Null{}}});
    db->Answer("WHERE id = 9", {{Date{3e9}}});
    cls.PrintIncome(5, 9, 0, 0);
    EXPECT_THAT(platform.messages->Texts(),
                ElementsAre("A null stands where a value is needed.", "Overflow."));
    EXPECT_EQ(platform.runtime->made.at(0)->texts["IncomeTitleText"], Title("ليوم "));
    EXPECT_EQ(platform.runtime->made.at(0)->printed, 1);
}

} // namespace
} // namespace qbrpt
