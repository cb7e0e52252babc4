// Tool bars of forms, as the system's rules use them.
#pragma once

#include "platform/forms.h"

#include <QtWidgets/QWidget>

namespace qbrpt::qt {

class ButtonBar;

/// A tool bar with buttons.
[[nodiscard]] Ref<Toolbar> ToolbarOver(ButtonBar& bar);
/// A tool bar without any: the strip that another one lies on.
[[nodiscard]] Ref<Toolbar> ToolbarOver(QWidget& strip);

} // namespace qbrpt::qt
