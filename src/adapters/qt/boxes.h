// Message boxes in real windows.
#pragma once

#include "adapters/console/console_boxes.h"

namespace qbrpt::qt {

/// Shows boxes over the window that the user has before him. Without a display they go the way of a process
/// that has no windows.
class QtBoxes final : public ConsoleBoxes {
public:
    using ConsoleBoxes::ConsoleBoxes;

private:
    BoxAnswer DoMsgBox(const std::string& text, int style, const std::string& title) override;
};

} // namespace qbrpt::qt
