// What the component asks about the machine it runs on.
#pragma once

#include <cstdint>

namespace qbrpt {

/// Number of printers installed; FailureNumber::Overflow above 32767.
[[nodiscard]] std::int16_t PrinterCount();

/// Remembers the window in front, or its owner one level up, as `hOwnerWnd`.
void FindOwnerWindow();

} // namespace qbrpt
