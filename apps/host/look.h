// How the café's windows look.
#pragma once

#include <QtGui/QIcon>

#include <cstdint>

class QApplication;

namespace cafe {

constexpr int WindowPadding = 14;
constexpr int BlockGap = 14;
constexpr int LabelGap = 8;

/// Right to left, with the house's fonts and colours.
void SetLook(QApplication& application);

/// A cup.
[[nodiscard]] QIcon CafeIcon();
/// A sheet of a calendar.
[[nodiscard]] QIcon CalendarIcon();
enum class Chevron : std::uint8_t { Left, Right };
[[nodiscard]] QIcon ChevronIcon(Chevron side);

} // namespace cafe
