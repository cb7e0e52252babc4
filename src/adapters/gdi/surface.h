// Pixels, and what happens to them on the way from one picture to another.
#pragma once

#include "platform/gdi.h"

#include <cstdint>
#include <vector>

namespace qbrpt::gdi {

/// The pixels of a bitmap or of a window's canvas, rows from the top. Those of a one-colour bitmap are black
/// or white.
struct Surface {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int16_t bitsPixel = 32;
    std::vector<ColorRef> pixels{};

    [[nodiscard]] bool Mono() const { return bitsPixel == 1; }
    [[nodiscard]] bool Holds(std::int64_t x, std::int64_t y) const {
        return x >= 0 && y >= 0 && x < width && y < height;
    }
    [[nodiscard]] ColorRef& At(std::int64_t x, std::int64_t y) {
        return pixels[static_cast<std::size_t>(y * width + x)];
    }
    [[nodiscard]] ColorRef At(std::int64_t x, std::int64_t y) const {
        return pixels[static_cast<std::size_t>(y * width + x)];
    }
};

/// All black.
[[nodiscard]] Surface BlackSurface(std::int32_t width, std::int32_t height, std::int16_t bitsPixel);

/// The colours of a context, by which one-colour and coloured pixels turn into each other.
struct ContextColors {
    ColorRef background = ColorWhite;
    ColorRef text = ColorBlack;
};

struct Side {
    GdiArea area;
    ContextColors colors;
};

/// Copies a part of `from` onto a part of `to`, scaled to its size. Where the source is larger its pixels
/// join by "and", so that thin dark lines stay. Coloured pixels that have the source context's background
/// are white in a one-colour picture, all others black; white takes the destination context's background in
/// a coloured one, black its text colour. What lies outside of either picture is left alone.
void Transfer(Surface& to, const Side& toSide, const Surface& from, const Side& fromSide, RasterOp operation);

/// The inside of the rectangle in one colour.
void Fill(Surface& surface, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom,
          ColorRef color);

} // namespace qbrpt::gdi
