#include "adapters/database/row_codec.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace qbrpt::database {

namespace {

// Tags below ShortText say kind and form. From ShortText on the tag carries the length of a short text, as
// most texts are.
enum Tag : unsigned char {
    NullTag,
    FalseTag,
    TrueTag,
    WholeTag,       // then a number of variable length
    NumberTag,      // then eight bytes
    WholeNumberTag, // a Number without a fraction, kept like a Whole
    DateTag,        // then eight bytes
    TextTag,        // then length and bytes
    ShortText = 16
};
constexpr std::size_t LongestShortText = 255 - ShortText;
constexpr std::size_t LongestVariable = 10;
constexpr std::size_t LargestPlainCell = 1 + LongestVariable;
// Doubles hold whole numbers exactly up to here.
constexpr double LargestExactWhole = 9007199254740992.0;

char* PutVariable(char* to, std::uint64_t value) {
    while (value >= 0x80U) {
        *to++ = static_cast<char>(value | 0x80U);
        value >>= 7U;
    }
    *to++ = static_cast<char>(value);
    return to;
}

const char* TakeVariable(const char* from, std::uint64_t& value) {
    value = static_cast<unsigned char>(*from++);
    if (value < 0x80U) return from;
    value &= 0x7FU;
    for (unsigned shift = 7;; shift += 7U) {
        const auto byte = static_cast<unsigned char>(*from++);
        value |= static_cast<std::uint64_t>(byte & 0x7FU) << shift;
        if (byte < 0x80U) return from;
    }
}

// Small numbers of either sign become small unsigned ones.
std::uint64_t FoldSign(std::int64_t value) {
    return (static_cast<std::uint64_t>(value) << 1U) ^ static_cast<std::uint64_t>(value >> 63);
}

std::int64_t UnfoldSign(std::uint64_t value) {
    return static_cast<std::int64_t>((value >> 1U) ^ (~(value & 1U) + 1U));
}

char* PutTag(char* to, unsigned char tag) {
    *to = static_cast<char>(tag);
    return to + 1;
}

char* PutEight(char* to, double value) {
    std::memcpy(to, &value, sizeof value);
    return to + sizeof value;
}

std::uint64_t BitsOf(double value) {
    return std::bit_cast<std::uint64_t>(value);
}

char* PutNumber(char* to, double value) {
    const bool inRange = value > -LargestExactWhole && value < LargestExactWhole;
    const auto whole = inRange ? static_cast<std::int64_t>(value) : 0;
    // A negative zero has a sign that a whole number would lose.
    if (inRange && BitsOf(static_cast<double>(whole)) == BitsOf(value))
        return PutVariable(PutTag(to, WholeNumberTag), FoldSign(whole));
    return PutEight(PutTag(to, NumberTag), value);
}

char* PutText(char* to, std::string_view text) {
    if (text.size() <= LongestShortText)
        to = PutTag(to, static_cast<unsigned char>(ShortText + text.size()));
    else
        to = PutVariable(PutTag(to, TextTag), text.size());
    if (!text.empty()) std::memcpy(to, text.data(), text.size());
    return to + text.size();
}

char* PutCell(char* to, const CellView& cell) {
    switch (cell.kind) {
    case ValueKind::Null:
        return PutTag(to, NullTag);
    case ValueKind::Boolean:
        return PutTag(to, cell.whole != 0 ? TrueTag : FalseTag);
    case ValueKind::Whole:
        return PutVariable(PutTag(to, WholeTag), FoldSign(cell.whole));
    case ValueKind::Number:
        return PutNumber(to, cell.number);
    case ValueKind::Date:
        return PutEight(PutTag(to, DateTag), cell.number);
    case ValueKind::Text:
        break;
    }
    return PutText(to, cell.text);
}

const char* TakeWhole(const char* from, CellView& cell, ValueKind kind) {
    std::uint64_t folded = 0;
    from = TakeVariable(from, folded);
    cell.kind = kind;
    cell.whole = UnfoldSign(folded);
    cell.number = static_cast<double>(cell.whole);
    return from;
}

const char* TakeEight(const char* from, CellView& cell, ValueKind kind) {
    cell.kind = kind;
    std::memcpy(&cell.number, from, sizeof cell.number);
    return from + sizeof cell.number;
}

const char* TakeText(const char* from, CellView& cell, std::size_t size) {
    cell.kind = ValueKind::Text;
    cell.text = {from, size};
    return from + size;
}

const char* TakeCell(const char* from, CellView& cell) {
    const auto tag = static_cast<unsigned char>(*from++);
    cell = {};
    if (tag >= ShortText) return TakeText(from, cell, tag - static_cast<std::size_t>(ShortText));
    switch (tag) {
    case FalseTag:
    case TrueTag:
        cell.kind = ValueKind::Boolean;
        cell.whole = tag == TrueTag ? 1 : 0;
        return from;
    case WholeTag:
        return TakeWhole(from, cell, ValueKind::Whole);
    case WholeNumberTag:
        from = TakeWhole(from, cell, ValueKind::Number);
        cell.whole = 0;
        return from;
    case NumberTag:
        return TakeEight(from, cell, ValueKind::Number);
    case DateTag:
        return TakeEight(from, cell, ValueKind::Date);
    case TextTag: {
        std::uint64_t size = 0;
        from = TakeVariable(from, size);
        return TakeText(from, cell, size);
    }
    default:
        return from;
    }
}

} // namespace

void AppendRow(const RowView& row, std::string& bytes, std::string& scratch) {
    std::size_t room = 0;
    for (const CellView& cell : row)
        room += LargestPlainCell + (cell.kind == ValueKind::Text ? cell.text.size() : 0);
    if (scratch.size() < room) scratch.resize(room);
    char* end = scratch.data();
    for (const CellView& cell : row)
        end = PutCell(end, cell);
    const auto size = static_cast<std::size_t>(end - scratch.data());
    std::array<char, LongestVariable> length{};
    bytes.append(length.data(), static_cast<std::size_t>(PutVariable(length.data(), size) - length.data()));
    bytes.append(scratch.data(), size);
}

const char* ReadRow(const char* position, RowView& row) {
    std::uint64_t size = 0;
    position = TakeVariable(position, size);
    for (CellView& cell : row)
        position = TakeCell(position, cell);
    return position;
}

const char* SkipRow(const char* position) {
    std::uint64_t size = 0;
    position = TakeVariable(position, size);
    return position + size;
}

} // namespace qbrpt::database
