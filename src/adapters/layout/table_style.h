// The styles, strokes and measures of tables, looked up once.
#pragma once

#include "adapters/layout/columns.h"
#include "adapters/layout/style_sheet.h"

namespace qbrpt::layout {

struct TableStyle {
    TextStyle cell;
    TextStyle caption;
    TextStyle tier;
    TextStyle unit;
    TextStyle totalLabel;
    TextStyle subtotalLabel;
    TextStyle note; ///< counts, averages
    TextStyle group;
    TextStyle list;
    report::Color zero = 0;
    report::Color ink = 0;
    report::Color tint = 0;
    report::Color lightTint = 0;
    Stroke hairline;
    Stroke thin;   ///< accent, under tiers and group headings
    Stroke strong; ///< accent, above totals
    RowMeasure captionRow;
    RowMeasure tierRow;
    RowMeasure tieredCaptionRow;
    RowMeasure row;
    RowMeasure totalRow;
    RowMeasure averageRow;
    RowMeasure groupRow;
    RowMeasure listRow;
    RowMeasure subtotalRow;
    report::Twips ruleFirst = 0; ///< the two lines under the grand total, from its bottom
    report::Twips ruleSecond = 0;
    report::Twips afterTotal = 0; ///< blank between the grand total and what follows
    report::Twips afterSubtotal = 0;
    report::Twips unitGap = 0;
    report::Twips chipInset = 0; ///< between the ground of an emphasis and the lines around its row
    report::Twips barHeight = 0;

    /// A cell of figures in bold: the same size, so that the points stay in line.
    [[nodiscard]] TextStyle BoldCell() const;
};

/// `metrics` is the layout's `[metrics]`; a table with many columns gets the denser cells.
[[nodiscard]] TableStyle ResolveTableStyle(const Node& metrics, const Columns& columns, const Workshop& shop);

} // namespace qbrpt::layout
