#include "adapters/text/block_builder.h"

#include <algorithm>

namespace qbrpt::text {

void BlockBuilder::Begin() {
    mBlock = std::make_shared<OwningBlock>();
}

void BlockBuilder::AddLine(std::span<const Unit> line) {
    mLevels.clear();
    for (const Unit& unit : line)
        mLevels.push_back(unit.level);
    DrawingOrder(mLevels, mOrder);
    report::TextLine& placed = mBlock->lines.emplace_back();
    placed.words.reserve(line.size());
    mBlock->owned.reserve(mBlock->owned.size() + line.size());
    for (const std::size_t i : mOrder) {
        if (line[i].word) {
            placed.words.push_back({line[i].word.get(), placed.width});
            mBlock->owned.push_back(line[i].word);
        }
        placed.width += line[i].width;
    }
    mBlock->width = std::max(mBlock->width, placed.width);
}

std::shared_ptr<const report::TextBlock> BlockBuilder::Finish() {
    while (!mBlock->lines.empty() && mBlock->lines.back().words.empty())
        mBlock->lines.pop_back();
    return std::move(mBlock);
}

std::span<const Unit> WithoutOuterBlanks(std::span<const Unit> units) {
    while (!units.empty() && !units.front().word)
        units = units.subspan(1);
    while (!units.empty() && !units.back().word)
        units = units.first(units.size() - 1);
    return units;
}

report::Twips WidthOf(std::span<const Unit> units) {
    report::Twips width = 0;
    for (const Unit& unit : units)
        width += unit.width;
    return width;
}

} // namespace qbrpt::text
