// The window of the general accounts as it is built.
#pragma once

#include "platform/forms.h"

namespace qbrpt {

[[nodiscard]] const FormTable& AccountTable();

} // namespace qbrpt
