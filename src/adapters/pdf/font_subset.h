// A font file cut down to the glyphs that a document draws.
#pragma once

#include "adapters/text/font_face.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>

namespace qbrpt::pdf {

struct FontSubset {
    std::string file;                              ///< a TrueType file
    std::map<std::uint16_t, std::uint16_t> glyphs; ///< number in the whole font -> number in `file`
};

/// Raises FailureNumber::Output when the font cannot be cut down.
[[nodiscard]] FontSubset CutFont(const text::FontFace& face, const std::set<std::uint16_t>& glyphs);

} // namespace qbrpt::pdf
