// Windows that another toolkit has made: where they stand, how they are hidden and come back.
#include "adapters/window/window_icon.h"
#include "adapters/window/x_session.h"
#include "adapters/window/xcb_windows.h"
#include "platform/platform.h"
#include "tools/x_desktop.h"

#include <gmock/gmock.h>

#include <csignal>

namespace qbrpt {
namespace {

using test::Soon;
using test::XDesktop;
using test::XWindow;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class HostWindow : public ::testing::TestWithParam<bool> {
protected:
    HostWindow() {
        Platform::Install(std::make_unique<Platform>());
        if (GetParam()) desktop.StartManager();
    }
    [[nodiscard]] WindowPlace Place() {
        WindowPlace place;
        EXPECT_TRUE(windows.GetWindowPlacement(host.Id(), place));
        return place;
    }
    [[nodiscard]] std::vector<std::int32_t> Normal() {
        const WindowPlace place = Place();
        return {place.left, place.top, place.right, place.bottom};
    }
    void ShowHost() {
        host.Show();
        ASSERT_TRUE(Soon([&] { return host.Viewable(); }));
        if (!GetParam()) return;
        ASSERT_TRUE(Soon([&] { return XSession().HasProperty(host.Id(), "_NET_FRAME_EXTENTS"); }));
    }

    XDesktop desktop;
    XWindow host{desktop.Connection()};
    XcbWindows windows;
};

TEST_P(HostWindow, IsHiddenAndComesBackWhereItStood) {
    ShowHost();
    windows.MoveWindow(host.Id(), 300, 200, 500, 320);
    ASSERT_TRUE(Soon([&] { return Place().left == 300 && Place().right == 800; }));
    EXPECT_THAT(Normal(), ElementsAre(300, 200, 800, 520));
    for (int turn = 1; turn <= 3; ++turn) {
        windows.ShowWindow(host.Id(), ShowCommand::Hide);
        EXPECT_TRUE(Soon([&] { return !host.Viewable(); })) << turn;
        windows.ShowWindow(host.Id(), ShowCommand::Show);
        EXPECT_TRUE(Soon([&] { return host.Viewable(); })) << turn;
        EXPECT_TRUE(Soon([&] {
            return Normal() == std::vector<std::int32_t>{300, 200, 800, 520};
        })) << turn
            << ": " << ::testing::PrintToString(Normal());
    }
    EXPECT_EQ(Place().showCmd, PlaceCode::Normal);
}

TEST_P(HostWindow, HiddenTwiceComesBackAtOnce) {
    ShowHost();
    windows.ShowWindow(host.Id(), ShowCommand::Hide);
    windows.ShowWindow(host.Id(), ShowCommand::Hide);
    windows.ShowWindow(host.Id(), ShowCommand::Show);
    EXPECT_TRUE(Soon([&] { return host.Viewable(); }));
}

TEST_P(HostWindow, TellsItsTitleInAnyAge) {
    EXPECT_EQ(windows.GetWindowTextLength(host.Id()), 0U);
    host.SetText("WM_NAME", "STRING", "caf\xE9");
    EXPECT_EQ(windows.GetWindowText(host.Id(), 100), "café");
    host.SetText("_NET_WM_NAME", "UTF8_STRING", "مقهى نسمة");
    EXPECT_EQ(windows.GetWindowTextLength(host.Id()), 17U);
    EXPECT_EQ(windows.GetWindowText(host.Id(), 18), "مقهى نسمة");
    EXPECT_EQ(windows.GetWindowText(host.Id(), 9), "مقهى");
    EXPECT_EQ(windows.GetWindowText(host.Id(), 8), "مقه") << "letters stay whole";
}

TEST_P(HostWindow, KeepsTheLettersOfAVeryLongTitleWhole) {
    std::string title = "a"; // so that every cut at an even byte is one through a letter
    for (int letter = 0; letter < 9000; ++letter)
        title += "م";
    host.SetText("_NET_WM_NAME", "UTF8_STRING", title);
    EXPECT_EQ(windows.GetWindowText(host.Id(), 40'000), title.substr(0, 16'383));
    EXPECT_EQ(windows.GetWindowTextLength(host.Id()), 16'383U);
}

TEST_P(HostWindow, StandsForItsIcon) {
    EXPECT_EQ(windows.GetClassIcon(host.Id()), 0U);
    EXPECT_THAT(IconPicturesOf(host.Id()), IsEmpty());
    host.SetNumbers("_NET_WM_ICON", {2, 1, 0xFF112233, 0x80445566, 1, 1, 7});
    EXPECT_EQ(windows.GetClassIcon(host.Id()), host.Id());
    const auto pictures = IconPicturesOf(host.Id());
    ASSERT_THAT(pictures, SizeIs(2));
    EXPECT_EQ(pictures[0].width, 2);
    EXPECT_THAT(pictures[0].pixels, ElementsAre(0xFF112233, 0x80445566));
    const XWindow other(desktop.Connection());
    windows.SetIcon(other.Id(), IconSize::Large, host.Id());
    EXPECT_THAT(IconPicturesOf(other.Id()), SizeIs(2));
}

TEST_P(HostWindow, ThatIsGoneIsHarmless) {
    host.Destroy();
    ASSERT_TRUE(Soon([&] { return !host.Viewable(); }));
    WindowPlace place;
    place.left = 5;
    EXPECT_FALSE(windows.GetWindowPlacement(host.Id(), place));
    EXPECT_EQ(place.left, 5);
    windows.ShowWindow(host.Id(), ShowCommand::Hide);
    windows.ShowWindow(host.Id(), ShowCommand::Show);
    windows.MoveWindow(host.Id(), 1, 2, 3, 4);
    windows.SetIcon(host.Id(), IconSize::Small, host.Id());
    windows.BringWindowToTop(host.Id());
    windows.SetActiveWindow(host.Id());
    windows.SetFocus(host.Id());
    EXPECT_EQ(windows.GetWindowText(host.Id(), 10), "");
}

INSTANTIATE_TEST_SUITE_P(Screens, HostWindow, ::testing::Values(true, false),
                         [](const auto& managed) { return managed.param ? "Managed" : "Bare"; });

class ManagedHost : public HostWindow {};

TEST_P(ManagedHost, MaximisedComesBackMaximised) {
    ShowHost();
    host.Maximise();
    ASSERT_TRUE(Soon([&] { return Place().showCmd == PlaceCode::Maximised; }));
    windows.ShowWindow(host.Id(), ShowCommand::Hide);
    ASSERT_TRUE(Soon([&] { return !host.Viewable(); }));
    windows.ShowWindow(host.Id(), ShowCommand::Show);
    EXPECT_TRUE(Soon([&] { return host.Viewable() && Place().showCmd == PlaceCode::Maximised; }));
}

TEST_P(ManagedHost, ComesBackMaximisedFromAManagerThatIsBehind) {
    ShowHost();
    host.Maximise();
    ASSERT_TRUE(Soon([&] { return Place().showCmd == PlaceCode::Maximised; }));
    desktop.SignalManager(SIGSTOP);
    windows.ShowWindow(host.Id(), ShowCommand::Hide);
    windows.ShowWindow(host.Id(), ShowCommand::Show);
    EXPECT_FALSE(host.Viewable()) << "the manager is to map it";
    desktop.SignalManager(SIGCONT);
    EXPECT_TRUE(Soon([&] { return host.Viewable() && Place().showCmd == PlaceCode::Maximised; }));
}

TEST_P(ManagedHost, MinimisedComesBackMinimised) {
    ShowHost();
    host.Minimise();
    ASSERT_TRUE(Soon([&] { return Place().showCmd == PlaceCode::Minimised; }));
    windows.ShowWindow(host.Id(), ShowCommand::Hide);
    ASSERT_TRUE(Soon([&] { return !XSession().HasProperty(host.Id(), "_NET_WM_DESKTOP"); }));
    windows.ShowWindow(host.Id(), ShowCommand::Show);
    EXPECT_TRUE(Soon([&] { return Place().showCmd == PlaceCode::Minimised; }));
    EXPECT_FALSE(host.Viewable());
}

INSTANTIATE_TEST_SUITE_P(Screens, ManagedHost, ::testing::Values(true),
                         [](const auto&) { return "Managed"; });

TEST(IconPictures, EndWhereTheyAreNotWellFormed) {
    EXPECT_THAT(ReadIconPictures({}), IsEmpty());
    EXPECT_THAT(ReadIconPictures({2, 2, 1, 1, 1}), IsEmpty());
    EXPECT_THAT(ReadIconPictures({0, 0, 1}), IsEmpty());
    EXPECT_THAT(ReadIconPictures({1, 1, 9, 0xFFFFFFFF, 0xFFFFFFFF, 1}), SizeIs(1));
}

} // namespace
} // namespace qbrpt
