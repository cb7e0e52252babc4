// What the objects of a section say.
#pragma once

#include "report/compiled.h"
#include "report/totals.h"
#include "report/value_text.h"

#include <string>

namespace qbrpt::report {

/// Where and when a section is formatted.
struct FormatScope {
    const RowView* row = nullptr;       ///< the row whose values fields show; null: none
    const RowView* above = nullptr;     ///< the row right above on this page; null: none
    const TotalsBook* totals = nullptr; ///< null: totals are empty
    std::size_t rows = 0;               ///< of the section's group or report
    std::size_t page = 0;               ///< from 1
    std::size_t pages = 0;
    bool continued = false; ///< a group's header on its second and later pages
};

/// Writes the texts of one definition's objects.
class SectionText {
public:
    SectionText(const CompiledDefinition& definition, double printedAt)
        : mDefinition(definition), mPrintedAt(printedAt) {}

    /// Text of a text, field or total object; valid until the next call.
    [[nodiscard]] ValueText Of(const CompiledSection& section, const CompiledObject& object,
                               const FormatScope& scope);

    /// Whether the object is drawn at all for this row.
    [[nodiscard]] static bool Shown(const Object& object, const FormatScope& scope);

private:
    void Expand(const CompiledSection& section, const Object& object, const FormatScope& scope, int depth);
    void AppendWord(const CompiledSection& section, const struct Placeholder& word, const FormatScope& scope,
                    int depth);
    void AppendNamed(const CompiledSection& section, std::string_view name, const FormatScope& scope,
                     int depth);
    void AppendIsolated(std::string_view value);

    const CompiledDefinition& mDefinition;
    double mPrintedAt;
    ValueWriter mWriter;
    std::string mText;
    std::string mClean;
};

/// Whether the value of `object` repeats that of `above`.
[[nodiscard]] bool SameValue(const CellView& a, const CellView& b);

} // namespace qbrpt::report
