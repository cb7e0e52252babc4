#include "adapters/console/console_boxes.h"
#include "adapters/console/quiet_screen.h"
#include "platform/platform.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

namespace qbrpt {
namespace {

struct Row {
    const char* name;
    int style;
    BoxAnswer onError;
    BoxAnswer answer;
};

class ConsoleBoxAnswers : public ::testing::TestWithParam<Row> {
protected:
    ConsoleBoxAnswers() { Platform::Install(std::make_unique<Platform>()); }
};

TEST_P(ConsoleBoxAnswers, AreGivenAtOnce) {
    std::ostringstream stream;
    ConsoleBoxes boxes(stream, GetParam().onError);
    EXPECT_EQ(boxes.MsgBox("text", GetParam().style), GetParam().answer);
    EXPECT_EQ(stream.str(), "qbrpt: text\n");
}

INSTANTIATE_TEST_SUITE_P(
    Styles, ConsoleBoxAnswers,
    ::testing::Values(Row{"OkAlone", 0, BoxAnswer::Cancel, BoxAnswer::Ok},
                      Row{"CriticalOk", 16, BoxAnswer::Cancel, BoxAnswer::Ok},
                      Row{"CriticalOkDespiteRetry", 16, BoxAnswer::Retry, BoxAnswer::Ok},
                      Row{"RightToLeftOk", 0x180010, BoxAnswer::Retry, BoxAnswer::Ok},
                      Row{"SecondButtonRightToLeftOk", 0x180100, BoxAnswer::Retry, BoxAnswer::Ok},
                      Row{"RetryCancelIsCancelled", 21, BoxAnswer::Cancel, BoxAnswer::Cancel},
                      Row{"RetryCancelIsRetried", 21, BoxAnswer::Retry, BoxAnswer::Retry},
                      Row{"OkCancel", 1, BoxAnswer::Retry, BoxAnswer::Cancel},
                      Row{"YesNo", 4, BoxAnswer::Retry, BoxAnswer::No}),
    [](const auto& row) { return row.param.name; });

class Console : public ::testing::Test {
protected:
    Console() { Platform::Install(std::make_unique<Platform>()); }
};

TEST_F(Console, ShowsTitleOnEveryLine) {
    std::ostringstream stream;
    ConsoleBoxes boxes(stream, BoxAnswer::Cancel);
    boxes.MsgBox("ShowpReport\rno paper\r\nat all", 21, "السجل");
    EXPECT_EQ(stream.str(), "السجل: ShowpReport\nالسجل: no paper\nالسجل: at all\n");
}

TEST_F(Console, RetriesEnd) {
    std::ostringstream stream;
    ConsoleBoxes boxes(stream, BoxAnswer::Retry);
    int retries = 0;
    while (retries < 100'000 && boxes.MsgBox("again", 21) == BoxAnswer::Retry)
        ++retries;
    EXPECT_EQ(retries, 1000);
}

TEST_F(Console, AnswerFollowsTheSetting) {
    ::unsetenv("QBRPT_ON_ERROR");
    EXPECT_EQ(AnswerFromSettings(), BoxAnswer::Cancel);
    ::setenv("QBRPT_ON_ERROR", "retry", 1);
    EXPECT_EQ(AnswerFromSettings(), BoxAnswer::Retry);
    ::setenv("QBRPT_ON_ERROR", "cancel", 1);
    EXPECT_EQ(AnswerFromSettings(), BoxAnswer::Cancel);
}

TEST_F(Console, ScreenKeepsThePointer) {
    QuietScreen screen;
    EXPECT_EQ(screen.MousePointer(), Pointer::Default);
    screen.SetMousePointer(Pointer::Wait);
    EXPECT_EQ(screen.MousePointer(), Pointer::Wait);
}

} // namespace
} // namespace qbrpt
