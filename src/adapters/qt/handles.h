// The handles of the component's own windows, and what each window keeps under its handle.
#pragma once

#include "platform/windows.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace qbrpt::qt {

/// No window of an X server has such a number, so that a host's windows and our own never meet.
constexpr WindowHandle FirstHandle = 0x40000000;

/// A window in the tree: a form, or a control in one.
struct TreeWindow {
    QPointer<QWidget> widget;
    std::string className;
    WindowHandle parent = 0;
    std::vector<WindowHandle> children; ///< in the order of the form's table
    std::uint32_t style = 0;
    std::uint32_t extendedStyle = 0;
    std::vector<std::uint32_t> menuItemTypes; ///< of its menu bar, by position
};

class Handles {
public:
    /// The table of the process.
    static Handles& Table();

    /// Adds `widget`, by the class that mirroring knows it by. Parents come before what stands in them.
    WindowHandle Add(QWidget& widget, std::string className, std::uint32_t style, WindowHandle parent = 0);
    /// Forgets a window and all below it.
    void Remove(WindowHandle window);

    /// Null for a handle that is none of ours, or no more.
    [[nodiscard]] TreeWindow* Find(WindowHandle window);
    [[nodiscard]] WindowHandle HandleOf(const QWidget* widget) const;
    /// The windows that stand in no other.
    [[nodiscard]] std::vector<WindowHandle> Tops() const;

private:
    std::map<WindowHandle, TreeWindow> mWindows;
    WindowHandle mNext = FirstHandle;
};

} // namespace qbrpt::qt
