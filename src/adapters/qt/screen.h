// The mouse pointer over real windows.
#pragma once

#include "platform/desktop.h"

namespace qbrpt::qt {

/// One pointer stands over all windows of the process for as long as it is set: setting it twice does not
/// need undoing twice, and a host's own pointer comes back under it.
class QtScreen final : public Screen {
private:
    void DoSetMousePointer(Pointer pointer) override;
    void DoBeep() override;

    bool mSet = false;
};

/// For the time of a message box the usual pointer stands, so that nobody waits for it to end.
class UsualPointer {
public:
    UsualPointer();
    ~UsualPointer();
    UsualPointer(const UsualPointer&) = delete;
    UsualPointer& operator=(const UsualPointer&) = delete;

private:
    bool mSet;
};

} // namespace qbrpt::qt
