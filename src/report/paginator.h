// Puts bands on pages, one page at a time. The same walk measures (without a builder) and builds.
#pragma once

#include "report/band_metrics.h"
#include "report/document.h"
#include "report/flow.h"
#include "report/page_builder.h"

#include <map>
#include <memory>
#include <vector>

namespace qbrpt::report {

/// A block on its way onto paper.
struct PendingBlock {
    Block block;
    std::vector<Twips> heights;
    std::size_t next = 0;   ///< band to be placed
    Twips slice = 0;        ///< how much of it stands on pages already
    bool taken = false;     ///< there is a block
    bool committed = false; ///< some of it is on paper: its row is in the totals
    bool rowOnPage = false; ///< its row itself is on paper
    bool waited = false;    ///< was moved to a new page, and must begin on that one
    bool above = false;     ///< the row before stands right above on the same page
};

/// Everything needed to go on at the beginning of a page.
struct PaginatorState {
    struct Level {
        std::size_t flow = 0;
        Twips rightInset = 0;
        FlowState flowState;
        PendingBlock pending;
    };
    std::size_t page = 0; ///< from 0
    bool headerDone = false;
    std::vector<Level> levels; ///< the report, and the subreport that it is in
};

class Paginator {
public:
    Paginator(const Definition& definition, std::shared_ptr<const RowSource> rows,
              const DocumentContext& context);

    /// Lays out one page; into `builder`, where there is one. False when it was the last.
    bool RunPage(PageBuilder* builder, std::size_t pageCount);

    /// All pages have been laid out once, in order.
    void Finish() { mFlows.front()->KeepReportTotals(); }

    [[nodiscard]] TextFitter& Fitter() { return mFitter; }
    /// The page that RunPage comes to next, from 0.
    [[nodiscard]] std::size_t PageIndex() const { return mPage; }
    /// Rows of the report that stand on pages so far.
    [[nodiscard]] std::size_t RowsPlaced() const;
    [[nodiscard]] std::size_t RowCount() const { return mFlows.front()->Rows().RowCount(); }

    [[nodiscard]] PaginatorState Save() const;
    void Restore(const PaginatorState& state);
    /// Goes to a page of a report without groups that begins with row `row`.
    void JumpTo(std::size_t page, std::size_t row);

    /// Where every later page looks the same but for its rows.
    struct EvenPages {
        bool even = false;
        Twips body = 0;   ///< between headers and footers of a later page
        Twips row = 0;    ///< height of a row
        Twips footer = 0; ///< height of the sections behind the last row
    };
    /// Asked for at the beginning of the second page.
    [[nodiscard]] EvenPages LookAhead();

private:
    struct Level {
        std::size_t flow = 0;
        Twips rightInset = 0; ///< of a subreport, from the template's right edge
        PendingBlock pending;
    };
    enum class Step : std::uint8_t { Done, PageFull, Entered };

    void BeginPage();
    bool FillPage();
    void EndPage();
    void PlacePageHeaders();
    void PlaceRepeatedHeaders(std::size_t openGroups);

    Step PlaceBlock(Level& level);
    Step PlaceTogether(Level& level, std::size_t end);
    Step PlaceParts(Level& level, std::size_t end);
    Step PlaceBand(Level& level);
    Step PlaceSlice(Level& level);
    [[nodiscard]] bool BeginsPage(const Level& level);
    [[nodiscard]] std::size_t EndOfTogether(const Level& level);
    void AddFlows(const CompiledDefinition& definition);
    void MeasurePending(Level& level);
    Step FinishBand(Level& level, const CompiledSection& section);
    bool EnterSubreport(const Level& level, const CompiledSection& section);
    void Touch(Level& level, const CompiledSection& section);
    void FinishBlock(Level& level);
    void PutRowOnPage(Level& level);

    [[nodiscard]] FormatScope ScopeOf(Level& level, const CompiledSection& section, bool continued);
    [[nodiscard]] const TotalsBook* BookOf(Flow& flow, const CompiledSection& section, bool continued,
                                           std::size_t& rows);
    Twips Measure(Level& level, const CompiledSection& section, const FormatScope& scope);
    void Draw(Level& level, const CompiledSection& section, const FormatScope& scope, Twips height,
              Twips sliceTop, Twips sliceBottom);
    void RaiseFormat(const CompiledSection& section);

    [[nodiscard]] bool IsOn(const CompiledSection& section, std::size_t page) const;
    /// Where a page header begins on a page, from its own top.
    [[nodiscard]] static Twips TopOn(const CompiledSection& section, std::size_t page);
    [[nodiscard]] Twips HeadersHeight(std::size_t page);
    [[nodiscard]] Twips FootersHeight(std::size_t page) const;
    [[nodiscard]] Twips FreshBody(Level& level, std::size_t openGroups);
    [[nodiscard]] Twips RepeatedHeight(Level& level, std::size_t openGroups);
    [[nodiscard]] bool IsPlain(std::size_t page);
    [[nodiscard]] Twips Remaining() const { return mBottom - mY; }

    [[nodiscard]] Flow& FlowOf(const Level& level) { return *mFlows[level.flow]; }
    [[nodiscard]] const CompiledSection& SectionOf(const Level& level, std::size_t band) {
        return FlowOf(level).Compiled().sections[level.pending.block.bands[band].section];
    }

    const DocumentContext& mContext;
    CompiledDefinition mDefinition;
    TextFitter mFitter;
    BandMetrics mMetrics;
    std::vector<std::unique_ptr<Flow>> mFlows; ///< the report's first, then those of subreports with rows
    std::vector<std::unique_ptr<SectionText>> mTexts;
    std::map<const CompiledDefinition*, std::size_t> mFlowOf;

    std::vector<Level> mLevels;
    std::size_t mPage = 0;
    bool mHeaderDone = false;
    bool mFinished = false;

    // Of the page in work.
    PageBuilder* mBuilder = nullptr;
    std::size_t mPageCount = 0;
    Twips mY = 0;
    Twips mBottom = 0;
    bool mPlain = false;    ///< without page headers and footers, for want of room
    bool mFresh = true;     ///< nothing but headers stands on it
    bool mRowAbove = false; ///< the last thing on it is a row
    bool mBreakNext = false;
    Twips mLaterHeaders = -1; ///< height of the later pages' headers, once known to be the same on all
};

} // namespace qbrpt::report
