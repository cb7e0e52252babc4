// The screen of a process that has no windows.
#pragma once

#include "platform/desktop.h"

namespace qbrpt {

/// Keeps the pointer that was asked for; there is nobody to show it to.
class QuietScreen : public Screen {
public:
    [[nodiscard]] Pointer MousePointer() const { return mPointer; }

private:
    void DoSetMousePointer(Pointer pointer) override { mPointer = pointer; }
    void DoBeep() override {}

    Pointer mPointer = Pointer::Default;
};

} // namespace qbrpt
