// Draws bands into a page's display list.
#pragma once

#include "report/band_metrics.h"
#include "report/page.h"

#include <map>
#include <vector>

namespace qbrpt::report {

/// A band as the paginator has placed it. Twips.
struct PlacedBand {
    const CompiledSection& section;
    const FormatScope& scope;
    SectionText& text;
    Twips rightEdge = 0;   ///< of the template, from the left of the sheet
    Twips top = 0;         ///< of the whole band on the page; above the page for a later slice
    Twips height = 0;      ///< of the whole band
    Twips sliceTop = 0;    ///< the part that stands on this page, from the band's top
    Twips sliceBottom = 0; ///< where it ends
    std::size_t row = 0;   ///< of a Details band
};

class PageBuilder {
public:
    PageBuilder(Page& page, TextFitter& fitter) : mPage(page), mFitter(fitter), mMetrics(fitter) {}

    void Draw(const PlacedBand& band);
    /// No row follows the last one on this page.
    void Finish() { EndRows(); }

private:
    /// A line that waits to know whether another row follows.
    struct WaitingLine {
        Item item;
        bool yields = false;
    };

    void DrawObject(const PlacedBand& band, std::size_t index);
    void DrawWriting(const PlacedBand& band, std::size_t index);
    void DrawText(const PlacedBand& band, std::size_t index, std::string_view text, Twips left, Twips width);
    void DrawFigures(const PlacedBand& band, std::size_t index, const ValueText& text, Twips left,
                     Twips width);
    void MeasureTotals(const PlacedBand& band);
    void DrawLine(const PlacedBand& band, std::size_t index);
    void DrawBox(const PlacedBand& band, std::size_t index);
    void DrawPicture(const PlacedBand& band, std::size_t index);
    void PassRows(const PlacedBand& band);
    void EndRows();

    [[nodiscard]] Item Start(const PlacedBand& band, std::size_t index, ItemKind kind) const;

    Page& mPage;
    TextFitter& mFitter;
    std::vector<Twips> mTextEnd;        ///< left edge of each object's text in this band
    std::map<Twips, Twips> mTotalSizes; ///< of this band's shrunk rows of totals, by their top
    BandMetrics mMetrics;
    std::vector<WaitingLine> mBetween;
    std::vector<Item> mLast;
    std::size_t mWaitingRow = NoIndex;
};

} // namespace qbrpt::report
