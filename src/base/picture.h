// A raster picture.
#pragma once

#include <cstdint>
#include <vector>

namespace qbrpt {

/// Pixels as red, green, blue, alpha; rows from the top.
struct Picture {
    std::int32_t width = 0;  ///< pixels
    std::int32_t height = 0; ///< pixels
    std::vector<std::uint8_t> rgba;
};

} // namespace qbrpt
