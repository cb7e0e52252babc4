// From a running statement to finished rows.
#pragma once

#include "adapters/database/driver.h"
#include "adapters/database/row_store.h"
#include "base/failure.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::database {

/// Reads all rows of `statement` off, each cell in the kind that its column has. Texts come out as valid
/// UTF-8. Raises BadColumn for a date column that holds text, and Cancelled.
[[nodiscard]] std::shared_ptr<const RowSource> ReadRows(Statement& statement,
                                                        const std::vector<dialect::OutputColumn>& columns,
                                                        const RowStoreOptions& options);

/// The failure of a date column that holds text: which column, which text, and how to put it right.
[[nodiscard]] Failure TextInDateColumn(const std::string& column, std::string_view text);

} // namespace qbrpt::database
