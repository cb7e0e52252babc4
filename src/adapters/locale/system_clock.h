// The clock of the machine.
#pragma once

#include "base/ref.h"
#include "platform/desktop.h"

namespace qbrpt {

/// The local time of the machine, to the millisecond.
[[nodiscard]] Ref<Clock> MakeSystemClock();

} // namespace qbrpt
