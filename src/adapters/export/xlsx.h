// A report as a spreadsheet.
#pragma once

#include "adapters/export/export_job.h"
#include "base/byte_sink.h"

#include <cstdint>

namespace qbrpt {

/// Rows of a sheet as spreadsheet programs know them.
constexpr std::uint32_t SheetRows = 1'048'576;

/// Writes the report as an XLSX file: sheets from right to left with the layout's heading, captions (frozen,
/// and repeated on paper), groups, and totals as formulas that carry their values too. Cells hold real
/// numbers and dates; a text stays a text whatever it begins with. Rows that one sheet cannot hold go on on
/// the next; a subreport has a sheet of its own. Rows go through files in TMPDIR: memory does not grow with
/// their number.
///
/// Raises what `onProgress` (may be empty) and the sink raise, and FailureNumber::Output.
void WriteXlsx(ByteSink& sink, const ExportJob& job, const RowProgress& onProgress = {},
               std::uint32_t rowsPerSheet = SheetRows);

} // namespace qbrpt
