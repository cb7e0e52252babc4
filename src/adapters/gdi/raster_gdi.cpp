#include "adapters/gdi/raster_gdi.h"

#include "adapters/gdi/dib_bits.h"
#include "base/numbers.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace qbrpt::gdi {

namespace {

constexpr std::size_t StockObjects = 2;
constexpr std::int16_t DisplayBits = 32;
constexpr std::int64_t MostPixels = std::int64_t{1} << 26;
constexpr std::int32_t MostMemory = 1 << 28;

} // namespace

RasterGdi::RasterGdi(std::int32_t displayColors)
    : mStockBitmap(mObjects.Add(BlackSurface(1, 1, 1))), mStockPalette(mObjects.Add(Palette{})),
      mDisplayColors(displayColors) {}

std::size_t RasterGdi::LiveHandles() const {
    return mObjects.Count() - StockObjects;
}

bool RasterGdi::IsStock(GdiHandle handle) const {
    return handle == mStockBitmap || handle == mStockPalette;
}

Surface* RasterGdi::SurfaceOf(Context& context) {
    if (context.kind == ContextKind::Canvas) return &context.canvas;
    return mObjects.Find<Surface>(context.bitmap);
}

GdiHandle RasterGdi::DoGetDC(GdiHandle window) {
    if (window != 0) return 0; // windows are drawn on through their canvas
    return mObjects.Add(Context{.kind = ContextKind::Screen, .palette = mStockPalette});
}

bool RasterGdi::DoReleaseDC(GdiHandle, GdiHandle hdc) {
    const Context* context = mObjects.Find<Context>(hdc);
    return context && context->kind == ContextKind::Screen && mObjects.Remove(hdc);
}

GdiHandle RasterGdi::DoCreateDCA(const std::string& driver) {
    if (driver != "DISPLAY") return 0;
    return mObjects.Add(Context{.kind = ContextKind::Device, .palette = mStockPalette});
}

GdiHandle RasterGdi::DoCreateCompatibleDC(GdiHandle hdc) {
    if (hdc != 0 && !mObjects.Find<Context>(hdc)) return 0;
    return mObjects.Add(
        Context{.kind = ContextKind::Memory, .bitmap = mStockBitmap, .palette = mStockPalette});
}

bool RasterGdi::DoDeleteDC(GdiHandle hdc) {
    const Context* context = mObjects.Find<Context>(hdc);
    const bool deletable =
        context && (context->kind == ContextKind::Memory || context->kind == ContextKind::Device);
    return deletable && mObjects.Remove(hdc);
}

GdiHandle RasterGdi::DoSelectObject(GdiHandle hdc, GdiHandle object) {
    Context* context = mObjects.Find<Context>(hdc);
    if (!context || context->kind != ContextKind::Memory || !mObjects.Find<Surface>(object)) return 0;
    // A bitmap is drawn on through one context at a time.
    if (object != mStockBitmap && object != context->bitmap && mObjects.Selected(object)) return 0;
    return std::exchange(context->bitmap, object);
}

ColorRef RasterGdi::DoSetBkColor(GdiHandle hdc, ColorRef color) {
    Context* context = mObjects.Find<Context>(hdc);
    return context ? std::exchange(context->colors.background, color) : ColorNone;
}

ColorRef RasterGdi::DoSetTextColor(GdiHandle hdc, ColorRef color) {
    Context* context = mObjects.Find<Context>(hdc);
    return context ? std::exchange(context->colors.text, color) : ColorNone;
}

ColorRef RasterGdi::DoGetBkColor(GdiHandle hdc) {
    const Context* context = mObjects.Find<Context>(hdc);
    return context ? context->colors.background : ColorNone;
}

ColorRef RasterGdi::DoGetTextColor(GdiHandle hdc) {
    const Context* context = mObjects.Find<Context>(hdc);
    return context ? context->colors.text : ColorNone;
}

bool RasterGdi::DoDeleteObject(GdiHandle object) {
    if (IsStock(object) || mObjects.Selected(object)) return false;
    return Remove<Surface>(object) || Remove<Brush>(object) || Remove<Palette>(object);
}

GdiObject RasterGdi::DoGetObjectType(GdiHandle object) {
    const Object* found = mObjects.FindAny(object);
    if (!found) return GdiObject::None;
    if (std::holds_alternative<Surface>(*found)) return GdiObject::Bitmap;
    if (std::holds_alternative<Brush>(*found)) return GdiObject::Brush;
    if (std::holds_alternative<Palette>(*found)) return GdiObject::Palette;
    if (std::holds_alternative<Metafile>(*found)) return GdiObject::EnhancedMetafile;
    if (const auto* context = std::get_if<Context>(found))
        return context->kind == ContextKind::Memory ? GdiObject::MemoryContext : GdiObject::Context;
    return GdiObject::None;
}

std::optional<BitmapRecord> RasterGdi::DoGetObjectA(GdiHandle bitmap) {
    constexpr std::int32_t wordBits = 16;
    const Surface* surface = mObjects.Find<Surface>(bitmap);
    if (!surface) return std::nullopt;
    const std::int64_t rowBits = std::int64_t{surface->width} * surface->bitsPixel;
    return BitmapRecord{.bmWidth = surface->width,
                        .bmHeight = surface->height,
                        .bmWidthBytes = CheckedLong((rowBits + wordBits - 1) / wordBits * 2),
                        .bmPlanes = 1,
                        .bmBitsPixel = surface->bitsPixel};
}

GdiHandle RasterGdi::AddBitmap(std::int32_t width, std::int32_t height, std::int16_t bitsPixel) {
    if (width == 0 || height == 0) return mObjects.Add(BlackSurface(1, 1, 1));
    if (width < 0 || height < 0 || std::int64_t{width} * height > MostPixels) return 0;
    return mObjects.Add(BlackSurface(width, height, bitsPixel));
}

GdiHandle RasterGdi::DoCreateCompatibleBitmap(GdiHandle hdc, std::int32_t width, std::int32_t height) {
    Context* context = mObjects.Find<Context>(hdc);
    if (!context) return 0;
    const Surface* surface = SurfaceOf(*context);
    return AddBitmap(width, height, surface ? surface->bitsPixel : DisplayBits);
}

GdiHandle RasterGdi::DoCreateBitmap(std::int32_t width, std::int32_t height, std::int32_t planes,
                                    std::int32_t bitsPixel) {
    const bool known = bitsPixel == 1 || bitsPixel == 24 || bitsPixel == DisplayBits;
    return planes == 1 && known ? AddBitmap(width, height, static_cast<std::int16_t>(bitsPixel)) : 0;
}

GdiHandle RasterGdi::DoCreateSolidBrush(ColorRef color) {
    return mObjects.Add(Brush{color});
}

GdiHandle RasterGdi::DoCreateHalftonePalette(GdiHandle hdc) {
    constexpr std::size_t halftones = 256;
    return mObjects.Find<Context>(hdc) ? mObjects.Add(Palette{std::vector<PaletteEntry>(halftones)}) : 0;
}

GdiHandle RasterGdi::DoCreatePalette(const LogPalette& palette) {
    constexpr std::uint16_t knownVersion = 0x300;
    if (palette.palVersion != knownVersion || palette.entries.empty()) return 0;
    return mObjects.Add(Palette{palette.entries});
}

GdiHandle RasterGdi::DoSelectPalette(GdiHandle hdc, GdiHandle palette, bool) {
    Context* context = mObjects.Find<Context>(hdc);
    if (!context || !mObjects.Find<Palette>(palette)) return 0;
    return std::exchange(context->palette, palette);
}

// Colours are drawn as they are given: there is no entry of a display's to map them to.
std::int32_t RasterGdi::DoRealizePalette(GdiHandle) {
    return 0;
}

std::int32_t RasterGdi::DoGetSystemPaletteEntries(GdiHandle hdc, std::int32_t first,
                                                  std::span<PaletteEntry> entries) {
    if (!mObjects.Find<Context>(hdc) || first < 0 || first >= mDisplayColors) return 0;
    const std::int32_t count = std::min(mDisplayColors - first, static_cast<std::int32_t>(entries.size()));
    std::fill_n(entries.begin(), count, PaletteEntry{});
    return count;
}

GdiHandle RasterGdi::DoLocalAlloc(std::int32_t, std::int32_t size) {
    if (size < 0 || size > MostMemory) return 0;
    return mObjects.Add(Memory{std::vector<std::uint8_t>(static_cast<std::size_t>(size))});
}

std::span<std::uint8_t> RasterGdi::DoLocalLock(GdiHandle memory) {
    Memory* block = mObjects.Find<Memory>(memory);
    return block ? std::span<std::uint8_t>(block->bytes) : std::span<std::uint8_t>{};
}

bool RasterGdi::DoLocalUnlock(GdiHandle memory) {
    return mObjects.Find<Memory>(memory) != nullptr;
}

bool RasterGdi::DoLocalFree(GdiHandle memory) {
    return Remove<Memory>(memory);
}

GdiHandle RasterGdi::MakeMetafile(std::span<const std::uint8_t> bytes) {
    constexpr std::int32_t headRecord = 1;
    constexpr std::int32_t signature = 0x464D4520; // " EMF"
    Metafile metafile;
    if (bytes.size() < sizeof metafile.header) return 0;
    std::memcpy(&metafile.header, bytes.data(), sizeof metafile.header);
    const EnhMetaHeader& header = metafile.header;
    const bool whole = header.iType == headRecord && header.dSignature == signature &&
                       header.nSize >= static_cast<std::int32_t>(sizeof header) &&
                       header.nBytes >= header.nSize &&
                       header.nBytes <= static_cast<std::int64_t>(bytes.size());
    return whole ? mObjects.Add(metafile) : 0;
}

bool RasterGdi::DeleteEnhMetaFile(GdiHandle metafile) {
    return Remove<Metafile>(metafile);
}

std::optional<EnhMetaHeader> RasterGdi::DoGetEnhMetaFileHeader(GdiHandle metafile, std::int32_t size) {
    const Metafile* found = mObjects.Find<Metafile>(metafile);
    if (!found || size < static_cast<std::int32_t>(sizeof(EnhMetaHeader))) return std::nullopt;
    return found->header;
}

} // namespace qbrpt::gdi
