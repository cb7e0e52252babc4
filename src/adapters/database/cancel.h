// The one way to stop a long query from outside.
#pragma once

#include <atomic>

namespace qbrpt::database {

/// Makes every query of the process look at `flag` while it runs; once it is true they end with
/// FailureNumber::Cancelled. The flag must outlive its use; null looks at nothing. Setting the flag itself
/// is allowed from a signal handler.
void SetCancelFlag(const std::atomic<bool>* flag);

[[nodiscard]] bool CancelRequested();

/// Raises FailureNumber::Cancelled when the flag is up.
void StopIfCancelled();

} // namespace qbrpt::database
