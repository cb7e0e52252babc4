// Real windows of this and of another process, on a private X server with a window manager.
#include "adapters/window/x_session.h"
#include "adapters/window/xcb_windows.h"
#include "platform/platform.h"
#include "tools/child_process.h"

#include <gtest/gtest.h>
#include <unistd.h>
#include <xcb/xcb.h>
#include <xcb/xcb_icccm.h>

#include <chrono>
#include <cstdlib>
#include <functional>
#include <memory>
#include <thread>

namespace qbrpt {
namespace {

using test::ChildProcess;

bool Soon(const std::function<bool()>& holds) {
    const auto until = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!holds()) {
        if (std::chrono::steady_clock::now() > until) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

/// A window of this process.
class OwnWindow {
public:
    explicit OwnWindow(xcb_connection_t* connection, xcb_window_t parent = XCB_WINDOW_NONE)
        : mConnection(connection), mId(xcb_generate_id(connection)) {
        const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, mId,
                          parent == XCB_WINDOW_NONE ? screen->root : parent, 10, 10, 200, 100, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
        SetNumber("_NET_WM_PID", XCB_ATOM_CARDINAL, static_cast<std::uint32_t>(::getpid()));
    }
    void SetNumber(const char* property, xcb_atom_t type, std::uint32_t value) const {
        xcb_change_property(mConnection, XCB_PROP_MODE_REPLACE, mId, Atom(property), type, 32, 1, &value);
        xcb_flush(mConnection);
    }
    /// Asks the window manager to bring the window to the front, as a task bar does.
    void Activate() const {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = mId;
        event.type = Atom("_NET_ACTIVE_WINDOW");
        event.data.data32[0] = 2;
        xcb_send_event(mConnection, 0, xcb_setup_roots_iterator(xcb_get_setup(mConnection)).data->root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&event));
        xcb_flush(mConnection);
    }
    void BelongTo(const OwnWindow& owner) const {
        xcb_icccm_set_wm_transient_for(mConnection, mId, owner.Id());
        xcb_flush(mConnection);
    }
    void Show() const {
        xcb_map_window(mConnection, mId);
        xcb_flush(mConnection);
    }
    void Destroy() const {
        xcb_destroy_window(mConnection, mId);
        xcb_flush(mConnection);
    }
    [[nodiscard]] xcb_window_t Id() const { return mId; }

private:
    [[nodiscard]] xcb_atom_t Atom(std::string_view name) const {
        const auto cookie =
            xcb_intern_atom(mConnection, 0, static_cast<std::uint16_t>(name.size()), name.data());
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
            xcb_intern_atom_reply(mConnection, cookie, nullptr), &std::free);
        return reply->atom;
    }

    xcb_connection_t* mConnection;
    xcb_window_t mId;
};

class Desktop : public ::testing::Test {
protected:
    void SetUp() override {
        Platform::Install(std::make_unique<Platform>());
        mServer = std::make_unique<ChildProcess>(std::vector<std::string>{
            "Xvfb", "-displayfd", "1", "-screen", "0", "800x600x24", "-nolisten", "tcp"});
        ASSERT_TRUE(Soon([&] { return mServer->OutSoFar().ends_with('\n'); })) << mServer->ErrSoFar();
        const std::string number = mServer->OutSoFar();
        ::setenv("DISPLAY", (":" + number.substr(0, number.size() - 1)).c_str(), 1);
        mConnection = xcb_connect(nullptr, nullptr);
        ASSERT_EQ(xcb_connection_has_error(mConnection), 0);
    }
    void TearDown() override {
        if (mConnection != nullptr) xcb_disconnect(mConnection);
    }
    void StartManager() {
        mManager = std::make_unique<ChildProcess>(std::vector<std::string>{"openbox"});
        ASSERT_TRUE(Soon([] {
            const XSession session;
            return session.HasProperty(session.Root(), "_NET_CLIENT_LIST"); // set once it minds windows
        })) << mManager->ErrSoFar();
    }

    /// A window manager that is just starting gives new windows no focus; so it is asked for.
    bool ComesToTheFront(const OwnWindow& window) {
        return Soon([&] {
            window.Activate();
            return mWindows.GetForegroundWindow() == window.Id();
        });
    }

    std::unique_ptr<ChildProcess> mServer;
    std::unique_ptr<ChildProcess> mManager;
    xcb_connection_t* mConnection = nullptr;
    XcbWindows mWindows;
};

TEST_F(Desktop, OwnWindowInFrontIsFound) {
    StartManager();
    const OwnWindow window(mConnection);
    window.Show();
    EXPECT_TRUE(ComesToTheFront(window));
}

TEST_F(Desktop, AWindowOfAnotherProcessCountsAsNone) {
    StartManager();
    const OwnWindow window(mConnection);
    window.Show();
    ASSERT_TRUE(ComesToTheFront(window));
    const ChildProcess terminal({"xterm"});
    EXPECT_TRUE(Soon([&] { return mWindows.GetForegroundWindow() == 0; }))
        << "the terminal comes to the front, and our window with it out of it";
}

TEST_F(Desktop, AWindowWithoutAProcessNumberCountsAsNone) {
    StartManager();
    const OwnWindow mine(mConnection);
    mine.Show();
    ASSERT_TRUE(ComesToTheFront(mine));
    mine.SetNumber("_NET_WM_PID", XCB_ATOM_CARDINAL, 1);
    EXPECT_TRUE(Soon([&] { return mWindows.GetForegroundWindow() == 0; }));
}

TEST_F(Desktop, WithoutAManagerThereIsNoForegroundWindow) {
    const OwnWindow window(mConnection);
    window.Show();
    EXPECT_EQ(mWindows.GetForegroundWindow(), 0U);
}

TEST_F(Desktop, AManagerThatHasGoneLeavesNothingBelievable) {
    StartManager();
    const OwnWindow window(mConnection);
    window.Show();
    ASSERT_TRUE(ComesToTheFront(window));
    mManager.reset();
    EXPECT_TRUE(Soon([&] { return mWindows.GetForegroundWindow() == 0; }));
}

TEST_F(Desktop, AClosedWindowIsNotInFront) {
    StartManager();
    const OwnWindow window(mConnection);
    window.Show();
    ASSERT_TRUE(ComesToTheFront(window));
    window.Destroy();
    EXPECT_TRUE(Soon([&] { return mWindows.GetForegroundWindow() == 0; }));
}

TEST_F(Desktop, TheOwnerOfADialogIsItsParent) {
    StartManager();
    const OwnWindow host(mConnection);
    const OwnWindow dialog(mConnection);
    dialog.BelongTo(host);
    host.Show();
    dialog.Show();
    ASSERT_TRUE(ComesToTheFront(dialog));
    EXPECT_EQ(mWindows.GetParent(dialog.Id()), host.Id());
    EXPECT_EQ(mWindows.GetParent(host.Id()), 0U) << "the manager's frame is no owner";
}

TEST_F(Desktop, TheParentOfAnEmbeddedWindowIsItsTopWindow) {
    StartManager();
    const OwnWindow host(mConnection);
    const OwnWindow panel(mConnection, host.Id());
    const OwnWindow button(mConnection, panel.Id());
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
