#include "adapters/text/line_breaker.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace qbrpt::text {

namespace {

class Filler {
public:
    Filler(report::Twips maxWidth, const UnitCutter& cut) : mMaxWidth(maxWidth), mCut(cut) {}

    void Blanks(Unit unit) {
        mBlankWidth += unit.width;
        mBlanks.push_back(std::move(unit));
    }

    // A word: units with no blank between them, in [first, last).
    void Word(std::vector<Unit>::iterator first, std::vector<Unit>::iterator last) {
        std::int64_t width = 0;
        for (auto unit = first; unit != last; ++unit)
            width += unit->width;
        if (mMaxWidth > 0 && !mLine.empty() && mWidth + mBlankWidth + width > mMaxWidth) EndLine();
        if (!mLine.empty()) {
            mWidth += mBlankWidth;
            std::move(mBlanks.begin(), mBlanks.end(), std::back_inserter(mLine));
        }
        ForgetBlanks();
        const bool tooWide = mMaxWidth > 0 && width > mMaxWidth;
        for (auto unit = first; unit != last; ++unit)
            tooWide ? AppendCut(*unit) : Append(std::move(*unit));
    }

    std::vector<Line> Finish() {
        EndLine();
        return std::move(mLines);
    }

private:
    void Append(Unit unit) {
        mWidth += unit.width;
        mLine.push_back(std::move(unit));
    }

    void AppendCut(const Unit& unit) {
        if (mWidth + unit.width <= mMaxWidth) return Append(unit);
        if (!mLine.empty()) EndLine();
        if (unit.width <= mMaxWidth) return Append(unit);
        for (Unit& piece : mCut(unit, mMaxWidth)) {
            if (!mLine.empty()) EndLine();
            Append(std::move(piece));
        }
    }

    void EndLine() {
        mLines.push_back(std::move(mLine));
        mLine.clear();
        mWidth = 0;
        ForgetBlanks();
    }

    void ForgetBlanks() {
        mBlanks.clear();
        mBlankWidth = 0;
    }

    report::Twips mMaxWidth;
    const UnitCutter& mCut;
    std::vector<Line> mLines;
    Line mLine;
    std::vector<Unit> mBlanks;
    std::int64_t mWidth = 0;
    std::int64_t mBlankWidth = 0;
};

} // namespace

std::vector<Line> BreakLines(std::vector<Unit> units, report::Twips maxWidth, const UnitCutter& cut) {
    Filler filler(maxWidth, cut);
    for (auto unit = units.begin(); unit != units.end();) {
        if (!unit->word) {
            filler.Blanks(std::move(*unit++));
            continue;
        }
        const auto end = std::find_if(unit, units.end(), [](const Unit& u) { return !u.word; });
        filler.Word(unit, end);
        unit = end;
    }
    return filler.Finish();
}

} // namespace qbrpt::text
