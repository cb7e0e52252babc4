// Work that may never end, waited for no longer than it is worth.
#pragma once

#include <chrono>
#include <functional>
#include <future>

namespace qbrpt {

/// Runs `work` on a thread of its own, for which nobody has to wait: it may go on running when this process
/// ends, so that all it touches must be its own. `work` throws nothing.
[[nodiscard]] std::future<void> RunAside(std::function<void()> work);

/// Runs `work` on a thread of its own and waits for it, but not longer than `limit`. False when it was given
/// up and goes on aside.
[[nodiscard]] bool RunWithin(std::chrono::milliseconds limit, std::function<void()> work);

} // namespace qbrpt
