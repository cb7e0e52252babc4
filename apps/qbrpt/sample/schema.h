// The tables of a café's database.
#pragma once

#include <span>
#include <string_view>

namespace qbrpt::sample {

/// Statements that make the tables, in order.
[[nodiscard]] std::span<const std::string_view> TableStatements();
/// Statements that make the indexes, for the end, when all rows are there.
[[nodiscard]] std::span<const std::string_view> IndexStatements();

struct SavedQueryText {
    std::string_view name;
    std::string_view sql;
};
/// The saved queries, in the dialect of reports.
[[nodiscard]] std::span<const SavedQueryText> SavedQueries();

} // namespace qbrpt::sample
