// Drawing by handles: device contexts, bitmaps, palettes, brushes, icons and metafiles.
#pragma once

#include "platform/port.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qbrpt {

/// 32-bit handle of a drawing object or of a block of memory; 0 is none. Contexts and pictures of windows
/// are such handles, too.
using GdiHandle = std::uint32_t;
/// Red in the lowest byte, then green and blue: pure red is 255.
using ColorRef = std::uint32_t;

constexpr ColorRef ColorBlack = 0;
constexpr ColorRef ColorWhite = 0xFFFFFF;
/// The colour of a place outside of a bitmap.
constexpr ColorRef ColorNone = 0xFFFFFFFF;

/// What GetObjectType answers; 0 is no drawing object, as an icon is none.
enum class GdiObject : std::int32_t {
    None = 0,
    Brush = 2,
    Context = 3,
    Palette = 5,
    Bitmap = 7,
    MemoryContext = 10,
    EnhancedMetafile = 13
};

/// How the pixels of source and destination join.
enum class RasterOp : std::uint32_t {
    SourceCopy = 0xCC0020,
    DestinationAndNotSource = 0x220326,
    SourceAnd = 0x8800C6,
    SourcePaint = 0xEE0086
};

struct BitmapRecord {
    std::int32_t bmType = 0;
    std::int32_t bmWidth = 0;
    std::int32_t bmHeight = 0;
    std::int32_t bmWidthBytes = 0;
    std::int16_t bmPlanes = 0;
    std::int16_t bmBitsPixel = 0;
    std::int32_t bmBits = 0;
};
static_assert(sizeof(BitmapRecord) == 24);

/// Heads the record of device independent bits; the colours of fewer than 24 bits stand behind it, each as
/// blue, green, red and 0.
struct BitmapInfoHeader {
    std::int32_t biSize = 0;
    std::int32_t biWidth = 0;
    std::int32_t biHeight = 0;
    std::int16_t biPlanes = 0;
    std::int16_t biBitCount = 0;
    std::int32_t biCompression = 0;
    std::int32_t biSizeImage = 0;
    std::int32_t biXPelsPerMeter = 0;
    std::int32_t biYPelsPerMeter = 0;
    std::int32_t biClrUsed = 0;
    std::int32_t biClrImportant = 0;
};
static_assert(sizeof(BitmapInfoHeader) == 40);

/// The head of an enhanced metafile, up to its 88th byte.
struct EnhMetaHeader {
    std::int32_t iType = 0;
    std::int32_t nSize = 0;
    std::array<std::int32_t, 4> rclBounds{}; ///< left, top, right, bottom in device units
    std::array<std::int32_t, 4> rclFrame{};  ///< the same in hundredths of a millimetre
    std::int32_t dSignature = 0;
    std::int32_t nVersion = 0;
    std::int32_t nBytes = 0;
    std::int32_t nRecords = 0;
    std::int16_t nHandles = 0;
    std::int16_t sReserved = 0;
    std::int32_t nDescription = 0;
    std::int32_t offDescription = 0;
    std::int32_t nPalEntries = 0;
    std::array<std::int32_t, 2> szlDevice{};
    std::array<std::int32_t, 2> szlMillimeters{};
};
static_assert(sizeof(EnhMetaHeader) == 88);

struct PaletteEntry {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t flags = 0;
    friend bool operator==(const PaletteEntry&, const PaletteEntry&) = default;
};

struct LogPalette {
    std::uint16_t palVersion = 0;
    std::vector<PaletteEntry> entries;
};

struct IconRecord {
    bool isIcon = true; ///< false: a pointer
    std::int32_t xHotspot = 0;
    std::int32_t yHotspot = 0;
    GdiHandle hbmMask = 0;
    GdiHandle hbmColor = 0;
};

/// A rectangle of a context or of bits.
struct GdiArea {
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// The calls of the drawing system. None of them raises a failure: one that fails answers 0 or nothing, and
/// a handle of 0 or of an object that is gone makes a call fail. Who makes an object deletes it; one that is
/// selected into a context cannot be deleted.
class Gdi : public Port {
public:
    [[nodiscard]] GdiHandle GetDC(GdiHandle window);
    bool ReleaseDC(GdiHandle window, GdiHandle hdc);
    /// A context of a whole device: "DISPLAY".
    [[nodiscard]] GdiHandle CreateDCA(const std::string& driver);
    [[nodiscard]] GdiHandle CreateCompatibleDC(GdiHandle hdc);
    bool DeleteDC(GdiHandle hdc);
    /// The object that the context held before.
    GdiHandle SelectObject(GdiHandle hdc, GdiHandle object);
    /// The colours that a context held before.
    ColorRef SetBkColor(GdiHandle hdc, ColorRef color);
    ColorRef SetTextColor(GdiHandle hdc, ColorRef color);
    [[nodiscard]] ColorRef GetBkColor(GdiHandle hdc);
    [[nodiscard]] ColorRef GetTextColor(GdiHandle hdc);

    bool DeleteObject(GdiHandle object);
    [[nodiscard]] GdiObject GetObjectType(GdiHandle object);
    /// The record of a bitmap; nothing for other objects.
    [[nodiscard]] std::optional<BitmapRecord> GetObjectA(GdiHandle bitmap);
    [[nodiscard]] GdiHandle CreateCompatibleBitmap(GdiHandle hdc, std::int32_t width, std::int32_t height);
    [[nodiscard]] GdiHandle CreateBitmap(std::int32_t width, std::int32_t height, std::int32_t planes,
                                         std::int32_t bitsPixel);
    [[nodiscard]] GdiHandle CreateSolidBrush(ColorRef color);

    [[nodiscard]] GdiHandle CreateHalftonePalette(GdiHandle hdc);
    [[nodiscard]] GdiHandle CreatePalette(const LogPalette& palette);
    /// The palette that the context held before.
    GdiHandle SelectPalette(GdiHandle hdc, GdiHandle palette, bool background);
    std::int32_t RealizePalette(GdiHandle hdc);
    /// How many entries were read; 0 where the display has no palette of its own.
    [[nodiscard]] std::int32_t GetSystemPaletteEntries(GdiHandle hdc, std::int32_t first,
                                                       std::span<PaletteEntry> entries);

    bool BitBlt(GdiHandle hdcDest, const GdiArea& to, GdiHandle hdcSrc, std::int32_t xSrc, std::int32_t ySrc,
                RasterOp operation);
    bool StretchBlt(GdiHandle hdcDest, const GdiArea& to, GdiHandle hdcSrc, const GdiArea& from,
                    RasterOp operation);
    /// Right and bottom lie outside of the rectangle.
    bool FillRect(GdiHandle hdc, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom,
                  GdiHandle brush);
    /// ColorNone outside of the bitmap.
    [[nodiscard]] ColorRef GetPixel(GdiHandle hdc, std::int32_t x, std::int32_t y);

    /// Fills `info` in (a header, and colours behind it where it has room) and `bits`, lowest line first. No
    /// `bits`: only the header, for the format that it asks for or, asking for 0 bits a pixel, for the
    /// bitmap's own. The number of lines. `usage` 0: the colours are given as such.
    std::int32_t GetDIBits(GdiHandle hdc, GdiHandle bitmap, std::int32_t first, std::int32_t lines,
                           std::span<std::uint8_t> bits, std::span<std::uint8_t> info, std::int32_t usage);
    /// The number of lines drawn.
    std::int32_t StretchDIBits(GdiHandle hdc, const GdiArea& to, const GdiArea& from,
                               std::span<const std::uint8_t> bits, std::span<const std::uint8_t> info,
                               std::int32_t usage, RasterOp operation);

    [[nodiscard]] std::optional<IconRecord> GetIconInfo(GdiHandle icon);
    bool DrawIcon(GdiHandle hdc, std::int32_t x, std::int32_t y, GdiHandle icon);
    /// The head of an enhanced metafile; nothing for other objects.
    [[nodiscard]] std::optional<EnhMetaHeader> GetEnhMetaFileHeader(GdiHandle metafile, std::int32_t size);

    /// A block of memory; a flag of 64 zeroes it.
    [[nodiscard]] GdiHandle LocalAlloc(std::int32_t flags, std::int32_t size);
    [[nodiscard]] std::span<std::uint8_t> LocalLock(GdiHandle memory);
    bool LocalUnlock(GdiHandle memory);
    bool LocalFree(GdiHandle memory);

private:
    virtual GdiHandle DoGetDC(GdiHandle window) = 0;
    virtual bool DoReleaseDC(GdiHandle window, GdiHandle hdc) = 0;
    virtual GdiHandle DoCreateDCA(const std::string& driver) = 0;
    virtual GdiHandle DoCreateCompatibleDC(GdiHandle hdc) = 0;
    virtual bool DoDeleteDC(GdiHandle hdc) = 0;
    virtual GdiHandle DoSelectObject(GdiHandle hdc, GdiHandle object) = 0;
    virtual ColorRef DoSetBkColor(GdiHandle hdc, ColorRef color) = 0;
    virtual ColorRef DoSetTextColor(GdiHandle hdc, ColorRef color) = 0;
    virtual ColorRef DoGetBkColor(GdiHandle hdc) = 0;
    virtual ColorRef DoGetTextColor(GdiHandle hdc) = 0;
    virtual bool DoDeleteObject(GdiHandle object) = 0;
    virtual GdiObject DoGetObjectType(GdiHandle object) = 0;
    virtual std::optional<BitmapRecord> DoGetObjectA(GdiHandle bitmap) = 0;
    virtual GdiHandle DoCreateCompatibleBitmap(GdiHandle hdc, std::int32_t width, std::int32_t height) = 0;
    virtual GdiHandle DoCreateBitmap(std::int32_t width, std::int32_t height, std::int32_t planes,
                                     std::int32_t bitsPixel) = 0;
    virtual GdiHandle DoCreateSolidBrush(ColorRef color) = 0;
    virtual GdiHandle DoCreateHalftonePalette(GdiHandle hdc) = 0;
    virtual GdiHandle DoCreatePalette(const LogPalette& palette) = 0;
    virtual GdiHandle DoSelectPalette(GdiHandle hdc, GdiHandle palette, bool background) = 0;
    virtual std::int32_t DoRealizePalette(GdiHandle hdc) = 0;
    virtual std::int32_t DoGetSystemPaletteEntries(GdiHandle hdc, std::int32_t first,
                                                   std::span<PaletteEntry> entries) = 0;
    virtual bool DoBitBlt(GdiHandle hdcDest, const GdiArea& to, GdiHandle hdcSrc, std::int32_t xSrc,
                          std::int32_t ySrc, RasterOp operation) = 0;
    virtual bool DoStretchBlt(GdiHandle hdcDest, const GdiArea& to, GdiHandle hdcSrc, const GdiArea& from,
                              RasterOp operation) = 0;
    virtual bool DoFillRect(GdiHandle hdc, std::int32_t left, std::int32_t top, std::int32_t right,
                            std::int32_t bottom, GdiHandle brush) = 0;
    virtual ColorRef DoGetPixel(GdiHandle hdc, std::int32_t x, std::int32_t y) = 0;
    virtual std::int32_t DoGetDIBits(GdiHandle hdc, GdiHandle bitmap, std::int32_t first, std::int32_t lines,
                                     std::span<std::uint8_t> bits, std::span<std::uint8_t> info,
                                     std::int32_t usage) = 0;
    virtual std::int32_t DoStretchDIBits(GdiHandle hdc, const GdiArea& to, const GdiArea& from,
                                         std::span<const std::uint8_t> bits,
                                         std::span<const std::uint8_t> info, std::int32_t usage,
                                         RasterOp operation) = 0;
    virtual std::optional<IconRecord> DoGetIconInfo(GdiHandle icon) = 0;
    virtual bool DoDrawIcon(GdiHandle hdc, std::int32_t x, std::int32_t y, GdiHandle icon) = 0;
    virtual std::optional<EnhMetaHeader> DoGetEnhMetaFileHeader(GdiHandle metafile, std::int32_t size) = 0;
    virtual GdiHandle DoLocalAlloc(std::int32_t flags, std::int32_t size) = 0;
    virtual std::span<std::uint8_t> DoLocalLock(GdiHandle memory) = 0;
    virtual bool DoLocalUnlock(GdiHandle memory) = 0;
    virtual bool DoLocalFree(GdiHandle memory) = 0;
};

} // namespace qbrpt
