#include "adapters/gdi/dib_bits.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace qbrpt::gdi {

namespace {

constexpr std::size_t HeaderSize = sizeof(BitmapInfoHeader);
constexpr std::size_t BytesAColor = 4;
constexpr std::size_t MonoColors = 2;

bool IsOwnFormat(const BitmapInfoHeader& header) {
    return header.biCompression == 0 && header.biPlanes == 1 && header.biWidth > 0 && header.biHeight > 0 &&
           (header.biBitCount == 1 || header.biBitCount == 24 || header.biBitCount == 32);
}

std::size_t RowSize(std::int64_t width, std::int16_t bitsPixel) {
    constexpr std::int64_t unitBits = 32;
    return static_cast<std::size_t>((width * bitsPixel + unitBits - 1) / unitBits * 4);
}

void PutColor(ColorRef color, std::uint8_t* bytes) {
    bytes[0] = static_cast<std::uint8_t>(color >> 16);
    bytes[1] = static_cast<std::uint8_t>(color >> 8);
    bytes[2] = static_cast<std::uint8_t>(color);
}

ColorRef ColorAt(const std::uint8_t* bytes) {
    return ColorRef{bytes[2]} | ColorRef{bytes[1]} << 8 | ColorRef{bytes[0]} << 16;
}

void PutPixel(ColorRef color, std::size_t x, std::int16_t bitsPixel, std::uint8_t* row) {
    if (bitsPixel != 1) {
        PutColor(color, row + x * static_cast<std::size_t>(bitsPixel / 8));
        return;
    }
    const auto bit = static_cast<std::uint8_t>(0x80U >> x % 8);
    if (color == ColorWhite) row[x / 8] |= bit;
}

ColorRef PixelAt(std::size_t x, std::int16_t bitsPixel, const std::uint8_t* row,
                 const std::array<ColorRef, MonoColors>& colors) {
    if (bitsPixel != 1) return ColorAt(row + x * static_cast<std::size_t>(bitsPixel / 8));
    return colors[row[x / 8] >> (7 - x % 8) & 1U];
}

} // namespace

std::optional<BitmapInfoHeader> HeaderOf(std::span<const std::uint8_t> info) {
    BitmapInfoHeader header;
    if (info.size() < HeaderSize) return std::nullopt;
    std::memcpy(&header, info.data(), HeaderSize);
    if (header.biSize != static_cast<std::int32_t>(HeaderSize)) return std::nullopt;
    return header;
}

void PutHeader(const BitmapInfoHeader& header, std::span<std::uint8_t> info) {
    std::memcpy(info.data(), &header, HeaderSize);
}

std::int64_t SizeOfBits(std::int32_t width, std::int32_t height, std::int16_t bitsPixel) {
    return static_cast<std::int64_t>(RowSize(width, bitsPixel)) * height;
}

BitmapInfoHeader OwnHeader(const Surface& surface) {
    BitmapInfoHeader header;
    header.biSize = HeaderSize;
    header.biWidth = surface.width;
    header.biHeight = surface.height;
    header.biPlanes = 1;
    header.biBitCount = surface.bitsPixel;
    header.biSizeImage =
        static_cast<std::int32_t>(SizeOfBits(surface.width, surface.height, surface.bitsPixel));
    return header;
}

std::int32_t WriteBits(const Surface& surface, const BitmapInfoHeader& header, std::int32_t first,
                       std::int32_t lines, std::span<std::uint8_t> bits, std::span<std::uint8_t> info) {
    const bool whole = header.biWidth == surface.width && header.biHeight == surface.height;
    if (!whole || !IsOwnFormat(header) || first < 0 || first >= surface.height || lines <= 0) return 0;
    const std::int32_t count = std::min(lines, surface.height - first);
    const std::size_t rowSize = RowSize(surface.width, header.biBitCount);
    if (bits.size() < rowSize * static_cast<std::size_t>(count)) return 0;
    if (header.biBitCount == 1) {
        if (info.size() < HeaderSize + MonoColors * BytesAColor) return 0;
        std::fill_n(info.begin() + HeaderSize, MonoColors * BytesAColor, std::uint8_t{0});
        PutColor(ColorWhite, info.data() + HeaderSize + BytesAColor);
    }
    std::uint8_t* row = bits.data();
    for (std::int32_t line = first; line < first + count; ++line, row += rowSize) {
        std::fill_n(row, rowSize, std::uint8_t{0});
        for (std::int32_t x = 0; x < surface.width; ++x)
            PutPixel(surface.At(x, surface.height - 1 - line), static_cast<std::size_t>(x), header.biBitCount,
                     row);
    }
    return count;
}

std::optional<Surface> ReadBits(std::span<const std::uint8_t> bits, std::span<const std::uint8_t> info) {
    const auto header = HeaderOf(info);
    if (!header || !IsOwnFormat(*header)) return std::nullopt;
    const std::size_t rowSize = RowSize(header->biWidth, header->biBitCount);
    if (bits.size() < rowSize * static_cast<std::size_t>(header->biHeight)) return std::nullopt;
    std::array<ColorRef, MonoColors> colors{};
    if (header->biBitCount == 1) {
        if (info.size() < HeaderSize + MonoColors * BytesAColor) return std::nullopt;
        colors = {ColorAt(info.data() + HeaderSize), ColorAt(info.data() + HeaderSize + BytesAColor)};
    }
    Surface surface = BlackSurface(header->biWidth, header->biHeight, 32);
    for (std::int32_t y = 0; y < surface.height; ++y) {
        const std::uint8_t* row = bits.data() + rowSize * static_cast<std::size_t>(surface.height - 1 - y);
        for (std::int32_t x = 0; x < surface.width; ++x)
            surface.At(x, y) = PixelAt(static_cast<std::size_t>(x), header->biBitCount, row, colors);
    }
    return surface;
}

} // namespace qbrpt::gdi
