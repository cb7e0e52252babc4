// The current printer turned for a wide report.
#pragma once

#include "support/error_trap.h"

#include <cstdint>

namespace qbrpt {

/// Remembers the current printer's orientation and turns it to landscape; each a statement of the caller's
/// `trap`, as is the way back. After Cancel the printer stays as it stands.
class Landscape {
public:
    explicit Landscape(ErrorTrap& trap);
    void TurnBack();

private:
    ErrorTrap& mTrap;
    std::int16_t mBefore;
};

} // namespace qbrpt
