// Running one statement of the system on a connection.
#pragma once

#include "adapters/database/driver.h"
#include "adapters/database/row_store.h"
#include "base/value.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace qbrpt::database {

/// Values that a caller gave, by the parameter's index from 0.
using ParameterValues = std::map<std::size_t, Value>;

/// What OpenRecordset runs for `source`: the text of the saved query or all rows of the table of that name,
/// else the text itself.
[[nodiscard]] std::string StatementOf(Connection& connection, const std::string& source);

/// Runs a SELECT in one state of the database and reads its rows off. Raises WriteRefused for any other
/// statement, and UnknownName for a name that is neither a column nor a parameter with a value.
[[nodiscard]] std::shared_ptr<const RowSource> RunQuery(Connection& connection, const std::string& statement,
                                                        const ParameterValues& values,
                                                        const RowStoreOptions& options);

/// Runs a statement that writes and returns how many rows it wrote.
std::int64_t RunWrite(Connection& connection, const std::string& statement);

} // namespace qbrpt::database
