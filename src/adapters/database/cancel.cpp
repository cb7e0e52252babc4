#include "adapters/database/cancel.h"

#include "base/failure.h"

namespace qbrpt::database {

namespace {
std::atomic<const std::atomic<bool>*> cancelFlag{nullptr};
} // namespace

void SetCancelFlag(const std::atomic<bool>* flag) {
    cancelFlag.store(flag);
}

bool CancelRequested() {
    const std::atomic<bool>* flag = cancelFlag.load(std::memory_order_relaxed);
    return flag != nullptr && flag->load(std::memory_order_relaxed);
}

void StopIfCancelled() {
    if (CancelRequested()) throw Failure(FailureNumber::Cancelled, "The query was stopped.");
}

} // namespace qbrpt::database
