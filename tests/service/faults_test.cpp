// Every port call of a command fails in its turn.
#include "service_fixture.h"

#include <functional>
#include <string>

namespace qbrpt {
namespace {

using fakes::CallLog;
using fakes::FaultObserver;
using ::testing::Each;
using ::testing::Field;
using ::testing::SizeIs;

struct CommandRow {
    const char* name;
    std::function<void(VantlowCls&)> run;
};

class Faults : public ServiceTest, public ::testing::WithParamInterface<CommandRow> {
protected:
    /// What one faulty run left behind.
    struct Outcome {
        std::size_t failed = 0;
        std::vector<fakes::ShownBox> boxes;
        Pointer pointer = Pointer::Default;
        std::int16_t orientation = 0;
        bool reportsGone = true;
    };

    static Outcome Run(std::size_t position, FaultObserver::Reach reach, BoxAnswer answer,
                       const std::shared_ptr<CallLog>& log = nullptr) {
        Faults host;
        host.GiveDatabase();
        host.platform.messages->usual = answer;
        const auto fault = std::make_shared<FaultObserver>(position, reach);
        if (log) fakes::FakePlatform::Observe(log);
        fakes::FakePlatform::Observe(fault);
        GetParam().run(host.cls);
        Outcome outcome{fault->Failed(), host.platform.messages->boxes, host.platform.screen->Current(),
                        host.platform.printers->printers[0].orientation, true};
        for (const auto& report : host.platform.runtime->made)
            outcome.reportsGone = outcome.reportsGone && !report->alive;
        return outcome;
    }

    /// The calls of a run without a fault, the font table standing already.
    static std::vector<std::string> CleanCalls() {
        Run(0, FaultObserver::Reach::Once, Cancel);
        const auto log = std::make_shared<CallLog>();
        Run(0, FaultObserver::Reach::Once, Cancel, log);
        std::vector<std::string> calls;
        for (const std::string& line : log->Lines()) {
            if (!line.starts_with("member ")) calls.push_back(line);
        }
        return calls;
    }

    static std::size_t LastOf(const std::vector<std::string>& calls, const std::string& head) {
        std::size_t last = 0;
        for (std::size_t index = 0; index < calls.size(); ++index) {
            if (calls[index].starts_with(head)) last = index + 1;
        }
        return last;
    }

private:
    void TestBody() override {}
};

class EveryFault : public Faults {};

TEST_P(EveryFault, Once) {
    const auto calls = CleanCalls();
    ASSERT_GT(calls.size(), 20U);
    const std::size_t lastPointer = LastOf(calls, "Screen.MousePointer(0)");
    const std::size_t restore = LastOf(calls, "Printer.SetOrientation(");
    const std::size_t made = LastOf(calls, "CrystalRuntime.Runtime.NewReport(");
    const std::size_t initialised = LastOf(calls, "CrystalRuntime.Section.Height(");
    for (const BoxAnswer answer : {Cancel, Retry}) {
        for (std::size_t position = 1; position <= calls.size(); ++position) {
            SCOPED_TRACE(calls[position - 1] + (answer == Retry ? ", Retry" : ", Cancel"));
            const Outcome outcome = Run(position, FaultObserver::Reach::Once, answer);
            EXPECT_EQ(outcome.failed, 1U);
            EXPECT_TRUE(outcome.reportsGone);
            EXPECT_THAT(outcome.boxes, Each(Field(&fakes::ShownBox::style, 21)));
            // The font pass of a new report passes its failures over; anything else says so.
            const bool inFontPass = position > made && position + 1 < initialised;
            if (inFontPass && outcome.boxes.empty()) continue;
            if (answer == Cancel) {
                EXPECT_THAT(outcome.boxes, SizeIs(1));
            } else {
                EXPECT_FALSE(outcome.boxes.empty());
            }
            if (position != lastPointer) {
                EXPECT_EQ(outcome.pointer, Pointer::Default);
            }
            if (position != restore) {
                EXPECT_EQ(outcome.orientation, OrientationPortrait);
            }
        }
    }
}

// From one call on nothing works any more, not even the boxes.
TEST_P(EveryFault, FromThenOn) {
    const auto calls = CleanCalls();
    for (const BoxAnswer answer : {Cancel, Retry}) {
        for (std::size_t position = 1; position <= calls.size(); ++position) {
            SCOPED_TRACE(calls[position - 1]);
            const Outcome outcome = Run(position, FaultObserver::Reach::FromThenOn, answer);
            EXPECT_GE(outcome.failed, 1U);
            EXPECT_TRUE(outcome.boxes.empty());
            EXPECT_TRUE(outcome.reportsGone);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Commands, EveryFault,
    ::testing::Values(CommandRow{"PrintIncomePreview", [](VantlowCls& c) { c.PrintIncome(5, 9, 0, 1); }},
                      CommandRow{"PrintIncomePrint", [](VantlowCls& c) { c.PrintIncome(5, 9, 0, 0); }},
                      CommandRow{"PrintIncomeSingle", [](VantlowCls& c) { c.PrintIncome(5, 0, 0, 0); }},
                      CommandRow{"PrintPayoutPreview", [](VantlowCls& c) { c.PrintPayout(5, 9); }},
                      CommandRow{"PrintPayoutPrint", [](VantlowCls& c) { c.PrintPayout(5, 9, 0); }}),
    [](const auto& row) { return row.param.name; });

} // namespace
} // namespace qbrpt
