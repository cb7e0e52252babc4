#include "support/words.h"

#include "base/failure.h"
#include "base/latin.h"
#include "base/numbers.h"

#include <algorithm>

namespace qbrpt {

std::int32_t RectWidth(const Rect& rc) {
    return CheckedLong(std::int64_t{rc.right} - rc.left);
}

std::int32_t RectHeight(const Rect& rc) {
    return CheckedLong(std::int64_t{rc.bottom} - rc.top);
}

std::int32_t MakeLong(std::int16_t nLow, std::int16_t nHigh) {
    const auto high = static_cast<std::uint32_t>(static_cast<std::uint16_t>(nHigh)) << 16U;
    return static_cast<std::int32_t>(high | static_cast<std::uint16_t>(nLow));
}

std::int16_t LoWord(std::int32_t n) {
    return static_cast<std::int16_t>(static_cast<std::uint32_t>(n) & 0xFFFFU);
}

std::int16_t HiWord(std::int32_t n) {
    return static_cast<std::int16_t>(static_cast<std::uint32_t>(n) >> 16U);
}

std::int32_t BitNot(std::int32_t n) {
    return ~n;
}

std::int32_t ShiftLeft(std::int32_t n, std::int32_t nBits) {
    // 0 stays 0 however often it is doubled; anything else overflows within 32 turns.
    for (std::int32_t turn = 0; n != 0 && turn < std::max(nBits, 1); ++turn)
        n = CheckedLong(std::int64_t{n} * 2);
    return n;
}

std::int32_t ShiftRight(std::int32_t n, std::int32_t nBits) {
    for (std::int32_t turn = 0; n != 0 && turn < std::max(nBits, 1); ++turn)
        n /= 2;
    return n;
}

std::string ReplaceAnyCase(std::string_view text, std::string_view what, std::string_view by) {
    const auto same = [](char one, char other) { return SameAnyCase(one, other); };
    std::string result;
    auto rest = text.begin();
    for (;;) {
        const auto found = std::search(rest, text.end(), what.begin(), what.end(), same);
        result.append(rest, found);
        if (found == text.end()) return result;
        result.append(by);
        rest = found + static_cast<std::ptrdiff_t>(what.size());
    }
}

std::string TrimAtNul(std::string_view s) {
    return std::string(s.substr(0, s.find('\0')));
}

std::vector<std::uint8_t> BytesFromMemory(const void* p, std::int32_t nSize) {
    if (nSize < 1) return {};
    if (p == nullptr) throw Failure(FailureNumber::InvalidArgument, "There is no memory to copy bytes from.");
    const auto* bytes = static_cast<const std::uint8_t*>(p);
    return {bytes, bytes + nSize};
}

} // namespace qbrpt
