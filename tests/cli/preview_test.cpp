// The preview of the command, with a screen and without.
#include "cli/command_run.h"
#include "tools/x_desktop.h"

#include <gmock/gmock.h>

#include <csignal>

namespace qbrpt::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const std::vector<std::string> Preview = {"--preview"};

TEST(CommandPreview, WithoutADisplayIsAnErrorOnStandardError) {
    const Cafe cafe;
    const ProgramResult result = cafe.Income(Preview);
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.err, HasSubstr("qbrpt: ShowpReport\nqbrpt: There is no display to show windows on."));
    EXPECT_THAT(cafe.Names(), ElementsAre("café 1.db"));
}

TEST(CommandPreview, FilesNeedNoDisplay) {
    const Cafe cafe;
    // A display that does not answer, and a platform that there is none of: nobody may as much as ask.
    const ProgramResult result = cafe.Income({"--pdf", cafe.File("i.pdf"), "--csv", cafe.File("i.csv")},
                                             {{"DISPLAY", ":nonsense"}, {"QT_QPA_PLATFORM", "fantasy"}});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, IsEmpty());
}

/// The command with its window open on a screen.
class OpenPreview : public ::testing::Test {
protected:
    OpenPreview() { desktop.StartManager(); }

    std::unique_ptr<ChildProcess> Start(const std::vector<std::string>& words) {
        auto command = std::make_unique<ChildProcess>(
            CommandOf(words), ChildProcess::Environment{{"XDG_RUNTIME_DIR", runtime.Path().string()}});
        EXPECT_TRUE(Soon([&] { return !Window().empty(); })) << command->ErrSoFar();
        return command;
    }
    /// Its number, as long as it is to be seen.
    static std::string Window() {
        return RunProgram({"xdotool", "search", "--onlyvisible", "--name", "^طباعة$"}).out;
    }
    XDesktop desktop;
    TempFolder runtime;
    Cafe cafe;
};

TEST_F(OpenPreview, EndsWellWhenItsWindowIsClosed) {
    const auto command = Start({"PrintIncome", "0", "0", "0", "0", "--db", cafe.Database(), "--preview"});
    EXPECT_TRUE(command->Running());
    EXPECT_TRUE(Soon([] {
        return RunProgram({"xdotool", "key", "alt+F4"}).status == 0 && Window().empty();
    }));
    const ProgramResult result = command->Wait();
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, IsEmpty());
    EXPECT_THAT(cafe.Names(), ElementsAre("café 1.db")) << "nothing was printed";
}

TEST_F(OpenPreview, EndsAtAnInterrupt) {
    const auto command = Start({"PrintIncome", "0", "0", "0", "--db", cafe.Database(), "--preview"});
    command->Signal(SIGINT);
    EXPECT_EQ(command->Wait().status, 130);
}

} // namespace
} // namespace qbrpt::test
