// Character codes of the fonts in one PDF file.
#pragma once

#include "report/text_port.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace qbrpt::pdf {

/// Number of a font in the file; its resource name is "F" and this number.
using FontId = std::uint16_t;

/// What one code draws, reads as and advances by. One code for each distinct triple: so a code gives back
/// one letter, and no gap has to be written between letters, which readers would take for a blank.
struct Code {
    std::uint16_t glyph = 0;
    char32_t letter = 0;      ///< 0: none
    std::int32_t advance = 0; ///< ten-thousandths of the font size
};

/// How many bytes a code of a font takes. Figures are few, and most of what stands on a page: one byte each
/// makes the page a sixth shorter.
enum class CodeBytes : std::uint8_t { One = 1, Two = 2 };

/// The codes of one font; those that a string would have to escape are left out.
class CodeTable {
public:
    explicit CodeTable(report::FaceId face, CodeBytes bytes = CodeBytes::Two) : mFace(face), mBytes(bytes) {}

    /// Whether `count` more codes fit.
    [[nodiscard]] bool HasRoomFor(std::size_t count) const;
    std::uint16_t CodeOf(const Code& code);

    [[nodiscard]] report::FaceId Face() const { return mFace; }
    [[nodiscard]] CodeBytes Bytes() const { return mBytes; }
    /// By code; those that are not used have neither letter, glyph nor advance.
    [[nodiscard]] const std::vector<Code>& Codes() const { return mCodes; }
    [[nodiscard]] bool IsUsed(std::size_t code) const { return mUsed[code]; }

private:
    report::FaceId mFace;
    CodeBytes mBytes;
    std::vector<Code> mCodes;
    std::vector<bool> mUsed;
    std::unordered_map<std::uint64_t, std::uint16_t> mByContent;
};

/// All fonts of a file. A face gets a further font when the codes of its first are used up.
class FontCodes {
public:
    /// The font of `face` that takes `count` more codes.
    FontId FontFor(report::FaceId face, std::size_t count, CodeBytes bytes = CodeBytes::Two);
    [[nodiscard]] CodeTable& Table(FontId font) { return *mTables.at(font); }
    [[nodiscard]] std::size_t Count() const { return mTables.size(); }

private:
    std::vector<std::unique_ptr<CodeTable>> mTables;
    using CurrentFonts = std::vector<std::optional<FontId>>; ///< by face
    CurrentFonts mWithTwoBytes;
    CurrentFonts mWithOneByte;
};

} // namespace qbrpt::pdf
