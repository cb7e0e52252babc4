// The shapes that dialog controls are painted from.
#pragma once

#include <QtGui/QColor>
#include <QtGui/QPainter>

#include <cstdint>

namespace qbrpt::qt {

namespace DialogMeasure {
constexpr int Padding = 14; ///< of a window
constexpr int LabelGap = 8;
constexpr int BlockGap = 14;
constexpr int FrameInner = 12;
constexpr int Field = 26;
constexpr int Button = 28;
constexpr int ButtonWidth = 86; ///< at least
constexpr int ListHead = 26;
constexpr int ListRow = 24;
constexpr int FieldPadding = 7;
constexpr int DropButton = 22; ///< the arrow's part of a field that drops down
constexpr int ToggleMark = 16;
constexpr qreal Radius = 3.5;
} // namespace DialogMeasure

namespace DialogColor {
constexpr QRgb Border = 0xFF9AA4AB;
constexpr QRgb FaintBorder = 0xFFC4CBCF;
constexpr QRgb Accent = 0xFF0B3F4F;
constexpr QRgb Field = 0xFFFFFFFF;
constexpr QRgb ReadOnly = 0xFFE6EAEC;
constexpr QRgb Hot = 0xFFE6ECEF;
constexpr QRgb Down = 0xFFD5E0E4;
constexpr QRgb Ink = 0xFF14191D;
constexpr QRgb Faint = 0xFF8D969D;
constexpr QRgb Chosen = 0xFF1C6680;
constexpr QRgb Pane = 0xFFFBFCFC;
constexpr QRgb TabBehind = 0xFFE6EAEC;
constexpr QRgb Line = 0xFFDDE2E5;
constexpr QRgb NoGround = 0;
} // namespace DialogColor

enum class Edge : std::uint8_t { Plain, Faint, Strong };

/// The box of a field or button: a rounded border, 2 wide where it is strong.
void PaintBox(QPainter& painter, const QRect& box, QRgb ground, Edge edge);

enum class Arrow : std::uint8_t { Up, Down, Left, Right };
void PaintArrow(QPainter& painter, const QPointF& middle, Arrow arrow, QRgb color);
void PaintTick(QPainter& painter, const QRect& box, QRgb color);

} // namespace qbrpt::qt
