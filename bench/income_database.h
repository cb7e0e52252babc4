// A café with a very long history.
#pragma once

#include <string>

namespace qbrpt::bench {

/// Writes a database whose income sheet has `days` rows: the days of a plausible sample over and over, each
/// with a date of its own.
void MakeIncomeDatabase(const std::string& file, int days);

/// Runs the query of the income sheet in the engine's own words and formats every value as text, as a
/// plain program would do it. Returns the number of rows.
long ReadIncomeBare(const std::string& file);

} // namespace qbrpt::bench
