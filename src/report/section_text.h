// What the objects of a section say.
#pragma once

#include "report/compiled.h"
#include "report/placeholder_text.h"

#include <string>

namespace qbrpt::report {

/// Writes the texts of one definition's objects.
class SectionText {
public:
    SectionText(const CompiledDefinition& definition, double printedAt)
        : mWords(*definition.definition, definition.totals, printedAt) {}

    /// Text of a text, field or total object; valid until the next call.
    [[nodiscard]] ValueText Of(const CompiledSection& section, const CompiledObject& object,
                               const FormatScope& scope);

    /// Whether the object is drawn at all for this row.
    [[nodiscard]] static bool Shown(const Object& object, const FormatScope& scope);

private:
    PlaceholderText mWords;
    ValueWriter mWriter;
    std::string mClean;
};

/// Whether the value of `object` repeats that of `above`.
[[nodiscard]] bool SameValue(const CellView& a, const CellView& b);

} // namespace qbrpt::report
