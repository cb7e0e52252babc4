#include "preview/frmPrntServer.h"
#include "service/period_clause.h"
#include "service/report_run.h"
#include "service_fixture.h"
#include "support/error_trap.h"
#include "templates/PayOutRpt.h"

namespace qbrpt {
namespace {

using fakes::ShownBox;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class ReportRunTest : public ServiceTest {
protected:
    const std::string name1 = "مقهى";
    const std::string addr1 = "شارع";
    const std::string addr2 = "هاتف";
    MainTitle title{name1, addr1, addr2};
    Ref<PayOutRpt> report = std::make_shared<PayOutRpt>();
    Ref<DAO::Recordset> records =
        std::make_shared<fakes::FakeRecordset>(std::vector<fakes::Row>{{std::int64_t{1}}});

    fakes::ReportRecord& Made() { return *platform.runtime->made.at(0); }
};

TEST_F(ReportRunTest, EmptiesTheCallersReferenceAndKeepsTheRows) {
    RunReport(report, records, true, false, title);
    EXPECT_TRUE(report.Empty());
    EXPECT_FALSE(records.Empty());
    EXPECT_FALSE(Made().alive);
    EXPECT_TRUE(Made().rowsRead);
    EXPECT_EQ(Made().texts["HotelNameText"], "مقهى");
    EXPECT_EQ(Made().texts["HotelAddr1Text"], "شارع");
    EXPECT_EQ(Made().texts["HotelAddr2Text"], "هاتف");
    EXPECT_EQ(Made().device, "Lazer");
    EXPECT_EQ(Made().driver, "lazer driver");
    EXPECT_EQ(Made().port, "LPT1:");
    EXPECT_EQ(Made().paperSize, 9);
    EXPECT_EQ(Made().orientation, OrientationPortrait);
    EXPECT_THAT(platform.screen->pointers, ElementsAre(Pointer::Wait, Pointer::Default));
}

TEST_F(ReportRunTest, ReportAndWindowAreGoneBeforeThePointerIsSetBack) {
    class LastPointer final : public PortObserver {
    public:
        explicit LastPointer(const fakes::ReportRecord& record) : mRecord(record) {}
        bool reportAlive = true;
        bool window = true;

    private:
        void Called(const PortCall& call) override {
            if (call.operation != "MousePointer") return;
            reportAlive = mRecord.alive;
            window = frmPrntServer::Exists();
        }
        const fakes::ReportRecord& mRecord;
    };
    platform.viewer->whileOpen = [] { EXPECT_TRUE(frmPrntServer::Exists()); };
    const auto last = std::make_shared<LastPointer>(Made());
    fakes::FakePlatform::Observe(last);
    RunReport(report, records, true, true, title);
    EXPECT_EQ(platform.viewer->views, 1);
    EXPECT_FALSE(last->reportAlive);
    EXPECT_FALSE(last->window);
}

TEST_F(ReportRunTest, WhileOneIsOpenAnotherIsNeitherPrintedNorShown) {
    for (const bool show : {false, true}) {
        Ref<PayOutRpt> outer = std::make_shared<PayOutRpt>();
        fakes::ReportRecord& open = *platform.runtime->made.back();
        open.pages = 3;
        Ref<PayOutRpt> nested = std::make_shared<PayOutRpt>();
        fakes::ReportRecord& refused = *platform.runtime->made.back();
        platform.messages->boxes.clear();
        platform.messages->usual = Retry; // which goes on with nothing
        platform.forms->shown = [&](fakes::FakeForm& form) {
            platform.screen->pointers.clear();
            RunReport(nested, records, true, show, title);
            EXPECT_THAT(platform.screen->pointers, IsEmpty());
            EXPECT_TRUE(nested.Empty());
            EXPECT_FALSE(refused.rowsRead);
            EXPECT_FALSE(form.gone);
            form.events.ButtonClick("next");
            form.events.ButtonClick("print");
        };
        RunReport(outer, records, true, true, title);
        EXPECT_THAT(platform.messages->boxes,
                    ElementsAre(ShownBox{"A report is open already. Close its window first.", 21, "qbrpt"}));
        EXPECT_EQ(refused.printed, 0);
        EXPECT_EQ(open.printed, 1) << "the open one goes on";
        EXPECT_EQ(platform.viewer->pagesAsked.back(), 2);
        EXPECT_FALSE(frmPrntServer::Exists());
        platform.viewer->page = 1;
    }
    EXPECT_EQ(platform.viewer->views, 2);
}

TEST_F(ReportRunTest, BindsNothingUnlessAsked) {
    RunReport(report, records, false, false, title);
    EXPECT_EQ(Made().dataTag, std::nullopt);
    EXPECT_FALSE(Made().rowsRead);
    EXPECT_EQ(Made().printed, 1);
}

TEST_F(ReportRunTest, AFailureWithCancelSkipsToTheEnd) {
    RunReport(report, nullptr, true, false, title);
    EXPECT_THAT(platform.messages->boxes, ElementsAre(ShownBox{"Object variable not set.", 21, "qbrpt"}));
    EXPECT_EQ(Made().printed, 0);
    EXPECT_EQ(Made().device, "");
    EXPECT_TRUE(report.Empty());
    EXPECT_FALSE(Made().alive);
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
}

TEST_F(ReportRunTest, AMissingReportFailsAtEveryStatementThatNeedsIt) {
    platform.messages->usual = Retry;
    Ref<PayOutRpt> none;
    RunReport(none, records, true, true, title);
    EXPECT_THAT(platform.messages->boxes, SizeIs(9));
    EXPECT_EQ(platform.viewer->views, 1); // an empty window: whoever retries gets what is left
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
}

TEST_F(ReportRunTest, ThePreviewTellsHowItClosed) {
    EXPECT_TRUE(frmPrntServer::Instance().ShowpReport(report, false));
    EXPECT_FALSE(platform.viewer->arabic);
    EXPECT_FALSE(frmPrntServer::Instance().ShowpReport(nullptr, true));
    EXPECT_THAT(platform.messages->boxes,
                ElementsAre(ShownBox{"ShowpReport\rObject variable not set.", 21, "qbrpt"}));
    platform.messages->usual = Retry;
    EXPECT_TRUE(frmPrntServer::Instance().ShowpReport(nullptr, true));
    EXPECT_EQ(platform.screen->Current(), Pointer::Default);
    frmPrntServer::Drop();
}

TEST_F(ReportRunTest, ThePreviewLetsTheReportGo) {
    frmPrntServer& window = frmPrntServer::Instance();
    EXPECT_EQ(&frmPrntServer::Instance(), &window);
    window.ShowpReport(report, true);
    report.Clear();
    EXPECT_FALSE(Made().alive);
    frmPrntServer::Drop();
}

TEST_F(ServiceTest, WorkDates) {
    GiveDatabase();
    db->Answer("id = 1", {{std::int64_t{38'000}}});
    db->Answer("id = 2", {{38'000.25}});
    EXPECT_EQ(GetWorkDate(db, 5), 38'001);
    EXPECT_EQ(GetWorkDate(db, 77), 0);
    EXPECT_EQ(GetWorkDate(db, 1), 38'000);
    EXPECT_EQ(GetWorkDate(db, 2), 38'000.25);
    EXPECT_THROW(static_cast<void>(GetWorkDate(nullptr, 5)), Failure);
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
    EXPECT_EQ(db->recordsets.at(0)->closed, 0); // dropped, not closed
}

TEST_F(ServiceTest, HostNames) {
    db->Answer("FROM host_src", {});
    db->Answer("FROM host_src WHERE id = 3", {{std::string("جهاز 3")}});
    db->Answer("FROM host_src WHERE id = 4", {{Null{}}});
    db->Fail("FROM host_src WHERE id = 6", "broken");
    EXPECT_EQ(GetHostName(db, 3), "جهاز 3");
    EXPECT_EQ(GetHostName(db, 4), "");
    EXPECT_EQ(GetHostName(db, 5), "");
    EXPECT_EQ(GetHostName(db, 6), "");
    EXPECT_EQ(GetHostName(nullptr, 3), "");
    EXPECT_EQ(Statements().at(0), "SELECT name FROM host_src WHERE id = 3");
    EXPECT_EQ(db->recordsets.at(0)->closed, 1);
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(ServiceTest, ANameThatWasReadSurvivesAFailingClose) {
    db->Answer("FROM host_src", {{std::string("جهاز 3")}});
    fakes::FakePlatform::Observe(
        std::make_shared<fakes::FaultObserver>(4, fakes::FaultObserver::Reach::Once));
    EXPECT_EQ(GetHostName(db, 3), "جهاز 3");
    EXPECT_EQ(db->recordsets.at(0)->closed, 0);
}

TEST(PeriodClauses, HaveThreeForms) {
    struct Row {
        const char* name;
        std::int32_t d1;
        std::int32_t d2;
        const char* byNotZero;
        const char* byPositive;
    };
    const ClauseWords words = {" WHERE (work_id", ")"};
    for (const Row& row :
         {Row{"range", 5, 9, " WHERE (work_id BETWEEN 5 AND 9)", " WHERE (work_id BETWEEN 5 AND 9)"},
          Row{"equal", 5, 5, " WHERE (work_id = 5)", " WHERE (work_id = 5)"},
          Row{"first only", 5, 0, " WHERE (work_id = 5)", " WHERE (work_id = 5)"},
          Row{"second only", 0, 7, "", ""}, Row{"none", 0, 0, "", ""},
          Row{"negative second", 5, -7, " WHERE (work_id BETWEEN 5 AND -7)", " WHERE (work_id = 5)"},
          Row{"negative first", -5, 7, " WHERE (work_id BETWEEN -5 AND 7)", ""}}) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(PeriodClause(words, FormOfPeriod(row.d1, row.d2), row.d1, row.d2), row.byNotZero);
        EXPECT_EQ(PeriodClause(words, FormOfPeriod(row.d1, row.d2, Given::Positive), row.d1, row.d2),
                  row.byPositive);
    }
}

} // namespace
} // namespace qbrpt
