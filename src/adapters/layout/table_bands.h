// A table's bands, drawn from its columns: captions, the row, totals, averages, group headings.
#pragma once

#include "adapters/layout/band.h"
#include "adapters/layout/columns.h"
#include "adapters/layout/table_style.h"

namespace qbrpt::layout {

struct Table {
    const Columns& columns;
    const TableStyle& style;
    const Workshop& shop;
    [[nodiscard]] Span Whole() const { return {shop.margin, shop.Content()}; }
};

/// The caption row; two rows where the columns have tiers.
[[nodiscard]] Band CaptionBand(const Table& table);
/// One row of data.
[[nodiscard]] Band RowBand(const Table& table);

/// What is written before the figures of a total row.
struct TotalWords : report::TotalWords {
    Place place;
    report::Align countAlign = report::Align::Right;
};
/// `noun`: the word for a number of things.
[[nodiscard]] std::string ReadNoun(TableReader& reader, const Workshop& shop);
[[nodiscard]] TotalWords ReadTotalWords(const Node& node, std::string_view what, const Workshop& shop);

/// The grand total with its double rule.
[[nodiscard]] Band TotalBand(const Table& table, const TotalWords& words);
/// The total of group `group`.
[[nodiscard]] Band SubtotalBand(const Table& table, const TotalWords& words, int group);
/// The averages, in grey under the total.
[[nodiscard]] Band AverageBand(const Table& table, const TotalWords& words);
/// The heading of group `group`.
[[nodiscard]] Band GroupHeadBand(const Table& table, const std::string& text, const std::string& continued,
                                 int group, const Place& place);

} // namespace qbrpt::layout
