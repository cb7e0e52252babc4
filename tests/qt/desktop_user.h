// A user before a real screen.
#pragma once

#include "adapters/window/x_session.h"
#include "tools/x_desktop.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace qbrpt::test {

inline bool Waits(const std::function<bool()>& holds) {
    constexpr int milliseconds = 10000;
    return QTest::qWaitFor(holds, milliseconds);
}

/// Types, clicks and moves as a user does.
inline void User(std::vector<std::string> does) {
    does.insert(does.begin(), "xdotool");
    EXPECT_EQ(RunProgram(std::move(does)).status, 0);
}

/// Of the window that has the keyboard. The window manager takes this key for itself, and goes by the window
/// that it holds for the active one: it knows that a moment later than the window.
inline void UserClosesWindow() {
    EXPECT_TRUE(Waits([] {
        const XSession session;
        const QWidget* window = QApplication::activeWindow();
        return window != nullptr &&
               session.Number(session.Root(), "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW) == window->winId();
    }));
    User({"key", "alt+F4"});
}

/// Clicks on the middle of a widget, or on a place in it.
inline void UserClicks(const QWidget& widget, QPoint place = {}) {
    if (place.isNull()) place = widget.rect().center();
    const QPoint at = widget.mapToGlobal(place) * widget.devicePixelRatio();
    User({"mousemove", "--sync", std::to_string(at.x()), std::to_string(at.y()), "click", "1"});
}

} // namespace qbrpt::test
