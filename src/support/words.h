// Words, bits, bytes and rectangles.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt {

/// The sides of a rectangle; right and bottom lie outside it.
struct Rect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
};

/// Right minus left, bottom minus top. What does not fit 32 bits is FailureNumber::Overflow.
[[nodiscard]] std::int32_t RectWidth(const Rect& rc);
[[nodiscard]] std::int32_t RectHeight(const Rect& rc);

/// A 32-bit number from its two halves, and the halves of one.
[[nodiscard]] std::int32_t MakeLong(std::int16_t nLow, std::int16_t nHigh);
[[nodiscard]] std::int16_t LoWord(std::int32_t n);
[[nodiscard]] std::int16_t HiWord(std::int32_t n);

/// The bitwise complement.
[[nodiscard]] std::int32_t BitNot(std::int32_t n);

/// `n` doubled as often as `nBits` says, at least once. FailureNumber::Overflow outside 32 bits.
[[nodiscard]] std::int32_t ShiftLeft(std::int32_t n, std::int32_t nBits);
/// `n` halved as often as `nBits` says, at least once; each time towards 0.
[[nodiscard]] std::int32_t ShiftRight(std::int32_t n, std::int32_t nBits);

/// `s` up to its first NUL, or `s` whole if it has none.
[[nodiscard]] std::string TrimAtNul(std::string_view s);

/// `text` with every `what`, in any case of Latin letters, replaced by `by`. `what` must not be empty.
[[nodiscard]] std::string ReplaceAnyCase(std::string_view text, std::string_view what, std::string_view by);

/// A copy of `nSize` bytes at `p`; empty for a size below 1. No memory at all is
/// FailureNumber::InvalidArgument.
[[nodiscard]] std::vector<std::uint8_t> BytesFromMemory(const void* p, std::int32_t nSize);

} // namespace qbrpt
