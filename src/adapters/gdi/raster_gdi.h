// The drawing system in memory: every context draws on pixels of our own, which windows then show.
#pragma once

#include "adapters/gdi/objects.h"
#include "base/picture.h"

#include <span>

namespace qbrpt::gdi {

class RasterGdi final : public Gdi {
public:
    /// A display of all colours, or one whose own palette has so many.
    explicit RasterGdi(std::int32_t displayColors = 0);

    /// A bitmap of 24 bits a pixel; the caller deletes it.
    [[nodiscard]] GdiHandle MakeBitmap(const Picture& picture);
    /// An icon of the pixels that are more than half opaque. Goes with DestroyIcon.
    [[nodiscard]] GdiHandle MakeIcon(const Picture& picture);
    bool DestroyIcon(GdiHandle icon);
    /// An enhanced metafile by its bytes; 0 where they are none. Goes with DeleteEnhMetaFile.
    [[nodiscard]] GdiHandle MakeMetafile(std::span<const std::uint8_t> bytes);
    bool DeleteEnhMetaFile(GdiHandle metafile);

    /// A context that draws on a window's canvas, which begins as `ground`.
    [[nodiscard]] GdiHandle OpenCanvas(const Picture& ground);
    /// What was drawn on it, opaque; the context is gone.
    [[nodiscard]] Picture CloseCanvas(GdiHandle hdc);

    /// Objects and blocks of memory that nobody has deleted.
    [[nodiscard]] std::size_t LiveHandles() const;

private:
    GdiHandle DoGetDC(GdiHandle window) override;
    bool DoReleaseDC(GdiHandle window, GdiHandle hdc) override;
    GdiHandle DoCreateDCA(const std::string& driver) override;
    GdiHandle DoCreateCompatibleDC(GdiHandle hdc) override;
    bool DoDeleteDC(GdiHandle hdc) override;
    GdiHandle DoSelectObject(GdiHandle hdc, GdiHandle object) override;
    ColorRef DoSetBkColor(GdiHandle hdc, ColorRef color) override;
    ColorRef DoSetTextColor(GdiHandle hdc, ColorRef color) override;
    ColorRef DoGetBkColor(GdiHandle hdc) override;
    ColorRef DoGetTextColor(GdiHandle hdc) override;
    bool DoDeleteObject(GdiHandle object) override;
    GdiObject DoGetObjectType(GdiHandle object) override;
    std::optional<BitmapRecord> DoGetObjectA(GdiHandle bitmap) override;
    GdiHandle DoCreateCompatibleBitmap(GdiHandle hdc, std::int32_t width, std::int32_t height) override;
    GdiHandle DoCreateBitmap(std::int32_t width, std::int32_t height, std::int32_t planes,
                             std::int32_t bitsPixel) override;
    GdiHandle DoCreateSolidBrush(ColorRef color) override;
    GdiHandle DoCreateHalftonePalette(GdiHandle hdc) override;
    GdiHandle DoCreatePalette(const LogPalette& palette) override;
    GdiHandle DoSelectPalette(GdiHandle hdc, GdiHandle palette, bool background) override;
    std::int32_t DoRealizePalette(GdiHandle hdc) override;
    std::int32_t DoGetSystemPaletteEntries(GdiHandle hdc, std::int32_t first,
                                           std::span<PaletteEntry> entries) override;
    bool DoBitBlt(GdiHandle hdcDest, const GdiArea& to, GdiHandle hdcSrc, std::int32_t xSrc,
                  std::int32_t ySrc, RasterOp operation) override;
    bool DoStretchBlt(GdiHandle hdcDest, const GdiArea& to, GdiHandle hdcSrc, const GdiArea& from,
                      RasterOp operation) override;
    bool DoFillRect(GdiHandle hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                    std::int32_t bottom, GdiHandle brush) override;
    ColorRef DoGetPixel(GdiHandle hdc, std::int32_t x, std::int32_t y) override;
    std::int32_t DoGetDIBits(GdiHandle hdc, GdiHandle bitmap, std::int32_t first, std::int32_t lines,
                             std::span<std::uint8_t> bits, std::span<std::uint8_t> info,
                             std::int32_t usage) override;
    std::int32_t DoStretchDIBits(GdiHandle hdc, const GdiArea& to, const GdiArea& from,
                                 std::span<const std::uint8_t> bits, std::span<const std::uint8_t> info,
                                 std::int32_t usage, RasterOp operation) override;
    std::optional<IconRecord> DoGetIconInfo(GdiHandle icon) override;
    bool DoDrawIcon(GdiHandle hdc, std::int32_t x, std::int32_t y, GdiHandle icon) override;
    std::optional<EnhMetaHeader> DoGetEnhMetaFileHeader(GdiHandle metafile, std::int32_t size) override;
    GdiHandle DoLocalAlloc(std::int32_t flags, std::int32_t size) override;
    std::span<std::uint8_t> DoLocalLock(GdiHandle memory) override;
    bool DoLocalUnlock(GdiHandle memory) override;
    bool DoLocalFree(GdiHandle memory) override;

    [[nodiscard]] bool IsStock(GdiHandle handle) const;
    /// Removes an object of this kind that is nobody else's.
    template <class Kind>
    bool Remove(GdiHandle handle) {
        return mObjects.Find<Kind>(handle) && mObjects.Remove(handle);
    }
    /// What a context draws on; null for one of the whole screen.
    [[nodiscard]] Surface* SurfaceOf(Context& context);
    [[nodiscard]] GdiHandle AddBitmap(std::int32_t width, std::int32_t height, std::int16_t bitsPixel);

    Objects mObjects;
    GdiHandle mStockBitmap;  ///< what a context in memory begins with
    GdiHandle mStockPalette; ///< what every context begins with
    std::int32_t mDisplayColors;
};

} // namespace qbrpt::gdi
