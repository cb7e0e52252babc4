// Right-to-left styles by class, over trees of windows.
#include "fakes/call_log.h"
#include "fakes/fake_platform.h"
#include "support/mirroring.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace qbrpt {
namespace {

using fakes::TreeWindow;
using ::testing::ElementsAre;

struct ClassRow {
    const char* name;
    std::string className;
    std::uint32_t style = 0;    ///< what becomes of a style of 0
    std::uint32_t extended = 0; ///< what becomes of an extended style of 0
    std::uint32_t kept = 0;     ///< what becomes of a style with every bit but the caption's
    std::uint32_t keptExtended = 0xFFFFFFFF;
};

constexpr std::uint32_t All = 0xFFFFFFFF & ~WindowStyle::WS_CAPTION;

class Classes : public ::testing::TestWithParam<ClassRow> {
protected:
    fakes::FakePlatform platform;
};

TEST_P(Classes, GetTheirStyles) {
    platform.tree->windows[1] = {.className = GetParam().className};
    platform.tree->windows[2] = {.className = GetParam().className, .style = All, .extended = 0xFFFFFFFF};
    MirrorWindow(1, false, false);
    MirrorWindow(2, false, false);
    EXPECT_EQ(platform.tree->windows[1].style, GetParam().style);
    EXPECT_EQ(platform.tree->windows[1].extended, GetParam().extended);
    EXPECT_EQ(platform.tree->windows[2].style, GetParam().kept);
    EXPECT_EQ(platform.tree->windows[2].extended, GetParam().keptExtended);
    EXPECT_EQ(platform.tree->windows[1].invalidated, 1);
}

constexpr std::uint32_t NoLayout = 0xFFFFFFFF & ~0x400000U;

INSTANTIATE_TEST_SUITE_P(
    Rows, Classes,
    ::testing::Values(ClassRow{"ListView", "ListView20WndClass", 0, 0x400000, All},
                      ClassRow{"Toolbar", "msvb_lib_toolbar", 4, 0x400000, All},
                      ClassRow{"ToolbarInside", "a MSVB_LIB_TOOLBAR b", 4, 0x400000, All},
                      ClassRow{"StatusBar", "StatusBar20WndClass", 0, 0x400000, All},
                      ClassRow{"ProgressBar", "ProgressBar20", 0, 0x400000, All},
                      ClassRow{"Slider", "Slider20", 0, 0x400000, All},
                      ClassRow{"TreeView", "treeview20", 0, 0x400000, All},
                      ClassRow{"Header", "msvb_lib_header", 0, 0x400000, All},
                      ClassRow{"Picture", "ThunderRT6PictureBoxDC ThunderPicture", 0, 0x3000, All & ~0x220U},
                      ClassRow{"Form", "ThunderFormDC", 0, 0x3000, All, NoLayout},
                      ClassRow{"MdiForm", "ThunderMDIForm", 0, 0x3000, All, NoLayout},
                      ClassRow{"ComboBox", "ThunderComboBox", 0, 0, All},
                      ClassRow{"ComboBoxInside", "my combobox edit", 0, 0, All},
                      ClassRow{"ListBox", "ThunderListBox", 0, 0x7000, All, NoLayout},
                      ClassRow{"TextBox", "ThunderTextBox", 0, 0x7000, All, NoLayout},
                      ClassRow{"Edit", "Edit", 0, 0x7000, All, NoLayout},
                      ClassRow{"CheckBox", "ThunderCheckBox", 0x220, 0x2000, All},
                      ClassRow{"OptionButton", "ThunderOptionButton", 0x220, 0x2000, All},
                      ClassRow{"StaticInAnyCase", "Static", 0x400, 0x3000, All},
                      ClassRow{"AnyOther", "CRViewer", 0, 0x3000, All},
                      ClassRow{"FirstHitDecides", "ListViewEdit", 0, 0x400000, All},
                      ClassRow{"CutAtItsEnd", std::string("Edit\0ListView", 13), 0, 0x7000, All, NoLayout}),
    [](const auto& row) { return row.param.name; });

class Mirroring : public ::testing::Test {
protected:
    Mirroring() {
        Tree()[1] = {.className = "ThunderFormDC", .style = WindowStyle::WS_CAPTION, .children = {2, 3, 4}};
        Tree()[2] = {.className = "msvb_lib_toolbar", .children = {5}};
        Tree()[3] = {.className = std::nullopt, .children = {6}};
        Tree()[4] = {.className = "Edit"};
        Tree()[5] = {.className = "STATIC"};
        Tree()[6] = {.className = "CheckBox"};
        Tree()[1].menu = {{0x1, "&ملف", 0}, {0x6010, "عرض", 0}};
    }
    std::map<WindowHandle, TreeWindow>& Tree() { return platform.tree->windows; }
    std::vector<std::uint32_t> MenuTypes() { return {Tree()[1].menu[0].type, Tree()[1].menu[1].type}; }
    fakes::FakePlatform platform;
};

TEST_F(Mirroring, WalksTheWholeTreeInItsOrder) {
    MirrorWindow(1, false, false);
    EXPECT_THAT(platform.tree->visited, ElementsAre(1, 2, 5, 3, 6, 4));
    EXPECT_EQ(Tree()[5].style, 0x400U);
    EXPECT_EQ(Tree()[6].style, 0x220U);
    EXPECT_EQ(Tree()[4].extended, 0x7000U);
}

TEST_F(Mirroring, AWindowOfUnknownClassKeepsItsStylesAndIsWalked) {
    MirrorWindow(1, false, false);
    EXPECT_EQ(Tree()[3].extended, 0U);
    EXPECT_EQ(Tree()[6].extended, 0x2000U);
    EXPECT_EQ(Tree()[3].invalidated, 1);
}

TEST_F(Mirroring, AKeptToolbarKeepsItsStylesButNotItsChildrens) {
    MirrorWindow(1, false, true);
    EXPECT_EQ(Tree()[2].extended, 0U);
    EXPECT_EQ(Tree()[2].style, 0U);
    EXPECT_EQ(Tree()[5].style, 0x400U);
}

TEST_F(Mirroring, OnlyAToolbarOfJustThatClassIsKept) {
    Tree()[2].className = "msvb_lib_toolbar2";
    MirrorWindow(1, false, true);
    EXPECT_EQ(Tree()[2].extended, 0x400000U);
    EXPECT_EQ(Tree()[2].style, 4U);
}

TEST_F(Mirroring, AToolbarIsKeptHoweverItsClassIsWritten) {
    Tree()[2].className = "MSVB_Lib_Toolbar";
    MirrorWindow(1, false, true);
    EXPECT_EQ(Tree()[2].extended, 0U);
    EXPECT_EQ(Tree()[2].style, 0U);
}

struct OrderRow {
    const char* name;
    const char* className;
    std::vector<std::string> changes;
};

class StyleOrder : public Mirroring, public ::testing::WithParamInterface<OrderRow> {};

TEST_P(StyleOrder, IsThatOfTheTable) {
    Tree()[4] = {.className = GetParam().className, .style = 0x220};
    const auto log = std::make_shared<fakes::CallLog>();
    fakes::FakePlatform::Observe(log);
    MirrorWindow(4, false, false);
    EXPECT_EQ(log->LinesOf({"WindowTree.SetWindowLong"}), GetParam().changes);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, StyleOrder,
    ::testing::Values(
        OrderRow{"StyleFirst",
                 "ThunderPicture",
                 {"WindowTree.SetWindowLong(4, -16, 0)", "WindowTree.SetWindowLong(4, -20, 12288)"}},
        OrderRow{"OfAToolbarTheExtendedStyleFirst",
                 "msvb_lib_toolbar",
                 {"WindowTree.SetWindowLong(4, -20, 4194304)", "WindowTree.SetWindowLong(4, -16, 548)"}},
        OrderRow{"OneAlone", "Edit", {"WindowTree.SetWindowLong(4, -20, 28672)"}},
        OrderRow{"None", "ComboBox", {}}),
    [](const auto& row) { return row.param.name; });

TEST_F(Mirroring, TurnedWholeAWindowPassesNothingOn) {
    Tree()[1].extended = 0x3000;
    MirrorWindow(1, true, false);
    EXPECT_EQ(Tree()[1].extended, 0x500000U);
    EXPECT_TRUE(platform.tree->visited.empty());
    EXPECT_EQ(Tree()[5].style, 0U);
    EXPECT_EQ(Tree()[1].invalidated, 0);
}

TEST_F(Mirroring, TheTopOfAMenuIsTurned) {
    MirrorWindow(1, false, false);
    EXPECT_THAT(MenuTypes(), ElementsAre(0x6001, 0x6010));
    EXPECT_EQ(Tree()[1].menu[0].text, "&ملف");
    EXPECT_EQ(Tree()[1].menuDrawn, 1);
}

TEST_F(Mirroring, AnyBitOfACaptionTurnsTheMenu) {
    for (const std::uint32_t bit : {0x400000U, 0x800000U}) {
        Tree()[1].style = bit;
        Tree()[1].menu[0].type = 0x1;
        MirrorWindow(1, false, false);
        EXPECT_EQ(Tree()[1].menu[0].type, 0x6001U) << bit;
    }
}

TEST_F(Mirroring, WithoutACaptionAWindowsMenuStays) {
    Tree()[1].style = 0;
    MirrorWindow(1, false, false);
    EXPECT_THAT(MenuTypes(), ElementsAre(0x1, 0x6010));
}

TEST_F(Mirroring, MenusThatTurnByThemselvesAreOnlyTurnedBack) {
    platform.tree->arabicEditingLibrary = true;
    MirrorMenu(1, true);
    EXPECT_THAT(MenuTypes(), ElementsAre(0x1, 0x6010));
    MirrorMenu(1, false);
    EXPECT_THAT(MenuTypes(), ElementsAre(0x1, 0x10));
}

TEST_F(Mirroring, AWindowWithoutAMenuHasNoneToTurn) {
    Tree()[1].menu.clear();
    MirrorMenu(1, true);
    EXPECT_EQ(Tree()[1].menuDrawn, 0);
}

TEST_F(Mirroring, IsUndoneInTheWholeTree) {
    for (auto& [handle, window] : Tree())
        window.extended = 0x507000;
    UnmirrorWindow(1);
    for (const auto& [handle, window] : Tree())
        EXPECT_EQ(window.extended, 0x104000U) << handle;
    EXPECT_THAT(MenuTypes(), ElementsAre(0x1, 0x10));
}

TEST_F(Mirroring, PassesFailuresOver) {
    class Broken final : public PortObserver {
        void Called(const PortCall& call) override {
            if (call.operation == "SetWindowLong") throw Failure(FailureNumber::Device, "broken");
        }
    };
    fakes::FakePlatform::Observe(std::make_shared<Broken>());
    MirrorWindow(1, false, false);
    UnmirrorWindow(1);
    EXPECT_THAT(platform.tree->visited, ElementsAre(1, 2, 5, 3, 6, 4));
    EXPECT_TRUE(platform.messages->boxes.empty());
}

TEST(ClassLists, TellWhereAWordBegins) {
    EXPECT_EQ(ClassInList("ThunderForm", {"Edit", "form"}), 8);
    EXPECT_EQ(ClassInList("Edit", {"Edit", "it"}), 1);
    EXPECT_EQ(ClassInList("Edit", {"ListBox"}), 0);
    EXPECT_EQ(ClassInList("", {"ListBox"}), 0);
}

} // namespace
} // namespace qbrpt
