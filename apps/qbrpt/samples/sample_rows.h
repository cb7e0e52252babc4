// Rows for the pages of templates, in the order of their field tables.
#pragma once

#include "base/memory_rows.h"

#include <cstddef>
#include <string>
#include <vector>

namespace qbrpt::samples {

/// Twenty days of a café in March 2025; on one of them the counts were not taken.
[[nodiscard]] std::vector<Row> IncomeMonth();
/// As many days as asked for, one after the other from 1 January 2024.
[[nodiscard]] std::vector<Row> IncomeDays(std::size_t count);
/// A row of nulls.
[[nodiscard]] Row NullRow(std::size_t fieldCount);
/// Arabic words, cut to exactly this number of characters.
[[nodiscard]] std::string LongText(std::size_t characters);
/// Days in which every text is as long and every figure as wide as its field allows.
[[nodiscard]] std::vector<Row> FullIncomeDays(std::size_t count);

/// The same for the income sheet by kinds of use.
[[nodiscard]] std::vector<Row> UseDays(std::size_t count);
[[nodiscard]] std::vector<Row> FullUseDays(std::size_t count);

/// Payments: amount, moment, details.
[[nodiscard]] std::vector<Row> Payments(std::size_t count);
[[nodiscard]] std::vector<Row> FullPayments(std::size_t count);

} // namespace qbrpt::samples
