// Lists: tables with a heading of their own inside a report, and the notes behind a table.
#pragma once

#include "adapters/layout/table_bands.h"

namespace qbrpt::layout {

/// What `[list]` says: all rows are one group, whose heading stands above the captions on each of its pages.
struct ListWords {
    Place place;
    std::string heading;
    std::string continued;
    std::string noun; ///< counts the rows at the far end of the heading; empty: no count
};
[[nodiscard]] ListWords ReadList(TableReader& reader, const Place& place, const Workshop& shop);

/// The heading of the list, and its captions.
[[nodiscard]] Band ListHeadBand(const Table& table, const ListWords& words);

/// Reads `[[note]]`: lines behind the rows, each a text and a total of its own.
[[nodiscard]] Band NotesBand(const Node& list, const Table& table);

} // namespace qbrpt::layout
