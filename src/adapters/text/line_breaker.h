// Fills lines with words.
#pragma once

#include "adapters/text/order.h"
#include "report/text_port.h"

#include <functional>
#include <memory>
#include <vector>

namespace qbrpt::text {

/// What lines are made of: a stretch of letters of one direction, or blanks.
struct Unit {
    std::shared_ptr<const report::ShapedWord> word; ///< null: blanks
    report::Twips width = 0;
    Level level = 0;
};

using Line = std::vector<Unit>; ///< in reading order

/// Cuts a unit that is too wide for a line of its own into pieces of at most `width`, each at least one
/// letter.
using UnitCutter = std::function<std::vector<Unit>(const Unit& unit, report::Twips width)>;

/// Breaks the units of one paragraph into lines no wider than `maxWidth` (0: one line) at blanks, which are
/// dropped at both ends of a line; inside a word only where it is wider than a line. A paragraph of blanks
/// is one empty line.
[[nodiscard]] std::vector<Line> BreakLines(std::vector<Unit> units, report::Twips maxWidth,
                                           const UnitCutter& cut);

} // namespace qbrpt::text
