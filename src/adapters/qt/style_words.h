// What the style words of a window mean to its widget.
#pragma once

#include <QtWidgets/QWidget>

#include <cstdint>

namespace qbrpt::qt {

/// The bits of style words that a widget can follow, by the names of the window system they come from.
namespace StyleBit {
constexpr std::uint32_t Caption = 0xC00000; ///< a title bar
constexpr std::uint32_t Child = 0x40000000;
constexpr std::uint32_t Visible = 0x10000000;
constexpr std::uint32_t ButtonAtRight = 0x20;  ///< of a check box: its box stands behind its text
constexpr std::uint32_t Right = 0x1000;        ///< extended: text at the right
constexpr std::uint32_t RightReading = 0x2000; ///< extended: text is read from the right
constexpr std::uint32_t LeftScrollBar = 0x4000;
constexpr std::uint32_t RightLayout = 0x400000; ///< extended: the whole window is mirrored
constexpr std::uint32_t MenuFromRight = 0x6000; ///< of a menu bar's item: its order and its place
} // namespace StyleBit

/// Gives a widget the direction, alignment and scroll bar side that its style words ask for.
void ApplyStyles(QWidget& widget, std::uint32_t style, std::uint32_t extendedStyle);

} // namespace qbrpt::qt
