// Work that may never end, waited for no longer than it is worth.
#pragma once

#include <chrono>
#include <functional>

namespace qbrpt {

/// Runs `work` on a thread of its own and waits for it, but not longer than `limit`. False when it was given
/// up: it may go on running, so that all it touches must be its own. `work` throws nothing.
[[nodiscard]] bool RunWithin(std::chrono::milliseconds limit, std::function<void()> work);

} // namespace qbrpt
