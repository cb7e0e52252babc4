// The classes by which mirroring tells windows apart.
#pragma once

#include "platform/forms.h"

#include <cstdint>

namespace qbrpt::qt {

constexpr const char* FormClass = "ThunderForm";

struct WindowClass {
    const char* name;
    std::uint32_t style;         ///< beside what all controls have
    std::uint32_t extendedStyle; ///< that it is built with
};

/// Of a control. Where its form is designed right to left it is built so, if its kind can be.
[[nodiscard]] WindowClass ClassOf(ControlKind kind, bool designedRightToLeft);

} // namespace qbrpt::qt
