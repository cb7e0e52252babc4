#include "support/mirroring.h"

#include "base/latin.h"
#include "platform/platform.h"
#include "support/error_trap.h"
#include "support/words.h"

#include <algorithm>
#include <optional>
#include <string>

namespace qbrpt {

namespace {

using namespace WindowStyle;

struct Bits {
    std::uint32_t clear = 0;
    std::uint32_t set = 0;
    [[nodiscard]] bool Any() const { return (clear | set) != 0; }
};

/// What the windows of some classes become.
struct ClassRule {
    std::initializer_list<std::string_view> words;
    Bits style;
    Bits extended;
};

constexpr std::string_view ToolbarClass = "msvb_lib_toolbar";
constexpr std::uint32_t RightAndReading = WS_EX_RIGHT | WS_EX_RTLREADING;
constexpr std::uint32_t TextAtLeft = BS_LEFTTEXT | BS_RIGHT;

// The first rule that a class name fits decides, so the order counts.
const ClassRule* RuleOf(std::string_view sClass) {
    static const ClassRule rules[] = {
        {{"ListView", ToolbarClass, "StatusBar", "ProgressBar", "Slider", "TreeView", "msvb_lib_header"},
         {},
         {0, WS_EX_LAYOUTRTL}},
        {{"ThunderPicture"}, {TextAtLeft, 0}, {0, RightAndReading}},
        {{"ThunderForm", "ThunderMDIForm"}, {}, {WS_EX_LAYOUTRTL, RightAndReading}},
        {{"ComboBox"}, {}, {}},
        {{"ListBox", "TextBox", "Edit"}, {}, {WS_EX_LAYOUTRTL, RightAndReading | WS_EX_LEFTSCROLLBAR}},
        {{"CheckBox", "OptionButton"}, {0, TextAtLeft}, {0, WS_EX_RTLREADING}},
        {{"STATIC"}, {0, StaticText}, {0, RightAndReading}},
    };
    static const ClassRule others = {{}, {}, {0, RightAndReading}};
    for (const ClassRule& rule : rules) {
        if (ClassInList(sClass, rule.words) != 0) return &rule;
    }
    return &others;
}

void Change(WindowHandle hWnd, int index, Bits bits) {
    WindowTree& tree = *Platform::Current().tree;
    tree.SetWindowLong(hWnd, index, (tree.GetWindowLong(hWnd, index) & ~bits.clear) | bits.set);
}

void MirrorByClass(WindowHandle hWnd, const std::string& sClass, bool bKeepToolbar) {
    const ClassRule& rule = *RuleOf(sClass);
    const bool isToolbar = ClassInList(sClass, {ToolbarClass}) != 0;
    if (isToolbar && sClass.size() == ToolbarClass.size() && bKeepToolbar) return;
    if (rule.style.Any()) ChangeStyle(hWnd, rule.style.clear, rule.style.set);
    if (rule.extended.Any()) ChangeExStyle(hWnd, rule.extended.clear, rule.extended.set);
    // A mirrored tool bar would lay itself out anew on the wrong side.
    if (isToolbar) ChangeStyle(hWnd, 0, CCS_NORESIZE);
}

void MirrorChildren(WindowHandle hWnd, bool bMirrorWhole, bool bKeepToolbar) {
    WindowTree& tree = *Platform::Current().tree;
    WindowHandle child = tree.GetWindow(hWnd, WindowRelation::Child);
    if (child != 0) child = tree.GetWindow(child, WindowRelation::First);
    for (; child != 0; child = tree.GetWindow(child, WindowRelation::Next))
        MirrorWindow(child, bMirrorWhole, bKeepToolbar);
}

} // namespace

std::int32_t ClassInList(std::string_view sClass, std::initializer_list<std::string_view> words) {
    for (const std::string_view word : words) {
        const auto at = std::search(sClass.begin(), sClass.end(), word.begin(), word.end(),
                                    [](char a, char b) { return SameAnyCase(a, b); });
        if (at != sClass.end()) return static_cast<std::int32_t>(at - sClass.begin()) + 1;
    }
    return 0;
}

void ChangeStyle(WindowHandle hWnd, std::uint32_t nClear, std::uint32_t nSet) {
    Change(hWnd, WindowLong::Style, {nClear, nSet});
}

void ChangeExStyle(WindowHandle hWnd, std::uint32_t nClear, std::uint32_t nSet) {
    Change(hWnd, WindowLong::ExtendedStyle, {nClear, nSet});
}

void MirrorWindow(WindowHandle hWnd, bool bMirrorWhole, bool bKeepToolbar) {
    ErrorTrap trap(ErrorTrap::SilentGoOn);
    if (bMirrorWhole) {
        trap.Step([&] { ChangeExStyle(hWnd, RightAndReading, WS_EX_LAYOUTRTL | WS_EX_NOINHERITLAYOUT); });
        return;
    }
    std::optional<std::string> sClass;
    trap.Step([&] { sClass = Platform::Current().tree->GetClassName(hWnd); });
    if (sClass) trap.Step([&] { MirrorByClass(hWnd, TrimAtNul(*sClass), bKeepToolbar); });
    std::uint32_t style = 0;
    trap.Step([&] { style = Platform::Current().tree->GetWindowLong(hWnd, WindowLong::Style); });
    if ((style & WS_CAPTION) != 0) MirrorMenu(hWnd, true);
    trap.Step([&] { MirrorChildren(hWnd, bMirrorWhole, bKeepToolbar); });
    trap.Step([&] { Platform::Current().tree->InvalidateRect(hWnd); });
}

void MirrorMenu(WindowHandle hWnd, bool bRightToLeft) {
    ErrorTrap trap(ErrorTrap::SilentLeave);
    trap.Step([&] {
        WindowTree& tree = *Platform::Current().tree;
        constexpr std::uint32_t turned = MFT_RIGHTORDER | MFT_RIGHTJUSTIFY;
        const bool turnsByItself = tree.LibraryLoads("vbame");
        if (turnsByItself && bRightToLeft) return;
        const MenuHandle menu = tree.GetMenu(hWnd);
        if (menu == 0) return;
        const std::int32_t count = tree.GetMenuItemCount(menu);
        for (std::int32_t position = 0; position < count; ++position) {
            const std::size_t length = tree.GetMenuItemInfo(menu, position, 0).length;
            MenuItemInfo item = tree.GetMenuItemInfo(menu, position, length + 1);
            item.text = TrimAtNul(item.text);
            item.type = bRightToLeft ? item.type | turned : item.type & ~turned;
            tree.SetMenuItemInfo(menu, position, item);
        }
        tree.DrawMenuBar(hWnd);
    });
}

void UnmirrorWindow(WindowHandle hWnd) {
    ErrorTrap trap(ErrorTrap::SilentGoOn);
    trap.Step([&] { ChangeExStyle(hWnd, WS_EX_LAYOUTRTL | RightAndReading, 0); });
    MirrorMenu(hWnd, false);
    std::vector<WindowHandle> below;
    trap.Step([&] { below = Platform::Current().tree->EnumChildWindows(hWnd); });
    for (const WindowHandle window : below)
        UnmirrorWindow(window);
}

} // namespace qbrpt
