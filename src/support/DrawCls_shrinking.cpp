// Bitmaps scaled through the display, and through bits that know no device.
#include "base/failure.h"
#include "base/numbers.h"
#include "platform/platform.h"
#include "support/DrawCls.h"

#include <array>
#include <cstring>
#include <vector>

namespace qbrpt {

namespace {

constexpr GdiHandle WholeScreen = 0;
constexpr std::int32_t HeaderSize = sizeof(BitmapInfoHeader);
constexpr std::int32_t ColorsAsSuch = 0;

/// `size` scaled, to whole pixels.
std::int32_t Scaled(std::int32_t size, float ratio) {
    return RoundToLong(static_cast<double>(ratio) * size);
}

std::array<std::uint8_t, HeaderSize> BytesOf(const BitmapInfoHeader& header) {
    std::array<std::uint8_t, HeaderSize> bytes{};
    std::memcpy(bytes.data(), &header, HeaderSize);
    return bytes;
}

/// What the first 40 bytes say; a header of nothing where there are fewer.
BitmapInfoHeader HeaderAt(std::span<const std::uint8_t> bytes) {
    BitmapInfoHeader header;
    if (bytes.size() >= HeaderSize) std::memcpy(&header, bytes.data(), HeaderSize);
    return header;
}

/// A context that goes with the routine, also where a size turns out too large.
class Context {
public:
    Context(Gdi& gdi, GdiHandle hdc) : mGdi(gdi), mHdc(hdc) {}
    ~Context() { mGdi.DeleteDC(mHdc); }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    [[nodiscard]] GdiHandle Hdc() const { return mHdc; }

private:
    Gdi& mGdi;
    GdiHandle mHdc;
};

std::int32_t UsualBits(std::int32_t bits) {
    for (const std::int32_t usual : {1, 4, 8, 16, 24}) {
        if (bits <= usual) return usual;
    }
    return 32;
}

/// The header of a bitmap's bits with room for their colours, in a block of memory that the caller frees; 0
/// for no bitmap, and for one of less than 48 bytes.
GdiHandle GetBmDibInfo(GdiHandle hBm) {
    constexpr std::int32_t smallest = 48;
    constexpr std::int32_t trueColor = 24;
    constexpr std::int32_t bytesAColor = 4;
    constexpr std::int32_t zeroed = 64; // and fixed: its lock is its address
    if (hBm == 0) return 0;
    Gdi& gdi = *Platform::Current().gdi;
    const auto record = gdi.GetObjectA(hBm);
    if (!record) return 0;
    const std::int32_t bits = UsualBits(std::int32_t{record->bmPlanes} * record->bmBitsPixel);

    auto bytes = BytesOf({.biSize = HeaderSize});
    const GdiHandle screen = gdi.GetDC(WholeScreen);
    gdi.GetDIBits(screen, hBm, 0, 0, {}, bytes, ColorsAsSuch);
    gdi.ReleaseDC(WholeScreen, screen);
    BitmapInfoHeader header = HeaderAt(bytes);
    if (header.biSizeImage < smallest) return 0;

    header.biWidth = record->bmWidth;
    header.biHeight = record->bmHeight;
    header.biPlanes = record->bmPlanes;
    header.biBitCount = static_cast<std::int16_t>(bits);
    header.biCompression = 0;
    std::int32_t size = HeaderSize;
    if (bits < trueColor) {
        header.biClrUsed = 1 << bits;
        size += header.biClrUsed * bytesAColor;
    }
    const GdiHandle hInfo = gdi.LocalAlloc(zeroed, size);
    const std::span<std::uint8_t> memory = gdi.LocalLock(hInfo);
    if (memory.size() >= HeaderSize) std::memcpy(memory.data(), &header, HeaderSize);
    return hInfo;
}

/// A palette of as many colours as the display's own has; 0 where it has none.
GdiHandle PaletteOfDisplay(Gdi& gdi, GdiHandle screen) {
    std::array<PaletteEntry, 256> entries{};
    const std::int32_t count = gdi.GetSystemPaletteEntries(screen, 0, entries);
    if (count <= 0) return 0;
    LogPalette palette = {.palVersion = 0x300, .entries = {}};
    for (std::int32_t i = 0; i < count; ++i) // what was read is not used
        palette.entries.push_back({static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(i + 2),
                                   static_cast<std::uint8_t>(i + 3), 0});
    return gdi.CreatePalette(palette);
}

/// What ShrinkBm holds while it works; lets go of it in the routine's own order.
struct DibWork {
    Gdi& gdi;
    GdiHandle info;
    GdiHandle screen = 0;
    GdiHandle palette = 0;
    GdiHandle oldPalette = 0;
    GdiHandle memoryContext = 0;
    GdiHandle bits = 0;

    DibWork(Gdi& calls, GdiHandle hInfo) : gdi(calls), info(hInfo) {}
    DibWork(const DibWork&) = delete;
    DibWork& operator=(const DibWork&) = delete;
    ~DibWork() {
        gdi.LocalUnlock(bits);
        gdi.LocalFree(bits);
        gdi.LocalFree(info);
        if (palette != 0) {
            gdi.SelectPalette(screen, oldPalette, true);
            gdi.DeleteObject(palette);
        }
        gdi.DeleteDC(memoryContext);
        gdi.ReleaseDC(WholeScreen, screen);
    }
};

} // namespace

GdiHandle DrawCls::ShrinkBmp(std::int32_t, GdiHandle hBm, float widthRatio, float heightRatio) {
    constexpr std::int32_t wordBits = 16;
    Gdi& gdi = *Platform::Current().gdi;
    const Context display(gdi, gdi.CreateDCA("DISPLAY"));
    const Context from(gdi, gdi.CreateCompatibleDC(display.Hdc()));
    const Context to(gdi, gdi.CreateCompatibleDC(display.Hdc()));
    const BitmapRecord old = gdi.GetObjectA(hBm).value_or(BitmapRecord{});
    BitmapRecord record = old;
    record.bmWidth = Scaled(old.bmWidth, widthRatio);
    record.bmHeight = Scaled(old.bmHeight, heightRatio);
    record.bmWidthBytes =
        CheckedLong(std::int64_t{old.bmBitsPixel} * record.bmWidth + wordBits - 1) / wordBits * 2;

    const GdiHandle shrunk = gdi.CreateCompatibleBitmap(display.Hdc(), record.bmWidth, record.bmHeight);
    const GdiHandle oldFrom = gdi.SelectObject(from.Hdc(), hBm);
    const GdiHandle oldTo = gdi.SelectObject(to.Hdc(), shrunk);
    gdi.StretchBlt(to.Hdc(), {.width = record.bmWidth, .height = record.bmHeight}, from.Hdc(),
                   {.width = old.bmWidth, .height = old.bmHeight}, RasterOp::SourceCopy);
    gdi.SelectObject(from.Hdc(), oldFrom);
    gdi.SelectObject(to.Hdc(), oldTo);
    return shrunk;
}

GdiHandle DrawCls::CreateBmDibSection(GdiHandle hBm, std::span<std::uint8_t> pbi) {
    if (hBm == 0 || pbi.empty()) return 0;
    Gdi& gdi = *Platform::Current().gdi;
    const BitmapInfoHeader header = HeaderAt(pbi);
    const Context display(gdi, gdi.CreateDCA("DISPLAY"));
    if (header.biSizeImage < 1) throw Failure(FailureNumber::OutOfRange, "Subscript out of range.");
    std::vector<std::uint8_t> bits(static_cast<std::size_t>(header.biSizeImage));
    gdi.GetDIBits(display.Hdc(), hBm, 0, header.biHeight, bits, pbi, ColorsAsSuch);
    return 0;
}

GdiHandle DrawCls::ShrinkBm(GdiHandle hBm, float widthRatio, float heightRatio) {
    constexpr std::int32_t movable = 2;
    Gdi& gdi = *Platform::Current().gdi;
    const GdiHandle hInfo = GetBmDibInfo(hBm);
    if (hInfo == 0) return 0;
    DibWork work(gdi, hInfo);
    const std::span<std::uint8_t> info = gdi.LocalLock(hInfo);
    const BitmapInfoHeader header = HeaderAt(info);
    work.screen = gdi.GetDC(WholeScreen);
    work.palette = PaletteOfDisplay(gdi, work.screen);
    work.memoryContext = gdi.CreateCompatibleDC(work.screen);
    if (work.palette != 0) {
        work.oldPalette = gdi.SelectPalette(work.screen, work.palette, true);
        gdi.RealizePalette(work.screen);
    }
    work.bits = gdi.LocalAlloc(movable, header.biSizeImage);
    const std::span<std::uint8_t> bits = gdi.LocalLock(work.bits);
    if (gdi.GetDIBits(work.screen, hBm, 0, header.biHeight, bits, info, ColorsAsSuch) == 0) return 0;

    const std::int32_t width = Scaled(header.biWidth, widthRatio);
    const std::int32_t height = Scaled(header.biHeight, heightRatio);
    const GdiHandle shrunk = gdi.CreateCompatibleBitmap(work.screen, width, height);
    const GdiHandle old = gdi.SelectObject(work.memoryContext, shrunk);
    gdi.StretchDIBits(work.memoryContext, {.width = width, .height = height},
                      {.width = header.biWidth, .height = header.biHeight}, bits, info, ColorsAsSuch,
                      RasterOp::SourceCopy);
    gdi.SelectObject(work.memoryContext, old);
    return shrunk;
}

} // namespace qbrpt
