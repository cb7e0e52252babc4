// The Qt application that windows need: the host's, or one of our own.
#pragma once

#include <string>

namespace qbrpt::qt {

/// Whether a display answers. Makes no application, and loads nothing.
[[nodiscard]] bool DisplayIsThere();

/// Sees to it that there is an application that widgets can live in. A host's own is left as it is. Raises a
/// Failure (Device) where there can be none; Qt itself would end the process.
void RequireApplication();

/// Whether there is an application already.
[[nodiscard]] bool ApplicationIsThere();

/// Why there can be no windows here; empty when there can.
[[nodiscard]] std::string WhyNoWindows();

} // namespace qbrpt::qt
