#include "adapters/runtime/report_state.h"

namespace qbrpt {

void ReportState::Changed() {
    if (formattingPage != 0) return;
    document.reset();
    if (const auto outer = parent.lock()) outer->Changed();
}

} // namespace qbrpt
