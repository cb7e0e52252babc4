// The one key filter of all number boxes.
#pragma once

#include "platform/controls.h"

#include <cstdint>

namespace qbrpt {

/// Stands for "no maximum" and "no minimum" in the limits of a number box.
constexpr double NoMaximum = -1e20;
constexpr double NoMinimum = 1e20;

/// Judges a key pressed in `txt`: returns the character code to hand on to the box, 0 for a key that is
/// dropped. Only digits, one ".", backspace and enter pass; a digit only where the number that the box
/// would then hold keeps within the limits. What is no digit beeps, what breaks a limit is dropped in
/// silence. Changes nothing in the box; reports no failure (a box that cannot be read drops the key).
[[nodiscard]] std::int16_t FilterNumericKey(const TextBox& txt, std::int16_t nKey, double dMax, double dMin);

} // namespace qbrpt
