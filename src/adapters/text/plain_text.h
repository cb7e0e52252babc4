// Texts whose order can be told from their bytes.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace qbrpt::text {

struct PlainPiece {
    enum class Kind : std::uint8_t { Blank, Letters, Figures };
    Kind kind = Kind::Blank;
    std::string_view text;
};

/// Cuts a text of Arabic letters, whole figures of ASCII digits and single blanks between them into its
/// pieces, in reading order. False, and nothing promised of `pieces`, where anything else stands in it:
/// marks, Latin letters, figures side by side. Names and days are nearly always plain, and need no look at
/// their neighbours: letters read from right to left, figures from left to right.
[[nodiscard]] bool CutPlain(std::string_view text, std::vector<PlainPiece>& pieces);

} // namespace qbrpt::text
