// Pixels drawn through contexts: copies, bits, icons, and a window's canvas.
#include "adapters/gdi/dib_bits.h"
#include "adapters/gdi/raster_gdi.h"

#include <utility>

namespace qbrpt::gdi {

namespace {

constexpr std::size_t Channels = 4;
constexpr std::uint8_t Opaque = 255;

ColorRef ColorOf(const std::uint8_t* rgba) {
    return ColorRef{rgba[0]} | ColorRef{rgba[1]} << 8 | ColorRef{rgba[2]} << 16;
}

Surface SurfaceFrom(const Picture& picture, std::int16_t bitsPixel) {
    Surface surface = BlackSurface(picture.width, picture.height, bitsPixel);
    for (std::size_t i = 0; i < surface.pixels.size(); ++i)
        surface.pixels[i] = ColorOf(picture.rgba.data() + i * Channels);
    return surface;
}

GdiArea Whole(const Surface& surface) {
    return {.width = surface.width, .height = surface.height};
}

} // namespace

GdiHandle RasterGdi::MakeBitmap(const Picture& picture) {
    return mObjects.Add(SurfaceFrom(picture, 24));
}

GdiHandle RasterGdi::MakeIcon(const Picture& picture) {
    constexpr std::uint8_t half = 128;
    Icon icon = {BlackSurface(picture.width, picture.height, 1), SurfaceFrom(picture, 24)};
    for (std::size_t i = 0; i < icon.mask.pixels.size(); ++i) {
        if (picture.rgba[i * Channels + 3] >= half) continue;
        icon.mask.pixels[i] = ColorWhite;
        icon.color.pixels[i] = ColorBlack;
    }
    return mObjects.Add(std::move(icon));
}

bool RasterGdi::DestroyIcon(GdiHandle icon) {
    return Remove<Icon>(icon);
}

GdiHandle RasterGdi::OpenCanvas(const Picture& ground) {
    return mObjects.Add(
        Context{.kind = ContextKind::Canvas, .palette = mStockPalette, .canvas = SurfaceFrom(ground, 32)});
}

Picture RasterGdi::CloseCanvas(GdiHandle hdc) {
    const Context* context = mObjects.Find<Context>(hdc);
    if (!context || context->kind != ContextKind::Canvas) return {};
    const Surface& canvas = context->canvas;
    Picture picture{canvas.width, canvas.height, {}};
    picture.rgba.reserve(canvas.pixels.size() * Channels);
    for (const ColorRef pixel : canvas.pixels) {
        for (const ColorRef channel : {pixel, pixel >> 8, pixel >> 16})
            picture.rgba.push_back(static_cast<std::uint8_t>(channel));
        picture.rgba.push_back(Opaque);
    }
    mObjects.Remove(hdc);
    return picture;
}

bool RasterGdi::DoBitBlt(GdiHandle hdcDest, const GdiArea& to, GdiHandle hdcSrc, std::int32_t xSrc,
                         std::int32_t ySrc, RasterOp operation) {
    return DoStretchBlt(hdcDest, to, hdcSrc, {.x = xSrc, .y = ySrc, .width = to.width, .height = to.height},
                        operation);
}

bool RasterGdi::DoStretchBlt(GdiHandle hdcDest, const GdiArea& to, GdiHandle hdcSrc, const GdiArea& from,
                             RasterOp operation) {
    Context* target = mObjects.Find<Context>(hdcDest);
    Context* source = mObjects.Find<Context>(hdcSrc);
    if (!target || !source) return false;
    Surface* targetSurface = SurfaceOf(*target);
    const Surface* sourceSurface = SurfaceOf(*source);
    if (!targetSurface || !sourceSurface) return false;
    Transfer(*targetSurface, {to, target->colors}, *sourceSurface, {from, source->colors}, operation);
    return true;
}

bool RasterGdi::DoFillRect(GdiHandle hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                           std::int32_t bottom, GdiHandle brush) {
    Context* context = mObjects.Find<Context>(hdc);
    const Brush* filled = mObjects.Find<Brush>(brush);
    Surface* surface = context ? SurfaceOf(*context) : nullptr;
    if (!surface || !filled) return false;
    Fill(*surface, left, top, right, bottom, filled->color);
    return true;
}

ColorRef RasterGdi::DoGetPixel(GdiHandle hdc, std::int32_t x, std::int32_t y) {
    Context* context = mObjects.Find<Context>(hdc);
    const Surface* surface = context ? SurfaceOf(*context) : nullptr;
    return surface && surface->Holds(x, y) ? surface->At(x, y) : ColorNone;
}

std::int32_t RasterGdi::DoGetDIBits(GdiHandle hdc, GdiHandle bitmap, std::int32_t first, std::int32_t lines,
                                    std::span<std::uint8_t> bits, std::span<std::uint8_t> info,
                                    std::int32_t usage) {
    const Surface* surface = mObjects.Find<Surface>(bitmap);
    auto header = HeaderOf(info);
    if (!mObjects.Find<Context>(hdc) || !surface || !header || usage != 0) return 0;
    if (!bits.empty()) return WriteBits(*surface, *header, first, lines, bits, info);
    if (header->biBitCount == 0) {
        header = OwnHeader(*surface);
    } else {
        header->biSizeImage =
            static_cast<std::int32_t>(SizeOfBits(surface->width, surface->height, header->biBitCount));
    }
    PutHeader(*header, info);
    return surface->height;
}

std::int32_t RasterGdi::DoStretchDIBits(GdiHandle hdc, const GdiArea& to, const GdiArea& from,
                                        std::span<const std::uint8_t> bits,
                                        std::span<const std::uint8_t> info, std::int32_t usage,
                                        RasterOp operation) {
    Context* context = mObjects.Find<Context>(hdc);
    Surface* surface = context ? SurfaceOf(*context) : nullptr;
    const auto source = ReadBits(bits, info);
    if (!surface || !source || usage != 0) return 0;
    Transfer(*surface, {to, context->colors}, *source, {from, {}}, operation);
    return source->height;
}

std::optional<IconRecord> RasterGdi::DoGetIconInfo(GdiHandle icon) {
    const Icon* found = mObjects.Find<Icon>(icon);
    if (!found) return std::nullopt;
    const Icon copy = *found;
    return IconRecord{.isIcon = true,
                      .xHotspot = copy.mask.width / 2,
                      .yHotspot = copy.mask.height / 2,
                      .hbmMask = mObjects.Add(copy.mask),
                      .hbmColor = mObjects.Add(copy.color)};
}

bool RasterGdi::DoDrawIcon(GdiHandle hdc, std::int32_t x, std::int32_t y, GdiHandle icon) {
    Context* context = mObjects.Find<Context>(hdc);
    Surface* surface = context ? SurfaceOf(*context) : nullptr;
    const Icon* found = mObjects.Find<Icon>(icon);
    if (!surface || !found) return false;
    GdiArea place = Whole(found->mask);
    place.x = x;
    place.y = y;
    // White in the mask keeps the ground, and black in the picture adds nothing to it.
    Transfer(*surface, {place, {}}, found->mask, {Whole(found->mask), {}}, RasterOp::SourceAnd);
    Transfer(*surface, {place, {}}, found->color, {Whole(found->color), {}}, RasterOp::SourcePaint);
    return true;
}

} // namespace qbrpt::gdi
