#include "platform/window_tree.h"

namespace qbrpt {

namespace {

constexpr std::string_view PortName = "WindowTree";

} // namespace

std::optional<std::string> WindowTree::GetClassName(WindowHandle window) {
    Announce(PortName, "GetClassName", {Number(window)});
    return DoGetClassName(window);
}

WindowHandle WindowTree::GetWindow(WindowHandle window, WindowRelation relation) {
    Announce(PortName, "GetWindow", {Number(window), Number(relation)});
    return DoGetWindow(window, relation);
}

std::vector<WindowHandle> WindowTree::EnumChildWindows(WindowHandle window) {
    Announce(PortName, "EnumChildWindows", {Number(window)});
    return DoEnumChildWindows(window);
}

std::uint32_t WindowTree::GetWindowLong(WindowHandle window, int index) {
    Announce(PortName, "GetWindowLong", {Number(window), Number(index)});
    return DoGetWindowLong(window, index);
}

void WindowTree::SetWindowLong(WindowHandle window, int index, std::uint32_t value) {
    Announce(PortName, "SetWindowLong", {Number(window), Number(index), Number(value)});
    DoSetWindowLong(window, index, value);
}

void WindowTree::InvalidateRect(WindowHandle window) {
    Announce(PortName, "InvalidateRect", {Number(window)});
    DoInvalidateRect(window);
}

MenuHandle WindowTree::GetMenu(WindowHandle window) {
    Announce(PortName, "GetMenu", {Number(window)});
    return DoGetMenu(window);
}

std::int32_t WindowTree::GetMenuItemCount(MenuHandle menu) {
    Announce(PortName, "GetMenuItemCount", {Number(menu)});
    return DoGetMenuItemCount(menu);
}

MenuItemInfo WindowTree::GetMenuItemInfo(MenuHandle menu, std::int32_t position, std::size_t length) {
    Announce(PortName, "GetMenuItemInfo", {Number(menu), Number(position), Number(length)});
    return DoGetMenuItemInfo(menu, position, length);
}

void WindowTree::SetMenuItemInfo(MenuHandle menu, std::int32_t position, const MenuItemInfo& item) {
    Announce(PortName, "SetMenuItemInfo", {Number(menu), Number(position), Number(item.type), item.text});
    DoSetMenuItemInfo(menu, position, item);
}

void WindowTree::DrawMenuBar(WindowHandle window) {
    Announce(PortName, "DrawMenuBar", {Number(window)});
    DoDrawMenuBar(window);
}

bool WindowTree::LibraryLoads(const std::string& name) {
    Announce(PortName, "LibraryLoads", {name});
    return DoLibraryLoads(name);
}

} // namespace qbrpt
