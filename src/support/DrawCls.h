// Paints, measures and shrinks pictures by their handles.
#pragma once

#include "platform/gdi.h"

#include <cstdint>

namespace qbrpt {

/// Drawing operations over the calls of Gdi. A call that fails is reported by none of them: its handle of 0
/// goes on into the next. A palette of 0 stands for the object's own.
class DrawCls {
public:
    DrawCls();
    ~DrawCls();
    DrawCls(const DrawCls&) = delete;
    DrawCls& operator=(const DrawCls&) = delete;

    /// Paints a bitmap, all but its pixels of `clrMask`, or an icon, all but its black ones: an icon is
    /// painted whole, whatever place and colour are given.
    void PaintPic(GdiHandle hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t Width,
                  std::int32_t Height, GdiHandle hPic, std::int32_t xSrc, std::int32_t ySrc, ColorRef clrMask,
                  GdiHandle hPal = 0);
    /// Paints what a context holds, all but its pixels of `clrMask`. The destination is touched once.
    void PaintTransparentDC(GdiHandle hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t Width,
                            std::int32_t Height, GdiHandle hdcSrc, std::int32_t xSrc, std::int32_t ySrc,
                            ColorRef clrMask, GdiHandle hPal = 0);
    /// Paints a bitmap as it is.
    void PaintNormalStdPic(GdiHandle hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t Width,
                           std::int32_t Height, GdiHandle hPic, std::int32_t xSrc, std::int32_t ySrc,
                           GdiHandle hPal = 0);
    /// Of a bitmap, in pixels; 0, 0 of anything else.
    static void GetPicSize(GdiHandle hPic, std::int32_t& pX, std::int32_t& pY);
    static void FillRectangle(GdiHandle hdc, std::int32_t x, std::int32_t y, std::int32_t cx, std::int32_t cY,
                              ColorRef lColor);
    /// A new bitmap, scaled as the display scales. The first number says nothing.
    [[nodiscard]] static GdiHandle ShrinkBmp(std::int32_t nUnused, GdiHandle hBm, float widthRatio,
                                             float heightRatio);
    /// Where image `pID`, counted from 1, stands in a strip of that width, in cells of 16 pixels. A width of
    /// 0 is FailureNumber::DivisionByZero.
    static void PicPostion(std::int32_t pID, std::int32_t pW, std::int32_t pH, std::int32_t& pX,
                           std::int32_t& pY);
    /// Guesses the background of a bitmap from its edges: of four pixels the first colour that comes twice.
    /// Black, and four colours, give the first pixel's.
    [[nodiscard]] static ColorRef GetImageMask(GdiHandle hdc, GdiHandle hBm);
    /// Reads the bits that the header at `pbi` asks for, and drops them: 0, whatever they were. An image
    /// size below 1 is FailureNumber::OutOfRange.
    static GdiHandle CreateBmDibSection(GdiHandle hBm, std::span<std::uint8_t> pbi);
    /// A new bitmap, scaled from device independent bits, so that it keeps its colours; 0 for bits of less
    /// than 48 bytes.
    [[nodiscard]] static GdiHandle ShrinkBm(GdiHandle hBm, float widthRatio, float heightRatio);

private:
    [[nodiscard]] GdiHandle PaletteOr(GdiHandle hPal) const { return hPal != 0 ? hPal : mPal; }

    GdiHandle mPal = 0; ///< the default palette
};

} // namespace qbrpt
