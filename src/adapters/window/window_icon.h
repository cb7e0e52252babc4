// The icon of a window of the desktop.
#pragma once

#include "platform/windows.h"

#include <cstdint>
#include <vector>

namespace qbrpt {

struct IconPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels; ///< row by row; opacity, red, green, blue from the highest byte
};

/// In all sizes that the window gives; none where it has no icon, or is gone.
[[nodiscard]] std::vector<IconPicture> IconPicturesOf(WindowHandle window);

/// The pictures in an icon property, as far as it is well-formed.
[[nodiscard]] std::vector<IconPicture> ReadIconPictures(const std::vector<std::uint32_t>& property);

} // namespace qbrpt
