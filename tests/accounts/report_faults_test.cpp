// Every port call of the reports on the journal fails in its turn.
#include "accounts/reports_fixture.h"
#include "fakes/fault_plan.h"

namespace qbrpt {
namespace {

using fakes::FaultObserver;
using ::testing::IsEmpty;

struct ReportRow {
    const char* name;
    bool ofOne;
};

class AccountReportFaults : public AccountReportsTest, public ::testing::WithParamInterface<ReportRow> {
protected:
    struct Outcome : fakes::FaultOutcome {
        bool reportsGone = true;
    };

    static Outcome Run(std::size_t position, FaultObserver::Reach reach,
                       const std::shared_ptr<fakes::CallLog>& log = nullptr) {
        AccountReportFaults test;
        test.Give({Move("البنك", 5)}, {Move("البنك", 3), Move("البنك", 4)});
        test.db->Answer("AS accfrom", {Move("البنك", 1)});
        const auto fault = std::make_shared<FaultObserver>(position, reach);
        if (log) fakes::FakePlatform::Observe(log);
        fakes::FakePlatform::Observe(fault);
        if (GetParam().ofOne)
            test.PrintOfOne(37780, 37790);
        else
            PrintAllMoves(test.db, 37780, 37790);
        Outcome outcome{{fault->Failed(), test.platform.messages->boxes, test.platform.screen->Current(),
                         test.platform.printers->printers[0].orientation}};
        for (const auto& report : test.platform.runtime->made)
            outcome.reportsGone = outcome.reportsGone && !report->alive;
        return outcome;
    }

    /// The calls of a run without a fault, the font table standing already.
    static fakes::FaultPlan Plan() {
        Run(0, FaultObserver::Reach::Once);
        const auto log = std::make_shared<fakes::CallLog>();
        EXPECT_THAT(Run(0, FaultObserver::Reach::Once, log).boxes, IsEmpty());
        return fakes::FaultPlan(log->Lines());
    }

private:
    void TestBody() override {}
};

class EveryFaultOfAccountReports : public AccountReportFaults {};

TEST_P(EveryFaultOfAccountReports, Once) {
    const fakes::FaultPlan plan = Plan();
    ASSERT_GT(plan.Size(), 30U);
    for (std::size_t position = 1; position <= plan.Size(); ++position) {
        SCOPED_TRACE(plan.Call(position));
        const Outcome outcome = Run(position, FaultObserver::Reach::Once);
        EXPECT_TRUE(outcome.reportsGone);
        plan.ExpectEnd(position, BoxAnswer::Cancel, outcome);
    }
}

TEST_P(EveryFaultOfAccountReports, FromThenOn) {
    const fakes::FaultPlan plan = Plan();
    for (std::size_t position = 1; position <= plan.Size(); ++position) {
        SCOPED_TRACE(plan.Call(position));
        const Outcome outcome = Run(position, FaultObserver::Reach::FromThenOn);
        EXPECT_GE(outcome.failed, 1U);
        EXPECT_THAT(outcome.boxes, IsEmpty());
        EXPECT_TRUE(outcome.reportsGone);
    }
}

INSTANTIATE_TEST_SUITE_P(Reports, EveryFaultOfAccountReports,
                         ::testing::Values(ReportRow{"OfOneAccount", true}, ReportRow{"OfAll", false}),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace qbrpt
