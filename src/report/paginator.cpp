#include "report/paginator.h"

#include "base/failure.h"

#include <algorithm>

namespace qbrpt::report {

namespace {

// A page whose headers and footers leave less than this for rows goes without them.
constexpr Twips LeastBody = 720;
constexpr std::size_t DeepestLevel = 8;

} // namespace

Paginator::Paginator(const Definition& definition, std::shared_ptr<const RowSource> rows,
                     const DocumentContext& context)
    : mContext(context), mDefinition(definition, *context.text), mFitter(*context.text), mMetrics(mFitter) {
    const Twips room = context.sheet.height - definition.top - definition.bottom;
    if (context.sheet.width <= 0 || room < LeastBody) {
        throw Failure(FailureNumber::Report, "The paper is too small for the report \"" + definition.name +
                                                 "\": choose a larger paper.");
    }
    mFlows.push_back(std::make_unique<Flow>(mDefinition, std::move(rows), Flow::Header::Alone));
    mTexts.push_back(std::make_unique<SectionText>(mDefinition, context.printedAt));
    AddFlows(mDefinition);
    if (context.onProgress) {
        for (const auto& flow : mFlows)
            flow->OnProgress([this](std::size_t row) { mContext.onProgress(row, RowCount()); });
    }
    mLevels.reserve(DeepestLevel); // levels are referred to while deeper ones are entered
    mLevels.push_back({});
}

void Paginator::AddFlows(const CompiledDefinition& definition) {
    for (const auto& [name, inside] : definition.subreports) {
        const auto rows = mContext.subreportRows.find(name);
        if (rows == mContext.subreportRows.end() || !rows->second) continue;
        mFlowOf[inside.get()] = mFlows.size();
        mFlows.push_back(std::make_unique<Flow>(*inside, rows->second, Flow::Header::WithFirstRow));
        mTexts.push_back(std::make_unique<SectionText>(*inside, mContext.printedAt));
        AddFlows(*inside);
    }
}

// A page in three phases: its headers, bands until it is full or nothing is left, its footers.
bool Paginator::RunPage(PageBuilder* builder, std::size_t pageCount) {
    mBuilder = builder;
    mPageCount = pageCount;
    BeginPage();
    const bool more = FillPage();
    EndPage();
    ++mPage;
    mBuilder = nullptr;
    return more;
}

void Paginator::BeginPage() {
    for (const Level& level : mLevels)
        FlowOf(level).ClearPageTotals();
    mFresh = true;
    mRowAbove = mBreakNext = false;
    mPlain = IsPlain(mPage);
    mY = mDefinition.definition->top;
    mBottom = mContext.sheet.height - mDefinition.definition->bottom - (mPlain ? 0 : FootersHeight(mPage));
    if (mHeaderDone) PlacePageHeaders();
    PendingBlock& pending = mLevels.back().pending;
    if (!pending.taken) return;
    if (pending.next < pending.block.bands.size())
        PlaceRepeatedHeaders(pending.block.bands[pending.next].openGroups);
    MeasurePending(mLevels.back());
}

// False when the report is finished, true when the page is full.
bool Paginator::FillPage() {
    for (;;) {
        Level& level = mLevels.back();
        PendingBlock& pending = level.pending;
        if (!pending.taken) {
            if (!FlowOf(level).Next(pending.block)) {
                if (mLevels.size() == 1) return false;
                mLevels.pop_back();
                MeasurePending(mLevels.back());
                continue;
            }
            pending.taken = true;
            pending.next = 0;
            pending.slice = 0;
            pending.committed = pending.rowOnPage = pending.waited = false;
            MeasurePending(level);
        }
        const Step step = PlaceBlock(level);
        if (step == Step::PageFull) return true;
        if (step == Step::Entered) continue;
        FinishBlock(level);
        if (mHeaderDone) continue;
        // The report header stands: the page headers come below it, or on the next page with the rows.
        mHeaderDone = true;
        if (!mPlain && Remaining() < HeadersHeight(mPage) + LeastBody) return true;
        PlacePageHeaders();
    }
}

void Paginator::EndPage() {
    if (mBuilder) mBuilder->Finish();
    if (mPlain || !mBuilder) return;
    mY = mBottom;
    for (const std::size_t index : mDefinition.places.pageFooter) {
        const CompiledSection& section = mDefinition.sections[index];
        if (!IsOn(section, mPage)) continue;
        const FormatScope scope = ScopeOf(mLevels.front(), section, false);
        const Twips height = Measure(mLevels.front(), section, scope);
        Draw(mLevels.front(), section, scope, height, 0, height);
        mY += section.section->height;
    }
}

void Paginator::PlacePageHeaders() {
    if (mPlain) return;
    for (const std::size_t index : mDefinition.places.pageHeader) {
        const CompiledSection& section = mDefinition.sections[index];
        if (!IsOn(section, mPage)) continue;
        const FormatScope scope = ScopeOf(mLevels.front(), section, false);
        const Twips height = Measure(mLevels.front(), section, scope);
        const Twips top = TopOn(section, mPage);
        Draw(mLevels.front(), section, scope, height, top, height);
        mY += height - top;
    }
    mRowAbove = false;
}

void Paginator::PlaceRepeatedHeaders(std::size_t openGroups) {
    Level& level = mLevels.back();
    if (openGroups == 0 || Remaining() - RepeatedHeight(level, openGroups) < LeastBody) return;
    const CompiledDefinition& definition = FlowOf(level).Compiled();
    for (std::size_t group = 0; group < openGroups; ++group) {
        for (const std::size_t index : definition.places.groupHeader[group]) {
            const CompiledSection& section = definition.sections[index];
            if (!section.section->repeat || section.section->suppress) continue;
            const FormatScope scope = ScopeOf(level, section, true);
            const Twips height = Measure(level, section, scope);
            Draw(level, section, scope, height, 0, height);
            mY += height;
        }
    }
}

Twips Paginator::RepeatedHeight(Level& level, std::size_t openGroups) {
    const CompiledDefinition& definition = FlowOf(level).Compiled();
    Twips height = 0;
    for (std::size_t group = 0; group < openGroups; ++group) {
        for (const std::size_t index : definition.places.groupHeader[group]) {
            const CompiledSection& section = definition.sections[index];
            if (!section.section->repeat || section.section->suppress) continue;
            height += Measure(level, section, ScopeOf(level, section, true));
        }
    }
    return height;
}

bool Paginator::IsOn(const CompiledSection& section, std::size_t page) const {
    if (section.section->suppress) return false;
    switch (section.section->on) {
    case OnPages::First:
        return page == 0;
    case OnPages::Later:
        return page > 0;
    default:
        return true;
    }
}

Twips Paginator::TopOn(const CompiledSection& section, std::size_t page) {
    return page == 0 ? 0 : section.section->laterTop;
}

Twips Paginator::HeadersHeight(std::size_t page) {
    if (page > 0 && mLaterHeaders >= 0) return mLaterHeaders;
    Twips height = 0;
    bool same = page > 0;
    for (const std::size_t index : mDefinition.places.pageHeader) {
        const CompiledSection& section = mDefinition.sections[index];
        if (!IsOn(section, page)) continue;
        height += Measure(mLevels.front(), section, ScopeOf(mLevels.front(), section, false)) -
                  TopOn(section, page);
        same = same && !(section.mayGrow && (section.dependsOnRow || section.section->formatEvent));
    }
    if (same) mLaterHeaders = height;
    return height;
}

Twips Paginator::FootersHeight(std::size_t page) const {
    Twips height = 0;
    for (const std::size_t index : mDefinition.places.pageFooter) {
        if (IsOn(mDefinition.sections[index], page)) height += mDefinition.sections[index].section->height;
    }
    return height;
}

bool Paginator::IsPlain(std::size_t page) {
    const Definition& definition = *mDefinition.definition;
    const Twips room = mContext.sheet.height - definition.top - definition.bottom - FootersHeight(page);
    return room - HeadersHeight(page) < LeastBody;
}

// What the next page would give a band that begins it.
Twips Paginator::FreshBody(Level& level, std::size_t openGroups) {
    const Definition& definition = *mDefinition.definition;
    Twips body = mContext.sheet.height - definition.top - definition.bottom;
    if (!IsPlain(mPage + 1)) {
        body -= FootersHeight(mPage + 1);
        if (mHeaderDone) body -= HeadersHeight(mPage + 1);
    }
    const Twips repeated = RepeatedHeight(level, openGroups);
    return body - repeated < LeastBody ? body : body - repeated;
}

void Paginator::RaiseFormat(const CompiledSection& section) {
    if (section.section->formatEvent && mContext.onFormat)
        mContext.onFormat(*section.section, static_cast<std::int32_t>(mPage + 1));
}

Twips Paginator::Measure(Level& level, const CompiledSection& section, const FormatScope& scope) {
    RaiseFormat(section);
    return mMetrics.Measure(section, scope, *mTexts[level.flow]);
}

void Paginator::Draw(Level& level, const CompiledSection& section, const FormatScope& scope, Twips height,
                     Twips sliceTop, Twips sliceBottom) {
    if (!mBuilder) return;
    const Twips width = mDefinition.definition->width;
    const Twips left = mContext.leftMargin.value_or((mContext.sheet.width - width) / 2);
    const Twips rightEdge = left + width - level.rightInset;
    mBuilder->Draw({section, scope, *mTexts[level.flow], rightEdge, mY - sliceTop, height, sliceTop,
                    sliceBottom, FlowOf(level).State().nextRow});
}

FormatScope Paginator::ScopeOf(Level& level, const CompiledSection& section, bool continued) {
    Flow& flow = FlowOf(level);
    const RowWindow& rows = flow.Rows();
    const PendingBlock& pending = level.pending;
    FormatScope scope;
    scope.page = mPage + 1;
    scope.pages = mPageCount;
    scope.continued = continued;
    scope.row = rows.Current();
    switch (section.section->kind) {
    case SectionKind::ReportHeader:
    case SectionKind::PageHeader:
        if (!scope.row) scope.row = rows.Next();
        break;
    case SectionKind::PageFooter:
        // The row in hand may have been moved to the next page.
        if (pending.taken && pending.block.hasRow && !pending.rowOnPage) scope.row = rows.Previous();
        break;
    case SectionKind::ReportFooter:
        if (!scope.row) scope.row = rows.Previous();
        break;
    case SectionKind::Details:
        if (pending.above) scope.above = rows.Previous();
        break;
    default:
        break;
    }
    scope.totals = BookOf(flow, section, continued, scope.rows);
    if (section.readsWhole) scope.whole = &flow.ReportTotals().totals;
    return scope;
}

const TotalsBook* Paginator::BookOf(Flow& flow, const CompiledSection& section, bool continued,
                                    std::size_t& rows) {
    const FlowState& state = flow.State();
    const CompiledDefinition& definition = flow.Compiled();
    const auto group = static_cast<std::size_t>(section.section->group);
    rows = flow.Rows().RowCount();
    switch (section.section->kind) {
    case SectionKind::ReportHeader:
    case SectionKind::PageHeader:
        return definition.headersShowReportTotals ? &flow.ReportTotals().totals : nullptr;
    case SectionKind::GroupHeader: {
        if (!definition.headersShowGroupTotals[group])
            return definition.headersShowReportTotals ? &flow.ReportTotals().totals : nullptr;
        // A group that is only now beginning is not in the state yet.
        const bool begins = !continued && mLevels.back().pending.block.opensGroup <= group;
        const ScopeTotals& whole =
            flow.GroupTotals(group, begins ? state.nextRow - 1 : state.groupStart[group]);
        rows = whole.rows;
        return &whole.totals;
    }
    case SectionKind::GroupFooter:
        rows = state.groupRows[group];
        return &state.totals;
    case SectionKind::ReportFooter:
        return state.totalsComplete ? &state.totals : &flow.ReportTotals().totals;
    default:
        return &state.totals;
    }
}

std::size_t Paginator::RowsPlaced() const {
    const PendingBlock& pending = mLevels.front().pending;
    const bool waiting = pending.taken && pending.block.hasRow && !pending.rowOnPage;
    return mFlows.front()->State().nextRow - (waiting ? 1U : 0U);
}

PaginatorState Paginator::Save() const {
    PaginatorState state;
    state.page = mPage;
    state.headerDone = mHeaderDone;
    for (const Level& level : mLevels)
        state.levels.push_back({level.flow, level.rightInset, mFlows[level.flow]->State(), level.pending});
    return state;
}

void Paginator::Restore(const PaginatorState& state) {
    mPage = state.page;
    mHeaderDone = state.headerDone;
    mLevels.clear();
    for (const PaginatorState::Level& level : state.levels) {
        mLevels.push_back({level.flow, level.rightInset, level.pending});
        const bool rowInHand = level.flowState.nextRow > 0;
        mFlows[level.flow]->Restore(level.flowState, rowInHand);
    }
}

void Paginator::JumpTo(std::size_t page, std::size_t row) {
    mPage = page;
    mHeaderDone = true;
    mLevels.clear();
    mLevels.push_back({});
    mFlows.front()->JumpToRow(row);
}

Paginator::EvenPages Paginator::LookAhead() {
    EvenPages pages;
    const SectionPlaces& places = mDefinition.places;
    Level& level = mLevels.front();
    bool even = mHeaderDone && mDefinition.definition->groups.empty() && !mDefinition.rowsShowTotals;
    for (const std::size_t index : places.details) {
        const CompiledSection& section = mDefinition.sections[index];
        if (section.section->suppress) continue;
        pages.row += section.section->height;
        even = even && !section.mayGrow && section.section->keepTogether && !section.section->newPageBefore &&
               !section.section->newPageAfter;
    }
    for (const std::size_t index : places.reportFooter) {
        const CompiledSection& section = mDefinition.sections[index];
        if (section.section->suppress) continue;
        even = even && section.subreport == NoIndex && section.section->keepTogether &&
               !section.dependsOnRow && !section.section->formatEvent && !section.section->newPageBefore;
        pages.footer += Measure(level, section, ScopeOf(level, section, false));
    }
    if (!even) return pages;
    pages.body = FreshBody(level, 0); // of the third page, the same as of all later ones
    pages.even = mLaterHeaders >= 0 && pages.row > 0 && pages.row + pages.footer <= pages.body;
    return pages;
}

} // namespace qbrpt::report
