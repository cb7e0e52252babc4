// What the system says about a failed call, with what a user can do about it.
#pragma once

#include <string>

namespace qbrpt {

/// A sentence or two for an `errno` value; English, ends with a full stop.
[[nodiscard]] std::string SystemWords(int error);

} // namespace qbrpt
