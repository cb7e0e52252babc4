// Rows for the pages of templates whose rows tell a story: hosts, sessions, supervisors, cards, accounts.
#pragma once

#include "samples/sample_rows.h"
#include "templates/field_tables.h"

namespace qbrpt::samples {

/// As many rows as asked for, the same on every run.
[[nodiscard]] std::vector<Row> HostUse(std::size_t count);
[[nodiscard]] std::vector<Row> Sessions(std::size_t count);
[[nodiscard]] std::vector<Row> SupervisorDays(std::size_t count);
[[nodiscard]] std::vector<Row> CustomerSessions(std::size_t count);
[[nodiscard]] std::vector<Row> Subscriptions(std::size_t count);
[[nodiscard]] std::vector<Row> Orders(std::size_t count);
[[nodiscard]] std::vector<Row> DeviceDays(std::size_t count);
/// Two cards a row; the last row has one.
[[nodiscard]] std::vector<Row> Cards(std::size_t count);
[[nodiscard]] std::vector<Row> Entries(std::size_t count);
/// Entries of one account, as a report on it or its subreport gets them.
[[nodiscard]] std::vector<Row> Moves(std::size_t count);

/// Rows in which every text is as long and every figure as wide as its field allows, odd rows negative.
[[nodiscard]] std::vector<Row> FullRows(std::string_view templateName, std::size_t count);
[[nodiscard]] std::vector<Row> NullRows(std::string_view templateName, std::size_t count);

} // namespace qbrpt::samples
