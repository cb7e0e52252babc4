#include "preview/frmPrntServer.h"

#include "platform/CRViewer.h"
#include "platform/desktop.h"
#include "platform/platform.h"
#include "support/error_trap.h"

#include <memory>

namespace qbrpt {

namespace {

std::unique_ptr<frmPrntServer>& TheInstance() {
    static std::unique_ptr<frmPrntServer> instance;
    return instance;
}

} // namespace

frmPrntServer& frmPrntServer::Instance() {
    auto& instance = TheInstance();
    if (!instance) instance = std::make_unique<frmPrntServer>();
    return *instance;
}

bool frmPrntServer::Exists() {
    return TheInstance() != nullptr;
}

void frmPrntServer::Drop() {
    TheInstance().reset();
}

bool frmPrntServer::ShowpReport(const Ref<CrystalRuntime::Report>& pnRpt, bool bShowArabic) {
    ErrorTrap trap(ErrorTrap::BoxWithRetry, "ShowpReport\r");
    trap.Step([&] { Platform::Current().screen->SetMousePointer(Pointer::Wait); });
    mArabic = bShowArabic;
    mReport = pnRpt;
    // The user reads with the usual pointer; the viewer returns only when he has done.
    trap.Step([&] { Platform::Current().screen->SetMousePointer(Pointer::Default); });
    trap.Step([&] { Platform::Current().viewer->ViewReport(mReport, mArabic); });

    const bool closedWell = !trap.Left();
    trap.Always([&] { Platform::Current().screen->SetMousePointer(Pointer::Default); });
    mReport.Clear();
    return closedWell;
}

} // namespace qbrpt
