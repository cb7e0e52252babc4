// A report as one web page.
#pragma once

#include "adapters/export/export_job.h"
#include "base/byte_sink.h"

namespace qbrpt {

/// Writes the report as one HTML page that needs nothing but itself: right to left, in the house style,
/// with the layout's heading, captions, groups and totals; printed, it repeats the captions on every sheet.
/// Values stand as on the report's pages. Rows stream: memory does not grow with their number.
///
/// Raises what `onProgress` (may be empty) and the sink raise.
void WriteHtml(ByteSink& sink, const ExportJob& job, const RowProgress& onProgress = {});

} // namespace qbrpt
