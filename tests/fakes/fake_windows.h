// Windows, their tree and the store of values, all of a test's own making.
#pragma once

#include "platform/registry.h"
#include "platform/window_tree.h"
#include "platform/windows.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace qbrpt::fakes {

class FakeWindows final : public Windows {
public:
    WindowHandle foreground = 0;
    std::map<WindowHandle, WindowHandle> parents;
    std::vector<WindowHandle> asked; ///< windows whose parent was asked for
    std::map<WindowHandle, WindowPlace> places;
    std::map<WindowHandle, std::string> titles;
    std::map<WindowHandle, IconHandle> icons;
    std::map<WindowHandle, bool> hidden;
    std::int32_t openWindows = 1;
    std::vector<std::int32_t> sleeps; ///< milliseconds of each
    std::vector<std::string> log;     ///< what was done to windows, in order

private:
    static std::string Number(std::int64_t value) { return std::to_string(value); }
    void Note(const std::string& what, WindowHandle window) { log.push_back(what + " " + Number(window)); }

    WindowHandle DoGetForegroundWindow() override { return foreground; }
    WindowHandle DoGetParent(WindowHandle window) override {
        asked.push_back(window);
        const auto found = parents.find(window);
        return found == parents.end() ? 0 : found->second;
    }
    bool DoGetWindowPlacement(WindowHandle window, WindowPlace& place) override {
        const auto found = places.find(window);
        if (found == places.end()) return false;
        const std::int32_t length = place.length;
        place = found->second;
        place.length = length;
        return true;
    }
    IconHandle DoGetClassIcon(WindowHandle window) override { return icons[window]; }
    void DoSetIcon(WindowHandle window, IconSize size, IconHandle icon) override {
        Note("icon " + Number(static_cast<int>(size)) + " " + Number(icon), window);
    }
    std::size_t DoGetWindowTextLength(WindowHandle window) override { return titles[window].size(); }
    std::string DoGetWindowText(WindowHandle window, std::size_t size) override {
        return titles[window].substr(0, size - 1);
    }
    void DoShowWindow(WindowHandle window, ShowCommand command) override {
        Note(command == ShowCommand::Hide ? "hide" : "show", window);
        hidden[window] = command == ShowCommand::Hide;
    }
    void DoMoveWindow(WindowHandle window, std::int32_t left, std::int32_t top, std::int32_t width,
                      std::int32_t height) override {
        Note("move " + Number(left) + " " + Number(top) + " " + Number(width) + " " + Number(height), window);
    }
    void DoBringWindowToTop(WindowHandle window) override { Note("top", window); }
    void DoSetActiveWindow(WindowHandle window) override { Note("activate", window); }
    void DoSetFocus(WindowHandle window) override { Note("focus", window); }
    std::int32_t DoDoEvents() override { return openWindows; }
    void DoSleepEx(std::int32_t milliseconds) override { sleeps.push_back(milliseconds); }
};

struct TreeWindow {
    std::optional<std::string> className;
    std::uint32_t style = 0;
    std::uint32_t extended = 0;
    WindowHandle owner = 0;
    std::vector<WindowHandle> children{};
    std::vector<MenuItemInfo> menu{}; ///< empty: no menu bar
    int invalidated = 0;
    int menuDrawn = 0;
};

class FakeWindowTree final : public WindowTree {
public:
    std::map<WindowHandle, TreeWindow> windows;
    bool arabicEditingLibrary = false;
    std::vector<WindowHandle> visited; ///< windows whose class was asked for

private:
    std::optional<std::string> DoGetClassName(WindowHandle window) override {
        visited.push_back(window);
        return windows[window].className;
    }
    WindowHandle DoGetWindow(WindowHandle window, WindowRelation relation) override {
        if (relation == WindowRelation::Owner) return windows[window].owner;
        if (relation == WindowRelation::Child) {
            const auto& children = windows[window].children;
            return children.empty() ? 0 : children.back(); // not the first: siblings are walked from First
        }
        for (const auto& [parent, held] : windows) {
            const auto& children = held.children;
            const auto at = std::find(children.begin(), children.end(), window);
            if (at == children.end()) continue;
            if (relation == WindowRelation::First) return children.front();
            return at + 1 == children.end() ? 0 : *(at + 1);
        }
        return 0;
    }
    std::vector<WindowHandle> DoEnumChildWindows(WindowHandle window) override {
        std::vector<WindowHandle> all;
        for (const WindowHandle child : windows[window].children) {
            all.push_back(child);
            const auto below = DoEnumChildWindows(child);
            all.insert(all.end(), below.begin(), below.end());
        }
        return all;
    }
    std::uint32_t& LongOf(WindowHandle window, int index) {
        if (index == WindowLong::Style) return windows[window].style;
        if (index == WindowLong::Owner) return windows[window].owner;
        return windows[window].extended;
    }
    std::uint32_t DoGetWindowLong(WindowHandle window, int index) override { return LongOf(window, index); }
    void DoSetWindowLong(WindowHandle window, int index, std::uint32_t value) override {
        LongOf(window, index) = value;
    }
    void DoInvalidateRect(WindowHandle window) override { ++windows[window].invalidated; }
    MenuHandle DoGetMenu(WindowHandle window) override { return windows[window].menu.empty() ? 0 : window; }
    std::int32_t DoGetMenuItemCount(MenuHandle menu) override {
        return static_cast<std::int32_t>(windows[menu].menu.size());
    }
    MenuItemInfo DoGetMenuItemInfo(MenuHandle menu, std::int32_t position, std::size_t length) override {
        MenuItemInfo item = windows[menu].menu.at(static_cast<std::size_t>(position));
        item.length = item.text.size();
        item.text = item.text.substr(0, length);
        item.text.resize(length); // what is left of the buffer
        return item;
    }
    void DoSetMenuItemInfo(MenuHandle menu, std::int32_t position, const MenuItemInfo& item) override {
        windows[menu].menu.at(static_cast<std::size_t>(position)) = item;
    }
    void DoDrawMenuBar(WindowHandle window) override { ++windows[window].menuDrawn; }
    bool DoLibraryLoads(const std::string& name) override { return name == "vbame" && arabicEditingLibrary; }
};

class FakeRegistry final : public RegistryStore {
public:
    std::map<std::string, std::string> values; ///< by root, key and name, one blank between them
    bool writes = true;

    static std::string KeyOf(std::uint32_t root, const std::string& subKey, const std::string& name) {
        return std::to_string(root) + " " + subKey + " " + name;
    }

private:
    bool DoReadValue(std::uint32_t root, const std::string& subKey, const std::string& name,
                     std::vector<std::uint8_t>& data, int) override {
        const auto found = values.find(KeyOf(root, subKey, name));
        if (found == values.end()) return false;
        data.assign(found->second.begin(), found->second.end());
        return true;
    }
    bool DoWriteValue(std::uint32_t root, const std::string& subKey, const std::string& name,
                      const std::string& data, int) override {
        if (writes) values[KeyOf(root, subKey, name)] = data;
        return writes;
    }
};

} // namespace qbrpt::fakes
