// Device independent bits: rows from the lowest up, each filled to 4 bytes.
#pragma once

#include "adapters/gdi/surface.h"

#include <optional>
#include <span>

namespace qbrpt::gdi {

/// The header at the head of `info`; nothing where it holds less, or says another size.
[[nodiscard]] std::optional<BitmapInfoHeader> HeaderOf(std::span<const std::uint8_t> info);
void PutHeader(const BitmapInfoHeader& header, std::span<std::uint8_t> info);

/// Of the bits of a whole picture, in bytes.
[[nodiscard]] std::int64_t SizeOfBits(std::int32_t width, std::int32_t height, std::int16_t bitsPixel);

/// The header of a picture's own bits: 1, 24 or 32 a pixel.
[[nodiscard]] BitmapInfoHeader OwnHeader(const Surface& surface);

/// Writes `lines` rows from row `first` (from the lowest, 0) as `header` asks, with the colours that belong
/// to them behind it. The number of rows; 0 for a format that is none of a picture's own, and for too little
/// room.
std::int32_t WriteBits(const Surface& surface, const BitmapInfoHeader& header, std::int32_t first,
                       std::int32_t lines, std::span<std::uint8_t> bits, std::span<std::uint8_t> info);

/// The picture of such bits; nothing where they are no whole one.
[[nodiscard]] std::optional<Surface> ReadBits(std::span<const std::uint8_t> bits,
                                              std::span<const std::uint8_t> info);

} // namespace qbrpt::gdi
