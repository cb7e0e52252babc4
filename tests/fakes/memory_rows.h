// Rows held in memory.
#pragma once

#include "base/memory_rows.h"

namespace qbrpt::fakes {

using qbrpt::CellOf;
using qbrpt::MemoryRows;
using qbrpt::Row;

} // namespace qbrpt::fakes
