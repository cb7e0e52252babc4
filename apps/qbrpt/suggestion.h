// "Did you mean ...?"
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::cli {

/// The name that differs least from `typed`, upper and lower case alike; empty when none comes near.
[[nodiscard]] std::string NearestName(std::string_view typed, const std::vector<std::string>& names);

} // namespace qbrpt::cli
