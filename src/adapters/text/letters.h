// Which letters each glyph of a shaped run stands for.
#pragma once

#include "report/text_port.h"

#include <cstddef>
#include <vector>

namespace qbrpt::text {

/// Sets textStart and textLength of the glyphs of one run. They come in drawing order, with textStart at the
/// first byte of their cluster; the run's text goes from byte `first` on for `length` bytes. Where several
/// glyphs draw one cluster, the widest stands for its letters and the others for none.
void AssignLetters(std::vector<report::Glyph>& glyphs, std::size_t first, std::size_t length,
                   bool rightToLeft);

} // namespace qbrpt::text
