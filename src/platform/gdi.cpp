#include "platform/gdi.h"

#include <exception>
#include <iterator>
#include <string_view>

namespace qbrpt {

namespace {

constexpr std::string_view GdiPort = "GDI";

/// The answer of a call, and `failed` for a call that fails: it tells by its answer alone.
template <class Answer, class Call>
Answer OrElse(Answer failed, Call&& call) {
    try {
        return call();
    } catch (const std::exception&) {
        return failed;
    }
}

template <class Call>
auto OrNothing(Call&& call) {
    return OrElse(decltype(call()){}, call);
}

} // namespace

GdiHandle Gdi::GetDC(GdiHandle window) {
    return OrNothing([&] {
        Announce(GdiPort, "GetDC", {Number(window)});
        return DoGetDC(window);
    });
}

bool Gdi::ReleaseDC(GdiHandle window, GdiHandle hdc) {
    return OrNothing([&] {
        Announce(GdiPort, "ReleaseDC", {Number(window), Number(hdc)});
        return DoReleaseDC(window, hdc);
    });
}

GdiHandle Gdi::CreateDCA(const std::string& driver) {
    return OrNothing([&] {
        Announce(GdiPort, "CreateDCA", {driver});
        return DoCreateDCA(driver);
    });
}

GdiHandle Gdi::CreateCompatibleDC(GdiHandle hdc) {
    return OrNothing([&] {
        Announce(GdiPort, "CreateCompatibleDC", {Number(hdc)});
        return DoCreateCompatibleDC(hdc);
    });
}

bool Gdi::DeleteDC(GdiHandle hdc) {
    return OrNothing([&] {
        Announce(GdiPort, "DeleteDC", {Number(hdc)});
        return DoDeleteDC(hdc);
    });
}

GdiHandle Gdi::SelectObject(GdiHandle hdc, GdiHandle object) {
    return OrNothing([&] {
        Announce(GdiPort, "SelectObject", {Number(hdc), Number(object)});
        return DoSelectObject(hdc, object);
    });
}

ColorRef Gdi::SetBkColor(GdiHandle hdc, ColorRef color) {
    return OrElse(ColorNone, [&] {
        Announce(GdiPort, "SetBkColor", {Number(hdc), Number(color)});
        return DoSetBkColor(hdc, color);
    });
}

ColorRef Gdi::SetTextColor(GdiHandle hdc, ColorRef color) {
    return OrElse(ColorNone, [&] {
        Announce(GdiPort, "SetTextColor", {Number(hdc), Number(color)});
        return DoSetTextColor(hdc, color);
    });
}

ColorRef Gdi::GetBkColor(GdiHandle hdc) {
    return OrElse(ColorNone, [&] {
        Announce(GdiPort, "GetBkColor", {Number(hdc)});
        return DoGetBkColor(hdc);
    });
}

ColorRef Gdi::GetTextColor(GdiHandle hdc) {
    return OrElse(ColorNone, [&] {
        Announce(GdiPort, "GetTextColor", {Number(hdc)});
        return DoGetTextColor(hdc);
    });
}

bool Gdi::DeleteObject(GdiHandle object) {
    return OrNothing([&] {
        Announce(GdiPort, "DeleteObject", {Number(object)});
        return DoDeleteObject(object);
    });
}

GdiObject Gdi::GetObjectType(GdiHandle object) {
    return OrNothing([&] {
        Announce(GdiPort, "GetObjectType", {Number(object)});
        return DoGetObjectType(object);
    });
}

std::optional<BitmapRecord> Gdi::GetObjectA(GdiHandle bitmap) {
    return OrNothing([&] {
        Announce(GdiPort, "GetObjectA", {Number(bitmap)});
        return DoGetObjectA(bitmap);
    });
}

GdiHandle Gdi::CreateCompatibleBitmap(GdiHandle hdc, std::int32_t width, std::int32_t height) {
    return OrNothing([&] {
        Announce(GdiPort, "CreateCompatibleBitmap", {Number(hdc), Number(width), Number(height)});
        return DoCreateCompatibleBitmap(hdc, width, height);
    });
}

GdiHandle Gdi::CreateBitmap(std::int32_t width, std::int32_t height, std::int32_t planes,
                            std::int32_t bitsPixel) {
    return OrNothing([&] {
        Announce(GdiPort, "CreateBitmap", {Number(width), Number(height), Number(planes), Number(bitsPixel)});
        return DoCreateBitmap(width, height, planes, bitsPixel);
    });
}

GdiHandle Gdi::CreateSolidBrush(ColorRef color) {
    return OrNothing([&] {
        Announce(GdiPort, "CreateSolidBrush", {Number(color)});
        return DoCreateSolidBrush(color);
    });
}

GdiHandle Gdi::CreateHalftonePalette(GdiHandle hdc) {
    return OrNothing([&] {
        Announce(GdiPort, "CreateHalftonePalette", {Number(hdc)});
        return DoCreateHalftonePalette(hdc);
    });
}

GdiHandle Gdi::CreatePalette(const LogPalette& palette) {
    return OrNothing([&] {
        Announce(GdiPort, "CreatePalette", {Number(palette.palVersion), Number(std::ssize(palette.entries))});
        return DoCreatePalette(palette);
    });
}

GdiHandle Gdi::SelectPalette(GdiHandle hdc, GdiHandle palette, bool background) {
    return OrNothing([&] {
        Announce(GdiPort, "SelectPalette", {Number(hdc), Number(palette), background});
        return DoSelectPalette(hdc, palette, background);
    });
}

std::int32_t Gdi::RealizePalette(GdiHandle hdc) {
    return OrNothing([&] {
        Announce(GdiPort, "RealizePalette", {Number(hdc)});
        return DoRealizePalette(hdc);
    });
}

std::int32_t Gdi::GetSystemPaletteEntries(GdiHandle hdc, std::int32_t first,
                                          std::span<PaletteEntry> entries) {
    return OrNothing([&] {
        Announce(GdiPort, "GetSystemPaletteEntries",
                 {Number(hdc), Number(first), Number(std::ssize(entries))});
        return DoGetSystemPaletteEntries(hdc, first, entries);
    });
}

bool Gdi::BitBlt(GdiHandle hdcDest, const GdiArea& to, GdiHandle hdcSrc, std::int32_t xSrc, std::int32_t ySrc,
                 RasterOp operation) {
    return OrNothing([&] {
        Announce(GdiPort, "BitBlt",
                 {Number(hdcDest), Number(to.x), Number(to.y), Number(to.width), Number(to.height),
                  Number(hdcSrc), Number(xSrc), Number(ySrc), Number(static_cast<std::uint32_t>(operation))});
        return DoBitBlt(hdcDest, to, hdcSrc, xSrc, ySrc, operation);
    });
}

bool Gdi::StretchBlt(GdiHandle hdcDest, const GdiArea& to, GdiHandle hdcSrc, const GdiArea& from,
                     RasterOp operation) {
    return OrNothing([&] {
        Announce(GdiPort, "StretchBlt",
                 {Number(hdcDest), Number(to.x), Number(to.y), Number(to.width), Number(to.height),
                  Number(hdcSrc), Number(from.x), Number(from.y), Number(from.width), Number(from.height),
                  Number(static_cast<std::uint32_t>(operation))});
        return DoStretchBlt(hdcDest, to, hdcSrc, from, operation);
    });
}

bool Gdi::FillRect(GdiHandle hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                   std::int32_t bottom, GdiHandle brush) {
    return OrNothing([&] {
        Announce(GdiPort, "FillRect",
                 {Number(hdc), Number(left), Number(top), Number(right), Number(bottom), Number(brush)});
        return DoFillRect(hdc, left, top, right, bottom, brush);
    });
}

ColorRef Gdi::GetPixel(GdiHandle hdc, std::int32_t x, std::int32_t y) {
    return OrElse(ColorNone, [&] {
        Announce(GdiPort, "GetPixel", {Number(hdc), Number(x), Number(y)});
        return DoGetPixel(hdc, x, y);
    });
}

std::int32_t Gdi::GetDIBits(GdiHandle hdc, GdiHandle bitmap, std::int32_t first, std::int32_t lines,
                            std::span<std::uint8_t> bits, std::span<std::uint8_t> info, std::int32_t usage) {
    return OrNothing([&] {
        Announce(GdiPort, "GetDIBits",
                 {Number(hdc), Number(bitmap), Number(first), Number(lines), Number(std::ssize(bits)),
                  Number(std::ssize(info)), Number(usage)});
        return DoGetDIBits(hdc, bitmap, first, lines, bits, info, usage);
    });
}

std::int32_t Gdi::StretchDIBits(GdiHandle hdc, const GdiArea& to, const GdiArea& from,
                                std::span<const std::uint8_t> bits, std::span<const std::uint8_t> info,
                                std::int32_t usage, RasterOp operation) {
    return OrNothing([&] {
        Announce(GdiPort, "StretchDIBits",
                 {Number(hdc), Number(to.x), Number(to.y), Number(to.width), Number(to.height),
                  Number(from.x), Number(from.y), Number(from.width), Number(from.height),
                  Number(std::ssize(bits)), Number(std::ssize(info)), Number(usage),
                  Number(static_cast<std::uint32_t>(operation))});
        return DoStretchDIBits(hdc, to, from, bits, info, usage, operation);
    });
}

std::optional<IconRecord> Gdi::GetIconInfo(GdiHandle icon) {
    return OrNothing([&] {
        Announce(GdiPort, "GetIconInfo", {Number(icon)});
        return DoGetIconInfo(icon);
    });
}

bool Gdi::DrawIcon(GdiHandle hdc, std::int32_t x, std::int32_t y, GdiHandle icon) {
    return OrNothing([&] {
        Announce(GdiPort, "DrawIcon", {Number(hdc), Number(x), Number(y), Number(icon)});
        return DoDrawIcon(hdc, x, y, icon);
    });
}

std::optional<EnhMetaHeader> Gdi::GetEnhMetaFileHeader(GdiHandle metafile, std::int32_t size) {
    return OrNothing([&] {
        Announce(GdiPort, "GetEnhMetaFileHeader", {Number(metafile), Number(size)});
        return DoGetEnhMetaFileHeader(metafile, size);
    });
}

GdiHandle Gdi::LocalAlloc(std::int32_t flags, std::int32_t size) {
    return OrNothing([&] {
        Announce(GdiPort, "LocalAlloc", {Number(flags), Number(size)});
        return DoLocalAlloc(flags, size);
    });
}

std::span<std::uint8_t> Gdi::LocalLock(GdiHandle memory) {
    return OrNothing([&] {
        Announce(GdiPort, "LocalLock", {Number(memory)});
        return DoLocalLock(memory);
    });
}

bool Gdi::LocalUnlock(GdiHandle memory) {
    return OrNothing([&] {
        Announce(GdiPort, "LocalUnlock", {Number(memory)});
        return DoLocalUnlock(memory);
    });
}

bool Gdi::LocalFree(GdiHandle memory) {
    return OrNothing([&] {
        Announce(GdiPort, "LocalFree", {Number(memory)});
        return DoLocalFree(memory);
    });
}

} // namespace qbrpt
