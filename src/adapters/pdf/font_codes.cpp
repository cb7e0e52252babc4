#include "adapters/pdf/font_codes.h"

#include "base/failure.h"

#include <limits>

namespace qbrpt::pdf {

namespace {

constexpr std::size_t HighestCode = 0xFFFF;
constexpr std::size_t HighestByte = 0xFF;
// Of 256 values of a byte five are left out, so codes run out before their number does.
constexpr std::size_t SkippedPerPage = 5;

bool NeedsEscape(unsigned byte) {
    // A line end needs none, but there are readers that take two of them for one.
    return byte == '(' || byte == ')' || byte == '\\' || byte == '\r' || byte == '\n';
}

bool Usable(std::size_t code) {
    return code != 0 && !NeedsEscape(static_cast<unsigned>(code & 0xFFU)) &&
           !NeedsEscape(static_cast<unsigned>(code >> 8U));
}

std::uint64_t KeyOf(const Code& code) {
    return (std::uint64_t{code.glyph} << 48U) | ((std::uint64_t{code.letter} & 0x1FFFFFU) << 27U) |
           (static_cast<std::uint32_t>(code.advance) & 0x7FFFFFFU);
}

} // namespace

bool CodeTable::HasRoomFor(std::size_t count) const {
    if (mBytes == CodeBytes::One) return mCodes.size() + count + SkippedPerPage <= HighestByte;
    // A run may cross pages of 256 codes; whole pages are skipped too where their first byte is one.
    const std::size_t worst = count + (count / 128 + 2) * SkippedPerPage + std::size_t{2} * 256;
    return mCodes.size() + worst <= HighestCode;
}

std::uint16_t CodeTable::CodeOf(const Code& code) {
    const auto [known, isNew] = mByContent.try_emplace(KeyOf(code), std::uint16_t{0});
    if (!isNew) return known->second;
    while (!Usable(mCodes.size())) {
        mCodes.emplace_back();
        mUsed.push_back(false);
    }
    if (mCodes.size() > (mBytes == CodeBytes::One ? HighestByte : HighestCode))
        throw Failure(FailureNumber::Output, "the PDF cannot be written: a word has too many letters");
    known->second = static_cast<std::uint16_t>(mCodes.size());
    mCodes.push_back(code);
    mUsed.push_back(true);
    return known->second;
}

FontId FontCodes::FontFor(report::FaceId face, std::size_t count, CodeBytes bytes) {
    CurrentFonts& fonts = bytes == CodeBytes::One ? mWithOneByte : mWithTwoBytes;
    if (face >= fonts.size()) fonts.resize(std::size_t{face} + 1);
    std::optional<FontId>& current = fonts[face];
    if (current && mTables[*current]->HasRoomFor(count)) return *current;
    if (mTables.size() > std::numeric_limits<FontId>::max())
        throw Failure(FailureNumber::Output, "the PDF cannot be written: it needs more than 65536 fonts");
    mTables.push_back(std::make_unique<CodeTable>(face, bytes));
    current = static_cast<FontId>(mTables.size() - 1);
    return *current;
}

} // namespace qbrpt::pdf
