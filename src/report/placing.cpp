// The part of the paginator that decides what goes on this page and what on the next.
#include "report/paginator.h"

#include <algorithm>

namespace qbrpt::report {

namespace {

// Of a band that must be split, at least an eighth of a page comes before the first cut.
constexpr Twips LeastPart = 8;

} // namespace

void Paginator::MeasurePending(Level& level) {
    PendingBlock& pending = level.pending;
    if (!pending.taken) return;
    const std::vector<Band>& bands = pending.block.bands;
    const auto heads = [&](const Band& band) {
        const Section& section = *FlowOf(level).Compiled().sections[band.section].section;
        return section.kind == SectionKind::GroupHeader && !section.suppress;
    };
    const bool headed = std::any_of(bands.begin(), bands.end(), heads);
    if (!pending.committed || mFresh) pending.above = mRowAbove && !headed;
    pending.heights.resize(bands.size());
    for (std::size_t band = pending.next; band < bands.size(); ++band) {
        const CompiledSection& section = SectionOf(level, band);
        const bool fixed = !section.mayGrow && section.subreport == NoIndex && !section.section->formatEvent;
        if (section.section->suppress)
            pending.heights[band] = 0;
        else if (fixed)
            pending.heights[band] = section.section->height;
        else
            pending.heights[band] = Measure(level, section, ScopeOf(level, section, false));
    }
}

// Whether the next band wants a page of its own making.
bool Paginator::BeginsPage(const Level& level) {
    const PendingBlock& pending = level.pending;
    if (mBreakNext) return true;
    const CompiledSection& next = SectionOf(level, pending.next);
    if (next.section->kind != SectionKind::GroupHeader) return next.section->newPageBefore;
    if (pending.next > 0 || pending.block.isFirst) return false;
    for (std::size_t band = 0; band < pending.block.bands.size(); ++band) {
        const Section& section = *SectionOf(level, band).section;
        if (section.kind == SectionKind::GroupHeader && section.newPageBefore) return true;
    }
    return false;
}

// Behind the last band that should stand on the same page as the next one.
std::size_t Paginator::EndOfTogether(const Level& level) {
    const PendingBlock& pending = level.pending;
    std::size_t end = pending.next + 1;
    for (; end < pending.block.bands.size(); ++end) {
        const CompiledSection& before = SectionOf(level, end - 1);
        const Section& section = *SectionOf(level, end).section;
        if (before.inside || before.section->newPageAfter) break;
        if (section.newPageBefore && section.kind != SectionKind::GroupHeader) break;
    }
    return end;
}

Paginator::Step Paginator::PlaceBlock(Level& level) {
    PendingBlock& pending = level.pending;
    while (pending.next < pending.block.bands.size()) {
        Step step = Step::Done;
        if (pending.slice > 0) {
            step = PlaceSlice(level);
        } else if (SectionOf(level, pending.next).section->suppress) {
            ++pending.next;
        } else if (!mFresh && BeginsPage(level)) {
            step = Step::PageFull;
        } else {
            step = PlaceTogether(level, EndOfTogether(level));
        }
        if (step != Step::Done) return step;
    }
    return Step::Done;
}

// All of the bands up to `end` on this page, else all on the next, else in parts.
Paginator::Step Paginator::PlaceTogether(Level& level, std::size_t end) {
    PendingBlock& pending = level.pending;
    Twips total = 0;
    for (std::size_t band = pending.next; band < end; ++band)
        total += pending.heights[band];
    if (total > Remaining()) return PlaceParts(level, end);
    while (pending.next < end) {
        if (SectionOf(level, pending.next).section->suppress) {
            ++pending.next;
            continue;
        }
        const Step step = PlaceBand(level);
        if (step != Step::Done) return step;
    }
    return Step::Done;
}

// What does not fit here. Bands that are kept whole go on together as far as a fresh page takes them; one
// that may be split, or is taller than a page, is cut where this page ends, unless too little of it would
// stand here. Whatever comes out, something is placed on every fresh page.
Paginator::Step Paginator::PlaceParts(Level& level, std::size_t end) {
    PendingBlock& pending = level.pending;
    const Twips fresh = FreshBody(level, pending.block.bands[pending.next].openGroups);
    const auto splits = [&](std::size_t band) {
        return !SectionOf(level, band).section->keepTogether || pending.heights[band] > fresh;
    };
    std::size_t whole = pending.next;
    Twips height = 0;
    for (; whole < end && !splits(whole) && height + pending.heights[whole] <= fresh; ++whole)
        height += pending.heights[whole];
    const Twips needed =
        whole < end && splits(whole) ? height + std::min(pending.heights[whole], fresh / LeastPart) : height;
    const bool mayWait = !mFresh || (!pending.waited && fresh > Remaining());
    if (needed > Remaining() && mayWait) {
        pending.waited = true;
        return Step::PageFull;
    }
    while (pending.next < whole) {
        const bool fits = pending.heights[pending.next] <= Remaining();
        const bool suppressed = SectionOf(level, pending.next).section->suppress;
        if (suppressed) {
            ++pending.next;
            continue;
        }
        const Step step = fits ? PlaceBand(level) : PlaceSlice(level);
        if (step != Step::Done) return step;
    }
    return whole < end && splits(whole) ? PlaceSlice(level) : Step::Done;
}

void Paginator::PutRowOnPage(Level& level) {
    PendingBlock& pending = level.pending;
    if (!pending.block.hasRow || pending.rowOnPage) return;
    FlowOf(level).CommitToPage();
    pending.rowOnPage = true;
}

// What every band does when it comes onto paper.
void Paginator::Touch(Level& level, const CompiledSection& section) {
    PendingBlock& pending = level.pending;
    if (!pending.committed) FlowOf(level).Commit(pending.block);
    pending.committed = true;
    pending.waited = false;
    const SectionKind kind = section.section->kind;
    if (kind != SectionKind::GroupHeader && kind != SectionKind::ReportHeader) PutRowOnPage(level);
    mFresh = false;
    mRowAbove = kind == SectionKind::Details;
}

Paginator::Step Paginator::PlaceBand(Level& level) {
    PendingBlock& pending = level.pending;
    const CompiledSection& section = SectionOf(level, pending.next);
    Touch(level, section);
    const Twips height = pending.heights[pending.next];
    if (mBuilder) {
        RaiseFormat(section);
        Draw(level, section, ScopeOf(level, section, false), height, 0, height);
    }
    mY += height;
    return FinishBand(level, section);
}

Paginator::Step Paginator::FinishBand(Level& level, const CompiledSection& section) {
    PendingBlock& pending = level.pending;
    ++pending.next;
    pending.slice = 0;
    if (section.section->newPageAfter && !pending.block.isLast) mBreakNext = true;
    if (!section.inside || !EnterSubreport(level, section)) return Step::Done;
    return Step::Entered;
}

// As much of the next band as this page takes.
Paginator::Step Paginator::PlaceSlice(Level& level) {
    PendingBlock& pending = level.pending;
    const CompiledSection& section = SectionOf(level, pending.next);
    if (Remaining() <= 0 && !mFresh) return Step::PageFull;
    pending.above = false; // all slices are of one shape
    Touch(level, section);
    const FormatScope scope = ScopeOf(level, section, false);
    const Twips height = Measure(level, section, scope);
    if (height - pending.slice <= Remaining()) {
        Draw(level, section, scope, height, pending.slice, height);
        mY += height - pending.slice;
        return FinishBand(level, section);
    }
    const Twips cut = mMetrics.CutAbove(section, pending.slice + Remaining(), pending.slice);
    Draw(level, section, scope, height, pending.slice, cut);
    pending.slice = cut;
    return Step::PageFull;
}

bool Paginator::EnterSubreport(const Level& level, const CompiledSection& section) {
    const auto flow = mFlowOf.find(section.inside);
    const Object& object = *section.objects[section.subreport].object;
    if (flow == mFlowOf.end() || object.suppress) return false;
    mFlows[flow->second]->Rewind();
    mLevels.push_back({flow->second, level.rightInset + object.right, {}});
    mRowAbove = false;
    return true;
}

void Paginator::FinishBlock(Level& level) {
    PendingBlock& pending = level.pending;
    if (!pending.committed) FlowOf(level).Commit(pending.block);
    PutRowOnPage(level);
    pending.taken = false;
}

} // namespace qbrpt::report
