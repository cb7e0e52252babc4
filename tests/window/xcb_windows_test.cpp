// Real windows of this and of another process, on a private X server with a window manager.
#include "adapters/window/xcb_windows.h"
#include "platform/platform.h"
#include "tools/child_process.h"
#include "tools/x_desktop.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

namespace qbrpt {
namespace {

using test::ChildProcess;
using test::Soon;
using test::XDesktop;
using test::XWindow;

class Desktop : public ::testing::Test {
protected:
    void SetUp() override { Platform::Install(std::make_unique<Platform>()); }
    void StartManager() { mDesktop.StartManager(); }

    /// A window manager that is just starting gives new windows no focus; so it is asked for.
    bool ComesToTheFront(const XWindow& window) {
        return Soon([&] {
            window.Activate();
            return mWindows.GetForegroundWindow() == window.Id();
        });
    }

    XDesktop mDesktop;
    xcb_connection_t* mConnection = mDesktop.Connection();
    XcbWindows mWindows;
};

TEST_F(Desktop, OwnWindowInFrontIsFound) {
    StartManager();
    const XWindow window(mConnection);
    window.Show();
    EXPECT_TRUE(ComesToTheFront(window));
}

TEST_F(Desktop, AWindowOfAnotherProcessCountsAsNone) {
    StartManager();
    const XWindow window(mConnection);
    window.Show();
    ASSERT_TRUE(ComesToTheFront(window));
    const ChildProcess terminal({"xterm"});
    EXPECT_TRUE(Soon([&] { return mWindows.GetForegroundWindow() == 0; }))
        << "the terminal comes to the front, and our window with it out of it";
}

TEST_F(Desktop, AWindowWithoutAProcessNumberCountsAsNone) {
    StartManager();
    const XWindow mine(mConnection);
    mine.Show();
    ASSERT_TRUE(ComesToTheFront(mine));
    mine.SetNumber("_NET_WM_PID", XCB_ATOM_CARDINAL, 1);
    EXPECT_TRUE(Soon([&] { return mWindows.GetForegroundWindow() == 0; }));
}

TEST_F(Desktop, WithoutAManagerThereIsNoForegroundWindow) {
    const XWindow window(mConnection);
    window.Show();
    EXPECT_EQ(mWindows.GetForegroundWindow(), 0U);
}

TEST_F(Desktop, AManagerThatHasGoneLeavesNothingBelievable) {
    StartManager();
    const XWindow window(mConnection);
    window.Show();
    ASSERT_TRUE(ComesToTheFront(window));
    mDesktop.StopManager();
    EXPECT_TRUE(Soon([&] { return mWindows.GetForegroundWindow() == 0; }));
}

TEST_F(Desktop, AClosedWindowIsNotInFront) {
    StartManager();
    const XWindow window(mConnection);
    window.Show();
    ASSERT_TRUE(ComesToTheFront(window));
    window.Destroy();
    EXPECT_TRUE(Soon([&] { return mWindows.GetForegroundWindow() == 0; }));
}

TEST_F(Desktop, TheOwnerOfADialogIsItsParent) {
    StartManager();
    const XWindow host(mConnection);
    const XWindow dialog(mConnection);
    dialog.BelongTo(host);
    host.Show();
    dialog.Show();
    ASSERT_TRUE(ComesToTheFront(dialog));
    EXPECT_EQ(mWindows.GetParent(dialog.Id()), host.Id());
    EXPECT_EQ(mWindows.GetParent(host.Id()), 0U) << "the manager's frame is no owner";
}

TEST_F(Desktop, TheParentOfAnEmbeddedWindowIsItsTopWindow) {
    StartManager();
    const XWindow host(mConnection);
    const XWindow panel(mConnection, host.Id());
    const XWindow button(mConnection, panel.Id());
    host.Show();
    ASSERT_TRUE(ComesToTheFront(host));
    EXPECT_EQ(mWindows.GetParent(button.Id()), host.Id());
    EXPECT_EQ(mWindows.GetParent(panel.Id()), host.Id());
}

TEST_F(Desktop, AWindowThatNeverWasHasNoParent) {
    EXPECT_EQ(mWindows.GetParent(0), 0U);
    EXPECT_EQ(mWindows.GetParent(0x7FFFFFF0), 0U);
}

TEST(NoDisplay, EveryAnswerIsNone) {
    Platform::Install(std::make_unique<Platform>());
    XcbWindows windows;
    ::unsetenv("DISPLAY");
    EXPECT_EQ(windows.GetForegroundWindow(), 0U);
    EXPECT_EQ(windows.GetParent(1), 0U);
    ::setenv("DISPLAY", ":nonsense", 1);
    EXPECT_EQ(windows.GetForegroundWindow(), 0U);
    EXPECT_EQ(windows.GetParent(1), 0U);
}

} // namespace
} // namespace qbrpt
