// Published ways of the class whose work is still to come.
#pragma once

namespace qbrpt {

/// Says in an error box that `member` cannot do this yet.
void NotThereYet(const char* member);

} // namespace qbrpt
