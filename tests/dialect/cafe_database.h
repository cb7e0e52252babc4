// A café small enough to be worked out by hand, with all that reality holds: nulls, deleted subscribers,
// running sessions, half days, moments whose 15 digits lie above the stored number, mixed case, doubles.
#pragma once

#include "dialect/small_database.h"

namespace qbrpt::dialect {

/// Tables and rows, in the engine's own SQL.
[[nodiscard]] const char* CafeScript();
/// The text of the saved query "users_income2".
[[nodiscard]] const char* SupervisorsQuery();

void FillCafe(SmallDatabase& database);

} // namespace qbrpt::dialect
