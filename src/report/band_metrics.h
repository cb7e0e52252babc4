// How tall a section is with its texts in it, and where its objects come to stand.
#pragma once

#include "report/fitting.h"
#include "report/section_text.h"

#include <vector>

namespace qbrpt::report {

struct ObjectMetrics {
    Twips offset = 0;      ///< down from the place in the layout
    Twips growth = 0;      ///< added to the height by further lines
    std::size_t lines = 1; ///< 0: nothing to draw
    bool repeated = false; ///< hidden, since the row above says the same
};

class BandMetrics {
public:
    explicit BandMetrics(TextFitter& fitter) : mFitter(fitter) {}

    /// The height of the section, and from now on what At() tells of its objects.
    Twips Measure(const CompiledSection& section, const FormatScope& scope, SectionText& text);

    [[nodiscard]] const ObjectMetrics& At(std::size_t object) const { return mObjects[object]; }

    /// The lowest place between `from` and `limit` that cuts no line of text and no picture of the section
    /// measured last; `limit` itself where there is none.
    [[nodiscard]] Twips CutAbove(const CompiledSection& section, Twips limit, Twips from) const;

private:
    void MarkRepeated(const CompiledSection& section, const FormatScope& scope);
    [[nodiscard]] bool MovesCut(const CompiledObject& object, const ObjectMetrics& metrics, Twips& cut) const;

    TextFitter& mFitter;
    std::vector<ObjectMetrics> mObjects;
};

} // namespace qbrpt::report
