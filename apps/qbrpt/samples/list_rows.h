// Rows for the plain lists: payments of subscribers, events, print jobs, cards.
#pragma once

#include "samples/sample_rows.h"

namespace qbrpt::samples {

/// As many rows as asked for, the same on every run.
[[nodiscard]] std::vector<Row> MemberPayments(std::size_t count);
[[nodiscard]] std::vector<Row> AuditEvents(std::size_t count);
[[nodiscard]] std::vector<Row> PrintJobs(std::size_t count);
/// Three kinds of cards, one after the other.
[[nodiscard]] std::vector<Row> CardList(std::size_t count);

} // namespace qbrpt::samples
