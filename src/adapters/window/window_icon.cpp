#include "adapters/window/window_icon.h"

#include "adapters/window/x_session.h"

#include <cstddef>
#include <utility>

namespace qbrpt {

std::vector<IconPicture> ReadIconPictures(const std::vector<std::uint32_t>& property) {
    constexpr std::uint32_t largestSide = 1024;
    std::vector<IconPicture> pictures;
    for (std::size_t at = 0; at + 2 < property.size();) {
        const std::uint32_t width = property[at];
        const std::uint32_t height = property[at + 1];
        at += 2;
        if (width == 0 || height == 0 || width > largestSide || height > largestSide) break;
        const std::size_t count = std::size_t{width} * height;
        if (count > property.size() - at) break;
        const auto first = property.begin() + static_cast<std::ptrdiff_t>(at);
        pictures.push_back({static_cast<int>(width),
                            static_cast<int>(height),
                            {first, first + static_cast<std::ptrdiff_t>(count)}});
        at += count;
    }
    return pictures;
}

std::vector<IconPicture> IconPicturesOf(WindowHandle window) {
    constexpr std::uint32_t largest = 1U << 20;
    const XSession session;
    if (!session.Connected()) return {};
    return ReadIconPictures(session.Numbers(window, "_NET_WM_ICON", XCB_ATOM_CARDINAL, largest));
}

} // namespace qbrpt
