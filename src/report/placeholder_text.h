// What texts with placeholders say.
#pragma once

#include "report/definition.h"
#include "report/totals.h"
#include "report/value_text.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace qbrpt::report {

/// Where and when a text is written.
struct FormatScope {
    const RowView* row = nullptr;       ///< the row whose values fields show; null: none
    const RowView* above = nullptr;     ///< the row right above on this page; null: none
    const TotalsBook* totals = nullptr; ///< null: totals are empty
    const TotalsBook* whole = nullptr;  ///< of all rows, for sections that read them ahead
    std::size_t rows = 0;               ///< of the section's group or report
    std::size_t page = 0;               ///< from 1
    std::size_t pages = 0;
    bool continued = false; ///< a group's header on its second and later pages
};

/// Puts values in the places of {words}. Inserted texts are isolated, so that a number in them never jumps
/// over a word around them.
class PlaceholderText {
public:
    /// `totals` are those of the book in FormatScope; they and the definition must outlive this.
    PlaceholderText(const Definition& definition, std::span<const Total> totals, double printedAt)
        : mDefinition(definition), mTotals(totals), mPrintedAt(printedAt) {}

    /// The text with its words filled in; valid until the next call. `group` is the index that {group}
    /// means, or -1.
    [[nodiscard]] std::string_view Of(std::string_view text, int group, const FormatScope& scope);

private:
    void Expand(std::string_view text, int group, const FormatScope& scope, int depth);
    void AppendWord(const struct Placeholder& word, int group, const FormatScope& scope, int depth);
    void AppendNamed(std::string_view name, int group, const FormatScope& scope, int depth);
    void AppendGroup(int group, const FormatScope& scope);
    void AppendIsolated(std::string_view value);

    const Definition& mDefinition;
    std::span<const Total> mTotals;
    double mPrintedAt;
    ValueWriter mWriter;
    std::string mText;
};

} // namespace qbrpt::report
