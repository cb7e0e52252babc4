// Every port call of every command fails in its turn.
#include "fakes/all_commands.h"
#include "fakes/fault_plan.h"
#include "service_fixture.h"

#include <string>

namespace qbrpt {
namespace {

using fakes::CallLog;
using fakes::CommandCall;
using fakes::FaultObserver;
using fakes::FaultPlan;
using ::testing::IsEmpty;

class EveryFault : public ServiceTest, public ::testing::WithParamInterface<CommandCall> {
protected:
    struct Outcome : fakes::FaultOutcome {
        bool reportsGone = true;
    };

    static Outcome Run(std::size_t position, FaultObserver::Reach reach, BoxAnswer answer,
                       const std::shared_ptr<CallLog>& log = nullptr) {
        EveryFault host;
        host.GiveDatabase();
        host.db->queryDefs["users_income"] = host.db->queryDefs["users_income2"];
        host.platform.messages->usual = answer;
        const auto fault = std::make_shared<FaultObserver>(position, reach);
        if (log) fakes::FakePlatform::Observe(log);
        fakes::FakePlatform::Observe(fault);
        GetParam().run(host.cls, 2);
        Outcome outcome{{fault->Failed(), host.platform.messages->boxes, host.platform.screen->Current(),
                         host.platform.printers->printers[0].orientation}};
        for (const auto& report : host.platform.runtime->made)
            outcome.reportsGone = outcome.reportsGone && !report->alive;
        return outcome;
    }

    /// The calls of a run without a fault, the font table standing already.
    static FaultPlan Plan() {
        Run(0, FaultObserver::Reach::Once, Cancel);
        const auto log = std::make_shared<CallLog>();
        EXPECT_THAT(Run(0, FaultObserver::Reach::Once, Cancel, log).boxes, IsEmpty());
        return FaultPlan(log->Lines());
    }

private:
    void TestBody() override {}
};

class EveryFaultOf : public EveryFault {};

TEST_P(EveryFaultOf, Once) {
    const FaultPlan plan = Plan();
    ASSERT_GT(plan.Size(), 15U);
    for (const BoxAnswer answer : {Cancel, Retry}) {
        for (std::size_t position = 1; position <= plan.Size(); ++position) {
            SCOPED_TRACE(plan.Call(position) + (answer == Retry ? ", Retry" : ", Cancel"));
            const Outcome outcome = Run(position, FaultObserver::Reach::Once, answer);
            EXPECT_TRUE(outcome.reportsGone);
            plan.ExpectEnd(position, answer, outcome);
        }
    }
}

// From one call on nothing works any more, not even the boxes.
TEST_P(EveryFaultOf, FromThenOn) {
    const FaultPlan plan = Plan();
    for (const BoxAnswer answer : {Cancel, Retry}) {
        for (std::size_t position = 1; position <= plan.Size(); ++position) {
            SCOPED_TRACE(plan.Call(position));
            const Outcome outcome = Run(position, FaultObserver::Reach::FromThenOn, answer);
            EXPECT_GE(outcome.failed, 1U);
            EXPECT_TRUE(outcome.boxes.empty());
            EXPECT_TRUE(outcome.reportsGone);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Commands, EveryFaultOf, ::testing::ValuesIn(fakes::AllCommands()),
                         [](const auto& row) { return row.param.name; });

} // namespace
} // namespace qbrpt
