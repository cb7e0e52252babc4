// The viewer of finished reports.
#pragma once

#include "platform/CrystalRuntime.h"

namespace qbrpt {

class CRViewer : public Port {
public:
    /// Shows `report` and returns when the user has done with it. Where there is no window to show it
    /// in, its pages are made and the user is told where they lie.
    void ViewReport(const Ref<CrystalRuntime::Report>& report, bool arabic);

protected:
    struct Shown {
        std::string printer; ///< the printer that the report is bound to
        std::int32_t pages = 0;
    };

private:
    virtual Shown DoViewReport(const Ref<CrystalRuntime::Report>& report, bool arabic) = 0;
};

} // namespace qbrpt
