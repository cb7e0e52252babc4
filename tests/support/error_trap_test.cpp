#include "support/error_trap.h"
#include "support_fixture.h"

#include <gmock/gmock.h>

#include <new>
#include <stdexcept>
#include <string>
#include <vector>

namespace qbrpt {
namespace {

using fakes::ShownBox;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

[[noreturn]] void Fail(const char* words) {
    throw Failure(FailureNumber::Device, words);
}

class ErrorTrapTest : public SupportTest {
protected:
    /// A routine of six statements, of which the second, the test and the fifth fail; returns those that ran.
    std::string Routine(ErrorTrap::Kind kind, std::string_view prefix = {}) {
        std::string ran;
        ErrorTrap trap(kind, {.prefix = prefix});
        trap.Step([&] { ran += "1"; });
        trap.Step([&] {
            ran += "2";
            Fail("second");
        });
        if (trap.Test([&]() -> bool {
                ran += "3";
                Fail("test");
            })) {
            trap.Step([&] { ran += "4"; });
        }
        trap.Step([&] {
            ran += "5";
            Fail("fifth");
        });
        trap.Always([&] { ran += "6"; });
        left = trap.Left();
        return ran;
    }

    bool left = false;
};

struct KindRow {
    const char* name;
    ErrorTrap::Kind kind;
    std::vector<BoxAnswer> answers;
    const char* ran;
    std::vector<std::string> boxes;
    int style;
    bool left;
};

class ErrorTrapKinds : public ErrorTrapTest, public ::testing::WithParamInterface<KindRow> {};

TEST_P(ErrorTrapKinds, RunsAndShows) {
    const KindRow& row = GetParam();
    platform.messages->answers.assign(row.answers.begin(), row.answers.end());
    EXPECT_EQ(Routine(row.kind), row.ran);
    EXPECT_EQ(platform.messages->Texts(), row.boxes);
    EXPECT_EQ(left, row.left);
    for (const ShownBox& box : platform.messages->boxes) {
        EXPECT_EQ(box.style, row.style);
        EXPECT_EQ(box.title, "qbrpt");
    }
}

constexpr BoxAnswer Retry = BoxAnswer::Retry;
constexpr BoxAnswer Cancel = BoxAnswer::Cancel;

INSTANTIATE_TEST_SUITE_P(
    Rows, ErrorTrapKinds,
    ::testing::Values(
        KindRow{"CancelAtTheFirst", ErrorTrap::BoxWithRetry, {Cancel}, "126", {"second"}, 21, true},
        KindRow{"CancelAtTheTest",
                ErrorTrap::BoxWithRetry,
                {Retry, Cancel},
                "1236",
                {"second", "test"},
                21,
                true},
        KindRow{"CancelAtTheLast",
                ErrorTrap::BoxWithRetry,
                {Retry, Retry, Cancel},
                "123456",
                {"second", "test", "fifth"},
                21,
                true},
        KindRow{"RetryEverywhere",
                ErrorTrap::BoxWithRetry,
                {Retry, Retry, Retry},
                "123456",
                {"second", "test", "fifth"},
                21,
                false},
        KindRow{"BoxThenLeave", ErrorTrap::BoxThenLeave, {}, "126", {"second"}, 16, true},
        KindRow{"BoxThenGoOn", ErrorTrap::BoxThenGoOn, {}, "123456", {"second", "test", "fifth"}, 16, false},
        KindRow{"SilentGoOn", ErrorTrap::SilentGoOn, {}, "123456", {}, 0, false},
        KindRow{"SilentLeave", ErrorTrap::SilentLeave, {}, "126", {}, 0, true}),
    [](const auto& row) { return row.param.name; });

TEST_F(ErrorTrapTest, AnOrdinaryRunPassesThroughInSilence) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    int ran = 0;
    trap.Step([&] { ++ran; });
    EXPECT_TRUE(trap.Test([] { return true; }));
    EXPECT_FALSE(trap.Test([] { return false; }));
    trap.Always([&] { ++ran; });
    EXPECT_EQ(ran, 2);
    EXPECT_FALSE(trap.Left());
    EXPECT_THAT(platform.messages->boxes, IsEmpty());
}

TEST_F(ErrorTrapTest, ThePrefixStandsBeforeTheDescription) {
    Routine(ErrorTrap::BoxWithRetry, "ShowpReport\r");
    EXPECT_THAT(platform.messages->boxes, ElementsAre(ShownBox{"ShowpReport\rsecond", 21, "qbrpt"}));
}

TEST_F(ErrorTrapTest, AStyleOfItsOwnReplacesThatOfTheKind) {
    ErrorTrap trap(ErrorTrap::BoxThenLeave, {.style = BoxStyle::Plain});
    trap.Step([] { Fail("plain"); });
    EXPECT_THAT(platform.messages->boxes, ElementsAre(ShownBox{"plain", 0, "qbrpt"}));
}

TEST_F(ErrorTrapTest, AFailureInARoutineWithoutATrapIsItsCallersStatement) {
    platform.messages->usual = Retry;
    std::string ran;
    const auto inner = [&] {
        ran += "a";
        Fail("inner");
        ran += "b";
    };
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    trap.Step([&] { inner(); });
    trap.Step([&] { ran += "c"; });
    EXPECT_EQ(ran, "ac");
}

TEST_F(ErrorTrapTest, ARoutineWithATrapRaisesNothingToItsCaller) {
    ErrorTrap outer(ErrorTrap::BoxWithRetry);
    outer.Step([] {
        ErrorTrap inner(ErrorTrap::BoxWithRetry);
        inner.Step([] { Fail("inner"); });
    });
    EXPECT_FALSE(outer.Left());
    EXPECT_THAT(platform.messages->Texts(), ElementsAre("inner"));
}

TEST_F(ErrorTrapTest, EveryExceptionIsAFailure) {
    platform.messages->usual = Retry;
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    trap.Step([] { throw std::bad_alloc(); });
    trap.Step([] { throw std::runtime_error("the engine's own words"); });
    trap.Step([] { throw 7; });
    EXPECT_THAT(platform.messages->Texts(),
                ElementsAre("Out of memory.", "the engine's own words", "Unknown failure."));
}

TEST_F(ErrorTrapTest, AMissingObjectAndAnOverflowAreFailuresWithWords) {
    platform.messages->usual = Retry;
    const Ref<DAO::Database> none;
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    trap.Step([&] { static_cast<void>(none->OpenRecordset("SELECT 1")); });
    trap.Step([] { throw Failure(FailureNumber::Overflow, "Overflow."); });
    EXPECT_THAT(platform.messages->Texts(), ElementsAre("Object variable not set.", "Overflow."));
}

TEST_F(ErrorTrapTest, AStatementBehindTheTrapThatFailsDoesNotKeepTheOthersFromRunning) {
    std::string ran;
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    trap.Step([] { Fail("first"); });
    trap.Always([&] {
        ran += "a";
        Fail("always");
    });
    trap.Always([&] { ran += "b"; });
    EXPECT_EQ(ran, "ab");
    EXPECT_THAT(platform.messages->Texts(), ElementsAre("first", "always"));
}

TEST_F(ErrorTrapTest, RetryBehindTheTrapDoesNotTakeTheRoutineUpAgain) {
    platform.messages->answers = {Cancel, Retry};
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    trap.Step([] { Fail("first"); });
    trap.Always([] { Fail("always"); });
    EXPECT_TRUE(trap.Left());
}

class FailingBoxes final : public MessageBoxes {
public:
    int asked = 0;

private:
    BoxAnswer DoMsgBox(const std::string&, int, const std::string&) override {
        ++asked;
        Fail("no display");
    }
};

TEST_F(ErrorTrapTest, ABoxThatFailsCountsAsCancel) {
    const auto boxes = std::make_shared<FailingBoxes>();
    Platform::Current().messages = boxes;
    EXPECT_EQ(Routine(ErrorTrap::BoxWithRetry), "126");
    EXPECT_TRUE(left);
    EXPECT_EQ(boxes->asked, 1);
}

TEST_F(ErrorTrapTest, ABoxThatFailsStillGoesOnWhereTheKindAlwaysDoes) {
    Platform::Current().messages = std::make_shared<FailingBoxes>();
    EXPECT_EQ(Routine(ErrorTrap::BoxThenGoOn), "123456");
}

TEST_F(ErrorTrapTest, NoMessageBoxesAtAllCountsAsCancel) {
    Platform::Current().messages = nullptr;
    EXPECT_EQ(Routine(ErrorTrap::BoxWithRetry), "126");
}

} // namespace
} // namespace qbrpt
