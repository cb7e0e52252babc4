// The part of the controls' look that Qt itself paints.
#pragma once

#include <QtCore/QString>

namespace qbrpt::qt {

/// For the place where the controls of a dialog stand.
[[nodiscard]] QString DialogSheet();

} // namespace qbrpt::qt
