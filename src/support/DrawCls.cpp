#include "support/DrawCls.h"

#include "base/failure.h"
#include "base/numbers.h"
#include "platform/platform.h"

#include <algorithm>
#include <array>

namespace qbrpt {

namespace {

constexpr GdiHandle WholeScreen = 0;

Gdi& Calls() {
    return *Platform::Current().gdi;
}

/// A context in memory, with the bitmap and the palette that are selected into it.
struct Canvas {
    GdiHandle hdc = 0;
    GdiHandle bitmap = 0;
    GdiHandle oldBitmap = 0;
    GdiHandle oldPalette = 0;
};

Canvas CanvasWith(Gdi& gdi, GdiHandle screen, GdiHandle bitmap) {
    Canvas canvas;
    canvas.hdc = gdi.CreateCompatibleDC(screen);
    canvas.bitmap = bitmap;
    canvas.oldBitmap = gdi.SelectObject(canvas.hdc, bitmap);
    return canvas;
}

Canvas CanvasWith(Gdi& gdi, GdiHandle screen, GdiHandle bitmap, GdiHandle palette) {
    Canvas canvas = CanvasWith(gdi, screen, bitmap);
    canvas.oldPalette = gdi.SelectPalette(canvas.hdc, palette, true);
    gdi.RealizePalette(canvas.hdc);
    return canvas;
}

/// Leaves the bitmap.
void Close(Gdi& gdi, const Canvas& canvas) {
    gdi.SelectObject(canvas.hdc, canvas.oldBitmap);
    gdi.SelectPalette(canvas.hdc, canvas.oldPalette, true);
    gdi.DeleteDC(canvas.hdc);
}

} // namespace

DrawCls::DrawCls() {
    Gdi& gdi = Calls();
    const GdiHandle screen = gdi.GetDC(WholeScreen);
    mPal = gdi.CreateHalftonePalette(screen);
    gdi.ReleaseDC(WholeScreen, screen);
}

DrawCls::~DrawCls() {
    Calls().DeleteObject(mPal);
}

void DrawCls::PaintPic(GdiHandle hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t Width,
                       std::int32_t Height, GdiHandle hPic, std::int32_t xSrc, std::int32_t ySrc,
                       ColorRef clrMask, GdiHandle hPal) {
    if (hPic == 0) return;
    Gdi& gdi = Calls();
    if (gdi.GetObjectType(hPic) == GdiObject::Bitmap) {
        const GdiHandle screen = gdi.GetDC(WholeScreen);
        const Canvas source = CanvasWith(gdi, screen, hPic, PaletteOr(hPal));
        PaintTransparentDC(hdcDest, xDest, yDest, Width, Height, source.hdc, xSrc, ySrc, clrMask, hPal);
        Close(gdi, source);
        gdi.ReleaseDC(WholeScreen, screen);
        return;
    }
    // The bitmaps of the answer are left to themselves.
    if (!gdi.GetIconInfo(hPic)) return;
    const GdiHandle screen = gdi.GetDC(WholeScreen);
    const Canvas source = CanvasWith(gdi, screen, gdi.CreateCompatibleBitmap(screen, Width, Height));
    FillRectangle(source.hdc, 0, 0, Width, Height, ColorBlack);
    gdi.DrawIcon(source.hdc, 0, 0, hPic);
    PaintTransparentDC(hdcDest, xDest, yDest, Width, Height, source.hdc, 0, 0, ColorBlack, hPal);
    gdi.SelectObject(source.hdc, source.oldBitmap);
    gdi.DeleteObject(source.bitmap);
    gdi.DeleteDC(source.hdc);
    gdi.ReleaseDC(WholeScreen, screen);
}

void DrawCls::PaintTransparentDC(GdiHandle hdcDest, std::int32_t xDest, std::int32_t yDest,
                                 std::int32_t Width, std::int32_t Height, GdiHandle hdcSrc, std::int32_t xSrc,
                                 std::int32_t ySrc, ColorRef clrMask, GdiHandle hPal) {
    Gdi& gdi = Calls();
    const GdiHandle palette = PaletteOr(hPal);
    const GdiArea whole = {.width = Width, .height = Height};
    const GdiHandle screen = gdi.GetDC(WholeScreen);

    const Canvas back = CanvasWith(gdi, screen, gdi.CreateCompatibleBitmap(screen, Width, Height), palette);
    gdi.BitBlt(back.hdc, whole, hdcDest, xDest, yDest, RasterOp::SourceCopy);

    const Canvas source = CanvasWith(gdi, screen, gdi.CreateCompatibleBitmap(screen, Width, Height), palette);
    gdi.SetBkColor(source.hdc, gdi.GetBkColor(hdcSrc));
    gdi.SetTextColor(source.hdc, gdi.GetTextColor(hdcSrc));
    gdi.BitBlt(source.hdc, whole, hdcSrc, xSrc, ySrc, RasterOp::SourceCopy);

    // White where the source has the colour of the background, black elsewhere.
    const Canvas mask = CanvasWith(gdi, screen, gdi.CreateBitmap(Width, Height, 1, 1));
    gdi.SetBkColor(source.hdc, clrMask);
    gdi.SetTextColor(source.hdc, ColorWhite);
    gdi.BitBlt(mask.hdc, whole, source.hdc, 0, 0, RasterOp::SourceCopy);

    // What is transparent turns black in the source, the rest black in the back buffer; then both add up.
    gdi.SetTextColor(source.hdc, ColorBlack);
    gdi.SetBkColor(source.hdc, ColorWhite);
    gdi.BitBlt(source.hdc, whole, mask.hdc, 0, 0, RasterOp::DestinationAndNotSource);
    gdi.BitBlt(back.hdc, whole, mask.hdc, 0, 0, RasterOp::SourceAnd);
    gdi.BitBlt(back.hdc, whole, source.hdc, 0, 0, RasterOp::SourcePaint);
    gdi.BitBlt(hdcDest, {.x = xDest, .y = yDest, .width = Width, .height = Height}, back.hdc, 0, 0,
               RasterOp::SourceCopy);

    const std::array all = {back, source, mask};
    for (const Canvas& canvas : all)
        gdi.SelectObject(canvas.hdc, canvas.oldBitmap);
    for (const Canvas& canvas : all)
        gdi.DeleteObject(canvas.bitmap);
    for (const Canvas& canvas : all)
        gdi.DeleteDC(canvas.hdc);
    // The contexts have let their palettes go by now; putting the old ones back is part of the routine.
    gdi.SelectPalette(back.hdc, back.oldPalette, true);
    gdi.SelectPalette(source.hdc, source.oldPalette, true);
    gdi.ReleaseDC(WholeScreen, screen);
}

void DrawCls::PaintNormalStdPic(GdiHandle hdcDest, std::int32_t xDest, std::int32_t yDest, std::int32_t Width,
                                std::int32_t Height, GdiHandle hPic, std::int32_t xSrc, std::int32_t ySrc,
                                GdiHandle hPal) {
    Gdi& gdi = Calls();
    const GdiHandle screen = gdi.GetDC(WholeScreen);
    const Canvas source = CanvasWith(gdi, screen, hPic, PaletteOr(hPal));
    gdi.BitBlt(hdcDest, {.x = xDest, .y = yDest, .width = Width, .height = Height}, source.hdc, xSrc, ySrc,
               RasterOp::SourceCopy);
    Close(gdi, source);
    gdi.ReleaseDC(WholeScreen, screen);
}

void DrawCls::GetPicSize(GdiHandle hPic, std::int32_t& pX, std::int32_t& pY) {
    const BitmapRecord record = Calls().GetObjectA(hPic).value_or(BitmapRecord{});
    pX = record.bmWidth;
    pY = record.bmHeight;
}

void DrawCls::FillRectangle(GdiHandle hdc, std::int32_t x, std::int32_t y, std::int32_t cx, std::int32_t cY,
                            ColorRef lColor) {
    const std::int32_t right = CheckedLong(std::int64_t{x} + cx);
    const std::int32_t bottom = CheckedLong(std::int64_t{y} + cY);
    Gdi& gdi = Calls();
    const GdiHandle brush = gdi.CreateSolidBrush(lColor);
    gdi.FillRect(hdc, x, y, right, bottom, brush);
    gdi.DeleteObject(brush);
}

void DrawCls::PicPostion(std::int32_t pID, std::int32_t pW, std::int32_t, std::int32_t& pX,
                         std::int32_t& pY) {
    constexpr std::int64_t cell = 16;
    if (pW == 0) throw Failure(FailureNumber::DivisionByZero, "Division by zero.");
    const std::int32_t n = CheckedLong((std::int64_t{pID} - 1) * cell);
    pX = static_cast<std::int32_t>(std::int64_t{n} % pW);
    pY = CheckedLong(std::int64_t{n} / pW * cell);
}

ColorRef DrawCls::GetImageMask(GdiHandle hdc, GdiHandle hBm) {
    Gdi& gdi = Calls();
    const Canvas canvas = CanvasWith(gdi, hdc, hBm);
    std::int32_t w = 0;
    std::int32_t h = 0;
    GetPicSize(hBm, w, h);
    const std::int32_t middle = RoundToLong(w / 2.0);
    const std::array samples = {gdi.GetPixel(canvas.hdc, 1, 1), gdi.GetPixel(canvas.hdc, 1, h - 1),
                                gdi.GetPixel(canvas.hdc, w - 1, 1), gdi.GetPixel(canvas.hdc, middle, 1)};
    const auto repeated = std::find_if(samples.begin(), samples.end(), [&](ColorRef sample) {
        return std::count(samples.begin(), samples.end(), sample) >= 2;
    });
    gdi.SelectObject(canvas.hdc, canvas.oldBitmap);
    gdi.DeleteDC(canvas.hdc);
    return repeated == samples.end() || *repeated == ColorBlack ? samples.front() : *repeated;
}

} // namespace qbrpt
