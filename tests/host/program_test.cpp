// The host's program, as a user starts it.
#include "cli/command_run.h"
#include "tools/x_desktop.h"

#include <gmock/gmock.h>

#include <chrono>
#include <thread>

namespace qbrpt::test {
namespace {

using ::testing::IsEmpty;

std::string Visible(const std::string& title) {
    return RunProgram({"xdotool", "search", "--onlyvisible", "--name", title}).out;
}

std::string Active() {
    return RunProgram({"xdotool", "getactivewindow"}).out;
}

void Press(const std::string& key) {
    EXPECT_EQ(RunProgram({"xdotool", "key", key}).status, 0);
}

TEST(HostProgram, OpensItsDatabaseAndShowsAReportInItsPlace) {
    const std::string own = "^مقهى الواحة$";
    const std::string preview = "^مقهى الواحة .Printing.$";
    XDesktop desktop;
    desktop.StartManager();
    const Cafe cafe;
    const TempFolder folder;
    ChildProcess host({QBRPT_HOST, cafe.Database()}, {{"XDG_RUNTIME_DIR", folder.Path().string()},
                                                      {"QBRPT_REGISTRY", (folder / "registry").string()},
                                                      {"QBRPT_PDF_FOLDER", (folder / "pages").string()}});
    ASSERT_TRUE(Soon([&] { return !Visible(own).empty() && Visible(own) == Active(); })) << host.ErrSoFar();
    for (int row = 0; row < 6; ++row)
        Press("Down"); // to PrintIncome
    // Until the database is open, which is when the window has come to the front, this does nothing.
    const auto run = [] {
        Press("ctrl+Return");
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    };
    ASSERT_TRUE(Soon([&] { return !Visible(preview).empty(); }, run)) << host.ErrSoFar();
    EXPECT_TRUE(Soon([&] { return Visible(own).empty(); }));
    EXPECT_TRUE(Soon([&] { return Visible(preview).empty(); }, [] { Press("alt+F4"); }));
    EXPECT_TRUE(Soon([&] { return !Visible(own).empty(); }));
    EXPECT_TRUE(host.Running());
    EXPECT_TRUE(Soon([&] { return Visible(own).empty(); }, [] { Press("alt+F4"); }));
    const ProgramResult result = host.Wait();
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.err, IsEmpty());
}

} // namespace
} // namespace qbrpt::test
