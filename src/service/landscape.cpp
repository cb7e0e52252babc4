#include "service/landscape.h"

#include "platform/platform.h"
#include "platform/printing.h"

namespace qbrpt {

// Upright, as printers start, is what a printer is put back to whose orientation could not be read.
Landscape::Landscape(ErrorTrap& trap) : mTrap(trap), mBefore(OrientationPortrait) {
    mTrap.Step([&] { mBefore = Platform::Current().printers->Orientation(); });
    mTrap.Step([] { Platform::Current().printers->SetOrientation(OrientationLandscape); });
}

void Landscape::TurnBack() {
    mTrap.Step([&] { Platform::Current().printers->SetOrientation(mBefore); });
}

} // namespace qbrpt
