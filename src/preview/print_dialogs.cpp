#include "preview/print_dialogs.h"

namespace qbrpt {

bool ShowPrintDlg(std::int32_t, std::int32_t&, std::int32_t&, std::int32_t&, bool&, bool&) {
    return false;
}

bool GetPrinterSetup() {
    return false;
}

} // namespace qbrpt
