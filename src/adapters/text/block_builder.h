// Puts lines of words in their drawing order.
#pragma once

#include "adapters/text/line_breaker.h"
#include "adapters/text/order.h"
#include "report/text_port.h"

#include <memory>
#include <span>
#include <vector>

namespace qbrpt::text {

class BlockBuilder {
public:
    void Begin();
    /// Adds a line; its units stand in reading order.
    void AddLine(std::span<const Unit> line);
    /// The block, which keeps its words alive. Empty lines at the end are left out.
    std::shared_ptr<const report::TextBlock> Finish();

private:
    struct OwningBlock : report::TextBlock {
        std::vector<std::shared_ptr<const report::ShapedWord>> owned;
    };
    std::shared_ptr<OwningBlock> mBlock;
    // Working memory, kept from line to line.
    std::vector<Level> mLevels;
    std::vector<std::size_t> mOrder;
};

/// `units` without the blanks at both ends.
[[nodiscard]] std::span<const Unit> WithoutOuterBlanks(std::span<const Unit> units);

[[nodiscard]] report::Twips WidthOf(std::span<const Unit> units);

} // namespace qbrpt::text
