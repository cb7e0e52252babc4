// The dialogs of printing as they are built.
#pragma once

#include "platform/forms.h"

namespace qbrpt {

/// Of frmPrint: pages and copies.
[[nodiscard]] const FormTable& PrintOptionsTable();

/// Of frmPrinterSetup: printer, paper and orientation.
[[nodiscard]] const FormTable& PrinterSetupTable();

} // namespace qbrpt
