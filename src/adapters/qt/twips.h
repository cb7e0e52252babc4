// Lengths of forms are twips; a pixel takes 15 of them, as on a screen of 96 dots to the inch.
#pragma once

#include <cmath>
#include <cstdint>

namespace qbrpt::qt {

constexpr std::int32_t TwipsAPixel = 15;

[[nodiscard]] inline int Pixels(std::int32_t twips) {
    return static_cast<int>(std::lround(static_cast<double>(twips) / TwipsAPixel));
}

[[nodiscard]] inline int Pixels(double twips) {
    return static_cast<int>(std::lround(twips / TwipsAPixel));
}

[[nodiscard]] inline std::int32_t Twips(int pixels) {
    return pixels * TwipsAPixel;
}

} // namespace qbrpt::qt
