#include "report/flow.h"

#include "report/group_breaks.h"

#include <algorithm>

namespace qbrpt::report {

namespace {

constexpr std::size_t RowsAProgress = 4096;

FlowState Beginning(const CompiledDefinition& definition) {
    const std::size_t groups = definition.definition->groups.size();
    return {.groupStart = std::vector<std::size_t>(groups),
            .groupRows = std::vector<std::size_t>(groups),
            .totals = TotalsBook(definition.totals)};
}

} // namespace

Flow::Flow(const CompiledDefinition& definition, std::shared_ptr<const RowSource> rows, Header header)
    : mDefinition(definition), mSource(rows), mRows(std::move(rows), *definition.definition),
      mState(Beginning(definition)), mHeader(header), mGroupTotals(definition.definition->groups.size()) {}

void Flow::AddSections(const SectionPlaces::List& list, std::size_t openGroups, Block& block) const {
    for (const std::size_t section : list)
        block.bands.push_back({section, openGroups});
}

// Footers of a group whose last row is at hand.
void Flow::AddFooters(std::size_t group, Block& block) const {
    const bool alone = group >= block.opensGroup;
    for (const std::size_t section : mDefinition.places.groupFooter[group]) {
        if (!alone || !mDefinition.sections[section].section->skipAlone)
            block.bands.push_back({section, group + 1});
    }
}

bool Flow::Next(Block& block) {
    block.bands.clear();
    block.hasRow = block.isFirst = block.isLast = false;
    block.opensGroup = mDefinition.definition->groups.size();
    switch (mState.phase) {
    case FlowState::Phase::ReportHeader:
        NextHeader(block);
        return mHeader == Header::Alone || NextRow(block);
    case FlowState::Phase::Rows:
        return NextRow(block);
    case FlowState::Phase::ReportFooter:
        return NextFooter(block);
    default:
        return false;
    }
}

void Flow::NextHeader(Block& block) {
    AddSections(mDefinition.places.reportHeader, 0, block);
    mState.phase = FlowState::Phase::Rows;
}

bool Flow::NextRow(Block& block) {
    if (!mRows.Advance()) {
        // No rows at all, or fewer than the source had promised: the footers stand alone.
        mState.phase = FlowState::Phase::ReportFooter;
        return NextFooter(block);
    }
    const SectionPlaces& places = mDefinition.places;
    const std::size_t groupCount = mDefinition.definition->groups.size();
    const RowView& row = *mRows.Current();
    block.hasRow = true;
    block.isFirst = mState.nextRow == 0;
    block.isLast = mRows.Next() == nullptr;
    // Groups need no keys kept: the row before and the row behind tell where they begin and end.
    const bool begins = block.isFirst || !mRows.Previous();
    block.opensGroup = begins ? 0 : FirstDifference(mDefinition.definition->groups, *mRows.Previous(), row);
    ++mState.nextRow;
    for (std::size_t group = block.opensGroup; group < groupCount; ++group)
        AddSections(places.groupHeader[group], group, block);
    AddSections(places.details, groupCount, block);
    const std::size_t closes =
        block.isLast ? 0 : FirstDifference(mDefinition.definition->groups, row, *mRows.Next());
    for (std::size_t group = groupCount; group > closes; --group)
        AddFooters(group - 1, block);
    if (block.isLast) {
        AddSections(places.reportFooter, 0, block);
        mState.phase = FlowState::Phase::Done;
    }
    return true;
}

bool Flow::NextFooter(Block& block) {
    AddSections(mDefinition.places.reportFooter, 0, block);
    block.isLast = true;
    mState.phase = FlowState::Phase::Done;
    return true;
}

void Flow::Commit(const Block& block) {
    if (!block.hasRow) return;
    const std::size_t row = mState.nextRow - 1;
    if (block.opensGroup < mState.groupRows.size()) {
        mState.totals.ClearGroups(static_cast<int>(block.opensGroup));
        for (std::size_t group = block.opensGroup; group < mState.groupRows.size(); ++group) {
            mState.groupStart[group] = row;
            mState.groupRows[group] = 0;
        }
    }
    for (std::size_t& rows : mState.groupRows)
        ++rows;
    if (KnowsAllTotals())
        mState.totalsComplete = false;
    else
        mState.totals.AddRow(*mRows.Current());
}

// Whether nothing asks any more for totals that grow from row to row.
bool Flow::KnowsAllTotals() const {
    return mReportTotals && mDefinition.definition->groups.empty() && !mDefinition.rowsShowTotals;
}

void Flow::KeepReportTotals() {
    if (!mReportTotals && mState.totalsComplete && mState.nextRow == mRows.RowCount())
        mReportTotals = std::make_unique<ScopeTotals>(ScopeTotals{mState.totals, mState.nextRow});
}

void Flow::Rewind() {
    Restore(Beginning(mDefinition), false);
}

void Flow::Restore(const FlowState& state, bool withCurrent) {
    mState = state;
    mRows.Seek(withCurrent ? state.nextRow - 1 : state.nextRow);
    if (withCurrent) mRows.Advance();
}

void Flow::JumpToRow(std::size_t row) {
    mState.phase = FlowState::Phase::Rows;
    mState.nextRow = row;
    mState.totals = TotalsBook(mDefinition.totals);
    mState.totalsComplete = row == 0 || mDefinition.totals.empty();
    mRows.Seek(row);
}

const ScopeTotals& Flow::ReportTotals() {
    if (mReportTotals) return *mReportTotals;
    auto whole = std::make_unique<ScopeTotals>(ScopeTotals{TotalsBook(mDefinition.totals), 0});
    RowWindow rows(mSource, *mDefinition.definition);
    while (rows.Advance()) {
        whole->totals.AddRow(*rows.Current());
        if (++whole->rows % RowsAProgress == 0 && mProgress) mProgress(whole->rows);
    }
    mReportTotals = std::move(whole);
    return *mReportTotals;
}

const ScopeTotals& Flow::GroupTotals(std::size_t group, std::size_t firstRow) {
    AheadGroup& ahead = mGroupTotals[group];
    if (ahead.firstRow == firstRow) return *ahead.totals;
    ahead.totals = std::make_unique<ScopeTotals>(ScopeTotals{TotalsBook(mDefinition.totals), 0});
    ahead.firstRow = NoIndex; // until the walk has ended well
    if (!mAhead) mAhead = std::make_unique<RowWindow>(mSource, *mDefinition.definition);
    RowWindow& rows = *mAhead;
    rows.Seek(firstRow);
    const auto& groups = mDefinition.definition->groups;
    while (rows.Advance()) {
        if (ahead.totals->rows > 0 && FirstDifference(groups, *rows.Previous(), *rows.Current()) <= group)
            break;
        ahead.totals->totals.AddRow(*rows.Current());
        if (++ahead.totals->rows % RowsAProgress == 0 && mProgress) mProgress(ahead.totals->rows);
    }
    if (mDefinition.headersShowReportTotals) ahead.totals->totals.TakeReportTotals(ReportTotals().totals);
    ahead.firstRow = firstRow;
    return *ahead.totals;
}

} // namespace qbrpt::report
