// The rows of a report as a table for spreadsheets.
#pragma once

#include "base/byte_sink.h"
#include "base/rows.h"
#include "report/definition.h"

#include <cstddef>
#include <functional>

namespace qbrpt {

/// Writes the rows that `definition` binds as comma-separated values: UTF-8 with a byte order mark, lines
/// that end in CR LF, a header line of the field names. Dates are yyyy-MM-dd HH:mm:ss, numbers the shortest
/// text that reads back the same, truths true or false, nulls empty; texts stand as they are, between
/// quotes where they need them. Rows stream: memory does not grow with their number.
///
/// `onProgress` (may be empty) is called now and then with the rows done; raises what it and the sink raise.
void WriteCsv(ByteSink& sink, const report::Definition& definition, const RowSource& rows,
              const std::function<void(std::size_t done, std::size_t all)>& onProgress = {});

} // namespace qbrpt
