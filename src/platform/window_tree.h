// The window tree: classes, styles, relations and menu bars, as mirroring and placement walk them.
#pragma once

#include "platform/desktop.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace qbrpt {

/// 32-bit handle of a menu bar; 0 is none.
using MenuHandle = std::uint32_t;

/// What GetWindow looks for.
enum class WindowRelation : std::uint8_t { First = 0, Next = 2, Owner = 4, Child = 5 };

/// Indexes of the words that a window keeps.
namespace WindowLong {
constexpr int Owner = -8;
constexpr int Style = -16;
constexpr int ExtendedStyle = -20;
} // namespace WindowLong

/// One item of a menu bar.
struct MenuItemInfo {
    std::uint32_t type = 0; ///< bits of WindowStyle's MFT_ names
    std::string text;       ///< what fits the length that was asked for; may hold NULs behind its end
    std::size_t length = 0; ///< of the whole text, in bytes
};

class WindowTree : public Port {
public:
    /// At most 260 characters; empty where the class cannot be read.
    [[nodiscard]] std::optional<std::string> GetClassName(WindowHandle window);
    [[nodiscard]] WindowHandle GetWindow(WindowHandle window, WindowRelation relation);
    /// All descendants, not only the children.
    [[nodiscard]] std::vector<WindowHandle> EnumChildWindows(WindowHandle window);
    [[nodiscard]] std::uint32_t GetWindowLong(WindowHandle window, int index);
    void SetWindowLong(WindowHandle window, int index, std::uint32_t value);
    /// Has the window painted anew.
    void InvalidateRect(WindowHandle window);

    /// 0 for a window without a menu bar.
    [[nodiscard]] MenuHandle GetMenu(WindowHandle window);
    [[nodiscard]] std::int32_t GetMenuItemCount(MenuHandle menu);
    /// Item `position` from 0, with at most `length` bytes of its text.
    [[nodiscard]] MenuItemInfo GetMenuItemInfo(MenuHandle menu, std::int32_t position, std::size_t length);
    void SetMenuItemInfo(MenuHandle menu, std::int32_t position, const MenuItemInfo& item);
    void DrawMenuBar(WindowHandle window);

    /// Whether the library `name` can be loaded; it is freed at once.
    [[nodiscard]] bool LibraryLoads(const std::string& name);

private:
    virtual std::optional<std::string> DoGetClassName(WindowHandle window) = 0;
    virtual WindowHandle DoGetWindow(WindowHandle window, WindowRelation relation) = 0;
    virtual std::vector<WindowHandle> DoEnumChildWindows(WindowHandle window) = 0;
    virtual std::uint32_t DoGetWindowLong(WindowHandle window, int index) = 0;
    virtual void DoSetWindowLong(WindowHandle window, int index, std::uint32_t value) = 0;
    virtual void DoInvalidateRect(WindowHandle window) = 0;
    virtual MenuHandle DoGetMenu(WindowHandle window) = 0;
    virtual std::int32_t DoGetMenuItemCount(MenuHandle menu) = 0;
    virtual MenuItemInfo DoGetMenuItemInfo(MenuHandle menu, std::int32_t position, std::size_t length) = 0;
    virtual void DoSetMenuItemInfo(MenuHandle menu, std::int32_t position, const MenuItemInfo& item) = 0;
    virtual void DoDrawMenuBar(WindowHandle window) = 0;
    virtual bool DoLibraryLoads(const std::string& name) = 0;
};

} // namespace qbrpt
