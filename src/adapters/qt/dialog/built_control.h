// A control as it was built: its widget, which its parent owns, and the port over it.
#pragma once

#include "base/ref.h"
#include "platform/controls.h"

class QWidget;

namespace qbrpt::qt {

struct BuiltControl {
    QWidget* widget;
    Ref<Control> port;
};

} // namespace qbrpt::qt
