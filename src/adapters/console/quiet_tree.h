// The window tree of a process that has no windows.
#pragma once

#include "platform/window_tree.h"

namespace qbrpt {

class QuietTree : public WindowTree {
    std::optional<std::string> DoGetClassName(WindowHandle) override { return std::nullopt; }
    WindowHandle DoGetWindow(WindowHandle, WindowRelation) override { return 0; }
    std::vector<WindowHandle> DoEnumChildWindows(WindowHandle) override { return {}; }
    std::uint32_t DoGetWindowLong(WindowHandle, int) override { return 0; }
    void DoSetWindowLong(WindowHandle, int, std::uint32_t) override {}
    void DoInvalidateRect(WindowHandle) override {}
    MenuHandle DoGetMenu(WindowHandle) override { return 0; }
    std::int32_t DoGetMenuItemCount(MenuHandle) override { return 0; }
    MenuItemInfo DoGetMenuItemInfo(MenuHandle, std::int32_t, std::size_t) override { return {}; }
    void DoSetMenuItemInfo(MenuHandle, std::int32_t, const MenuItemInfo&) override {}
    void DoDrawMenuBar(WindowHandle) override {}
    bool DoLibraryLoads(const std::string&) override { return false; }
};

} // namespace qbrpt
