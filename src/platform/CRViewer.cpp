#include "platform/CRViewer.h"

namespace qbrpt {

void CRViewer::ViewReport(const Ref<CrystalRuntime::Report>& report, bool arabic) {
    Announce("CRViewer", "ViewReport", {arabic});
    const Shown shown = DoViewReport(report, arabic);
    Answer("CRViewer", "ViewReport", {arabic, shown.printer}, std::int64_t{shown.pages});
}

} // namespace qbrpt
