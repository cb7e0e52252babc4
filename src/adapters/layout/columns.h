// The columns of a table: said once each, measured here, drawn as captions, rows and totals elsewhere.
#pragma once

#include "adapters/layout/band.h"

#include <optional>
#include <string>
#include <vector>

namespace qbrpt::layout {

/// A bar beside the figures of a column: as wide as the value is large.
struct Bar {
    report::Twips width = 0;
    report::Color color = 0;
    double full = 0; ///< the value of a full bar; 0: the largest of the report
};

struct Column : report::Column {
    Place place;
    std::string name;          ///< of its objects: the field's, made unique where two columns show one field
    bool captionNamed = false; ///< code finds the caption by its name
    bool tinted = false;       ///< on a light tint from its caption to its total
    Span span;                 ///< from the template's right edge, padding included
    std::optional<Bar> bar;
    bool grow = false;
    bool hideRepeated = false;
};

/// Columns under one common caption; parted from the next by a gap.
struct Tier {
    Place place;
    std::string caption;
    Span span;
};

struct Columns {
    Place place;
    report::Twips padding = 0;
    std::vector<Column> columns; ///< from the right
    std::vector<Tier> tiers;     ///< none: the captions have one tier

    [[nodiscard]] bool Any(bool Column::*flag) const;
    /// The span of its figures, which a bar leaves them.
    [[nodiscard]] Span Figures(const Column& column) const {
        Span span = Inside(column);
        if (column.bar) span.width -= column.bar->width + padding;
        return span;
    }
    /// The span of a column's text.
    [[nodiscard]] Span Inside(const Column& column) const {
        return {column.span.right + padding, column.span.width - 2 * padding};
    }
};

/// Reads the columns of `[table]`. Widths are points; columns without one share what is left. Widths that
/// fill the page but for a hundredth are stretched to fill it; all else is a mistake.
[[nodiscard]] Columns ReadColumns(const Node& list, const Node& metrics, const Workshop& shop);

} // namespace qbrpt::layout
