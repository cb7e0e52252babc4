// The window tree over real widgets.
#pragma once

#include "adapters/qt/handles.h"
#include "base/ref.h"
#include "platform/window_tree.h"

#include <utility>

namespace qbrpt::qt {

/// Knows our own windows; of a host's it knows the owner. A changed style word takes effect at once. A menu
/// bar's handle is that of its window.
class QtTree final : public WindowTree {
public:
    explicit QtTree(Ref<Windows> windows) : mWindows(std::move(windows)) {}

private:
    std::optional<std::string> DoGetClassName(WindowHandle window) override;
    WindowHandle DoGetWindow(WindowHandle window, WindowRelation relation) override;
    std::vector<WindowHandle> DoEnumChildWindows(WindowHandle window) override;
    std::uint32_t DoGetWindowLong(WindowHandle window, int index) override;
    void DoSetWindowLong(WindowHandle window, int index, std::uint32_t value) override;
    void DoInvalidateRect(WindowHandle window) override;
    MenuHandle DoGetMenu(WindowHandle window) override;
    std::int32_t DoGetMenuItemCount(MenuHandle menu) override;
    MenuItemInfo DoGetMenuItemInfo(MenuHandle menu, std::int32_t position, std::size_t length) override;
    void DoSetMenuItemInfo(MenuHandle menu, std::int32_t position, const MenuItemInfo& item) override;
    void DoDrawMenuBar(WindowHandle window) override;
    bool DoLibraryLoads(const std::string& name) override;

    WindowHandle Sibling(WindowHandle window, WindowRelation relation) const;

    Ref<Windows> mWindows;
};

} // namespace qbrpt::qt
