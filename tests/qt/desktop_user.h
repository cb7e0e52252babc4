// A user before a real screen.
#pragma once

#include "tools/x_desktop.h"

#include <QtTest/QTest>
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

/// Clicks on the middle of a widget, or on a place in it.
inline void UserClicks(const QWidget& widget, QPoint place = {}) {
    if (place.isNull()) place = widget.rect().center();
    const QPoint at = widget.mapToGlobal(place) * widget.devicePixelRatio();
    User({"mousemove", "--sync", std::to_string(at.x()), std::to_string(at.y()), "click", "1"});
}

} // namespace qbrpt::test
