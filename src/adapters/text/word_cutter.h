// Where a word that is wider than its line may be cut.
#pragma once

#include "report/text_port.h"

#include <cstddef>
#include <vector>

namespace qbrpt::text {

/// The ends of the pieces, as bytes of the word's text; the last is its length. Each piece is no wider than
/// `width`, or a single letter with its marks. Ligatures stay whole.
[[nodiscard]] std::vector<std::size_t> CutWord(const report::ShapedWord& word, report::Twips width);

} // namespace qbrpt::text
