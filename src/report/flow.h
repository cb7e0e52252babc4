// Rows become blocks of bands: what belongs together on paper, in its order, without any page yet.
#pragma once

#include "report/compiled.h"
#include "report/row_window.h"
#include "report/section_text.h"
#include "report/totals.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace qbrpt::report {

/// One section to be put on paper.
struct Band {
    std::size_t section = 0; ///< index into CompiledDefinition::sections
    /// Groups whose headers stand above this band, counted from the outermost: they are repeated when a
    /// page begins with it.
    std::size_t openGroups = 0;
};

/// Bands that should stand on one page: a row with the group headers before it, and with the footers behind
/// it where it is the last of a group or of all.
struct Block {
    std::vector<Band> bands;
    std::size_t opensGroup = 0; ///< the outermost group that begins here; all of them: none begins
    bool hasRow = false;
    bool isFirst = false; ///< of all rows
    bool isLast = false;  ///< of all rows
};

/// Where a flow stands; enough to go on from there.
struct FlowState {
    enum class Phase : std::uint8_t { ReportHeader, Rows, ReportFooter, Done };
    Phase phase = Phase::ReportHeader;
    std::size_t nextRow = 0;
    std::vector<std::size_t> groupStart; ///< first row of each open group
    std::vector<std::size_t> groupRows;  ///< rows of each open group so far
    TotalsBook totals;
    bool totalsComplete = true; ///< every row before `nextRow` is in `totals`
};

/// Totals of a whole scope, for sections that stand above its rows.
struct ScopeTotals {
    TotalsBook totals;
    std::size_t rows = 0;
};

class Flow {
public:
    /// Called with the rows done while a walk of the flow's own goes on.
    using Progress = std::function<void(std::size_t row)>;

    /// Whether the report header is a block of its own or part of the first row's.
    enum class Header : std::uint8_t { Alone, WithFirstRow };

    Flow(const CompiledDefinition& definition, std::shared_ptr<const RowSource> rows, Header header);

    /// Takes the next block; false at the end. Its row becomes Rows().Current().
    bool Next(Block& block);

    /// The block's row is on paper now: takes it into groups and totals.
    void Commit(const Block& block);
    /// The walk has come to its end: what was added up on the way are the totals of the report.
    void KeepReportTotals();
    void CommitToPage() { mState.totals.AddRowToPage(*mRows.Current()); }
    void ClearPageTotals() { mState.totals.ClearPage(); }

    [[nodiscard]] const CompiledDefinition& Compiled() const { return mDefinition; }
    [[nodiscard]] const RowWindow& Rows() const { return mRows; }
    [[nodiscard]] const FlowState& State() const { return mState; }

    /// Back to the beginning.
    void Rewind();
    /// Goes on from `state`. With `withCurrent`, the row before its next one is current, as it was when a
    /// block of it had been taken.
    void Restore(const FlowState& state, bool withCurrent);
    /// Stands before row `row` of a report without groups; the totals know nothing of the rows before.
    void JumpToRow(std::size_t row);

    /// Of all rows; walks them once.
    const ScopeTotals& ReportTotals();
    /// Of the group `group` that begins with row `firstRow`; kept until another is asked for.
    const ScopeTotals& GroupTotals(std::size_t group, std::size_t firstRow);
    void OnProgress(Progress progress) { mProgress = std::move(progress); }

private:
    void AddSections(const SectionPlaces::List& list, std::size_t openGroups, Block& block) const;
    void AddFooters(std::size_t group, Block& block) const;
    void NextHeader(Block& block);
    bool NextRow(Block& block);
    bool NextFooter(Block& block);
    [[nodiscard]] bool KnowsAllTotals() const;

    const CompiledDefinition& mDefinition;
    std::shared_ptr<const RowSource> mSource;
    RowWindow mRows;
    FlowState mState;
    Progress mProgress;

    Header mHeader;

    struct AheadGroup {
        std::size_t firstRow = NoIndex;
        std::unique_ptr<ScopeTotals> totals;
    };
    std::unique_ptr<RowWindow> mAhead; ///< walks a group that has only begun
    std::unique_ptr<ScopeTotals> mReportTotals;
    std::vector<AheadGroup> mGroupTotals;
};

} // namespace qbrpt::report
