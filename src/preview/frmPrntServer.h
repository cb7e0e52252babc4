// The window in which a finished report is read before it is printed.
#pragma once

#include "platform/CrystalRuntime.h"

namespace qbrpt {

/// One instance a process, made for one report and dropped after it.
class frmPrntServer {
public:
    /// The instance; created where there is none.
    [[nodiscard]] static frmPrntServer& Instance();
    /// Whether a report's window is there.
    [[nodiscard]] static bool Exists();
    /// Drops the instance, so that the next report gets a new window.
    static void Drop();

    /// Shows `pnRpt` and returns when the user has closed the window. True when it closed without a failure
    /// pending. Failures end here, in a box that bears this member's name.
    bool ShowpReport(const Ref<CrystalRuntime::Report>& pnRpt, bool bShowArabic);

private:
    Ref<CrystalRuntime::Report> mReport; ///< empty outside ShowpReport
    bool mArabic = false;
};

} // namespace qbrpt
