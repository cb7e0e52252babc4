// The order of text that mixes right-to-left and left-to-right.
#pragma once

#include "report/text_port.h"

#include <cstdint>
#include <string>
#include <vector>

namespace qbrpt::text {

using Level = std::uint8_t;

/// The embedding level of each character of a paragraph: odd levels read from right to left. Order marks
/// have done their work then and are taken out of `characters`.
void ResolveLevels(std::u32string& characters, report::BaseDirection base, std::vector<Level>& levels);

/// The drawing order, left to right, of parts that stand in reading order with these levels.
void DrawingOrder(const std::vector<Level>& levels, std::vector<std::size_t>& order);

} // namespace qbrpt::text
