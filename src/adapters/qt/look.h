// How the component's windows look, whatever the host's own look like.
#pragma once

#include <QtCore/QString>
#include <QtGui/QFont>
#include <QtGui/QPalette>

namespace qbrpt::qt {

namespace Measure {
constexpr int MenuRow = 26;
constexpr int MenuBar = 28;
constexpr int Strip = 40;
constexpr int Button = 32;
constexpr int Icon = 24;
constexpr int ButtonGap = 2;
constexpr int SeparatorHeight = 22;
constexpr int SeparatorGap = 6;
constexpr int BarMargin = 6;
/// A window that its user sizes is never smaller: its title's buttons have room, and so has a piece of a
/// page.
constexpr int LeastWidth = 320;
constexpr int LeastHeight = 240;
constexpr double DisabledIcon = 0.32; ///< opacity
} // namespace Measure

[[nodiscard]] QFont WindowFont();
[[nodiscard]] QPalette HousePalette();
/// For a window and all that stands in it, its menus too.
[[nodiscard]] QString HouseStyleSheet();

} // namespace qbrpt::qt
