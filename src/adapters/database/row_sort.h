// Rows in another order.
#pragma once

#include "adapters/database/row_store.h"

#include <functional>
#include <span>

namespace qbrpt::database {

/// Rows go by the values of a column: nothing first, then numbers and dates by size, then texts by their
/// letters without regard to the case of Latin ones.
struct RowOrder {
    std::size_t column = 0;
    bool descending = false;
};

/// The rows of `source` in this order, equal ones as they come; `source` itself where its rows stand so
/// already. Memory stays bounded: large parts are sorted one by one, kept in files and merged. `progress`
/// is called now and then with the rows done and may throw to stop.
[[nodiscard]] std::shared_ptr<const RowSource>
SortRows(std::shared_ptr<const RowSource> source, std::span<const RowOrder> order,
         const RowStoreOptions& options = {}, const std::function<void(std::size_t)>& progress = {});

} // namespace qbrpt::database
