#include "adapters/gdi/surface.h"

#include <algorithm>

namespace qbrpt::gdi {

namespace {

/// The operation's third byte is the table of its answers, a bit for each of pattern, source, destination.
ColorRef Joined(RasterOp operation, ColorRef source, ColorRef destination) {
    constexpr ColorRef pattern = ColorWhite; // no brush is ever selected
    const std::uint32_t answers = static_cast<std::uint32_t>(operation) >> 16;
    ColorRef joined = 0;
    for (std::uint32_t row = 0; row < 8; ++row) {
        if ((answers >> row & 1U) == 0) continue;
        joined |= ((row & 4U) != 0 ? pattern : ~pattern) & ((row & 2U) != 0 ? source : ~source) &
                  ((row & 1U) != 0 ? destination : ~destination);
    }
    return joined & ColorWhite;
}

ColorRef Converted(ColorRef pixel, const Surface& to, const Side& toSide, const Surface& from,
                   const Side& fromSide) {
    if (to.Mono() == from.Mono()) return pixel;
    if (to.Mono()) return pixel == fromSide.colors.background ? ColorWhite : ColorBlack;
    return pixel == ColorWhite ? toSide.colors.background : toSide.colors.text;
}

/// The source's pixels that go into one of the destination's: a stretch of a row or of a column, clipped to
/// what there is.
struct Stretch {
    std::int64_t begin;
    std::int64_t end;
};

Stretch StretchOf(std::int64_t index, std::int32_t toSize, std::int32_t fromStart, std::int32_t fromSize,
                  std::int32_t limit) {
    const std::int64_t begin = index * fromSize / toSize;
    const std::int64_t end = std::max(begin + 1, (index + 1) * fromSize / toSize);
    return {std::max<std::int64_t>(begin + fromStart, 0), std::min<std::int64_t>(end + fromStart, limit)};
}

/// ColorNone where the source has nothing.
ColorRef Sampled(const Surface& from, const Stretch& column, const Stretch& row) {
    ColorRef sample = ColorNone;
    for (std::int64_t y = row.begin; y < row.end; ++y)
        for (std::int64_t x = column.begin; x < column.end; ++x)
            sample &= from.At(x, y);
    return sample;
}

/// The part of a destination that its picture shows: a size far beyond it must not cost time.
Stretch Shown(std::int32_t start, std::int32_t size, std::int32_t limit) {
    return {std::max<std::int64_t>(0, -std::int64_t{start}),
            std::min<std::int64_t>(size, std::int64_t{limit} - start)};
}

} // namespace

Surface BlackSurface(std::int32_t width, std::int32_t height, std::int16_t bitsPixel) {
    const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    return {width, height, bitsPixel, std::vector<ColorRef>(pixels, ColorBlack)};
}

void Transfer(Surface& to, const Side& toSide, const Surface& from, const Side& fromSide,
              RasterOp operation) {
    if (&to == &from) {
        const Surface before = from;
        Transfer(to, toSide, before, fromSide, operation);
        return;
    }
    const GdiArea& area = toSide.area;
    const GdiArea& source = fromSide.area;
    if (source.width <= 0 || source.height <= 0) return;
    const Stretch rows = Shown(area.y, area.height, to.height);
    const Stretch columns = Shown(area.x, area.width, to.width);
    for (std::int64_t y = rows.begin; y < rows.end; ++y) {
        const Stretch row = StretchOf(y, area.height, source.y, source.height, from.height);
        for (std::int64_t x = columns.begin; x < columns.end; ++x) {
            const ColorRef sample =
                Sampled(from, StretchOf(x, area.width, source.x, source.width, from.width), row);
            if (sample == ColorNone) continue;
            ColorRef& pixel = to.At(area.x + x, area.y + y);
            pixel = Joined(operation, Converted(sample, to, toSide, from, fromSide), pixel);
        }
    }
}

void Fill(Surface& surface, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom,
          ColorRef color) {
    const ColorRef shown = surface.Mono() && color != ColorWhite ? ColorBlack : color & ColorWhite;
    for (std::int32_t y = std::max(top, 0); y < std::min(bottom, surface.height); ++y)
        for (std::int32_t x = std::max(left, 0); x < std::min(right, surface.width); ++x)
            surface.At(x, y) = shown;
}

} // namespace qbrpt::gdi
