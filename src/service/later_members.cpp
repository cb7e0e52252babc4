#include "service/later_members.h"

#include "base/failure.h"
#include "service/VantlowCls.h"
#include "support/error_trap.h"

#include <string>

namespace qbrpt {

void NotThereYet(const char* member) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry);
    trap.Step([&] {
        throw Failure(FailureNumber::NotThereYet,
                      std::string(member) + " is not there yet in this version of qbrpt.");
    });
}

void VantlowCls::EditAccount() {
    if (mDb) NotThereYet("EditAccount");
}

} // namespace qbrpt
