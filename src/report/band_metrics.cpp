#include "report/band_metrics.h"

#include <algorithm>

namespace qbrpt::report {

namespace {

// A text of megabytes must not run sums over; nobody reads its hundred thousandth page.
constexpr std::int64_t TallestGrowth = 100'000'000;

} // namespace

Twips BandMetrics::Measure(const CompiledSection& section, const FormatScope& scope, SectionText& text) {
    mObjects.assign(section.objects.size(), {});
    if (section.hidesRepeated && scope.above) MarkRepeated(section, scope);
    const Twips fixed = section.subreport == NoIndex ? section.section->height
                                                     : section.objects[section.subreport].object->top;
    if (!section.mayGrow) return std::max(fixed, 0);
    Twips added = 0;
    for (std::size_t i = 0; i < section.objects.size(); ++i) {
        const CompiledObject& object = section.objects[i];
        if (!object.mayGrow || mObjects[i].repeated || !SectionText::Shown(*object.object, scope)) continue;
        mObjects[i].lines = mFitter.LineCount(object, text.Of(section, object, scope).text);
        const auto further = static_cast<std::int64_t>(mObjects[i].lines - 1);
        mObjects[i].growth = static_cast<Twips>(std::min(further * object.object->lineStep, TallestGrowth));
    }
    const auto grows = [](const ObjectMetrics& metrics) { return metrics.growth > 0; };
    if (std::none_of(mObjects.begin(), mObjects.end(), grows)) return std::max(fixed, 0);
    for (const std::size_t i : section.fromTop) {
        for (const std::size_t above : section.objects[i].pushedBy)
            mObjects[i].offset =
                std::max(mObjects[i].offset, mObjects[above].offset + mObjects[above].growth);
        if (section.objects[i].mayGrow) added = std::max(added, mObjects[i].offset + mObjects[i].growth);
    }
    return std::max(fixed, 0) + added;
}

// A value hides only behind repeated ones: a group of equal second columns under a new first one shows.
void BandMetrics::MarkRepeated(const CompiledSection& section, const FormatScope& scope) {
    for (std::size_t i = 0; i < section.objects.size(); ++i) {
        const Object& object = *section.objects[i].object;
        if (!object.hideRepeated || object.type != ObjectType::Field || !scope.row) continue;
        const auto field = static_cast<std::size_t>(object.field);
        if (!SameValue((*scope.row)[field], (*scope.above)[field])) return;
        mObjects[i].repeated = true;
    }
}

bool BandMetrics::MovesCut(const CompiledObject& object, const ObjectMetrics& metrics, Twips& cut) const {
    const Object& source = *object.object;
    Twips top = source.top + metrics.offset;
    Twips bottom = top + source.height;
    const bool solid = source.type == ObjectType::Text || source.type == ObjectType::Field ||
                       source.type == ObjectType::Total || source.type == ObjectType::Picture;
    if (!solid) return false;
    for (std::size_t line = 0; line < metrics.lines; ++line) {
        if (top < cut && cut < bottom) {
            cut = top;
            return true;
        }
        top = bottom;
        bottom += source.lineStep;
    }
    return false;
}

Twips BandMetrics::CutAbove(const CompiledSection& section, Twips limit, Twips from) const {
    Twips cut = limit;
    for (bool moved = true; moved && cut > from;) {
        moved = false;
        for (std::size_t i = 0; i < section.objects.size(); ++i)
            moved = MovesCut(section.objects[i], mObjects[i], cut) || moved;
    }
    return cut > from ? cut : limit;
}

} // namespace qbrpt::report
