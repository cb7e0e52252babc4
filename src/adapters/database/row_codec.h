// A row as bytes: one tag a cell that says kind and form, then as few bytes as the value needs.
#pragma once

#include "base/rows.h"

#include <cstddef>
#include <string>

namespace qbrpt::database {

/// Appends `row` to `bytes`, led by its own length so that it can be skipped unread. `scratch` is
/// working room that is kept from row to row.
void AppendRow(const RowView& row, std::string& bytes, std::string& scratch);

/// Reads the row at `position` into the cells of `row`, whose size is the number of columns, and
/// returns the position behind it. Texts point into the bytes.
const char* ReadRow(const char* position, RowView& row);

/// The position behind the row at `position`.
const char* SkipRow(const char* position);

} // namespace qbrpt::database
