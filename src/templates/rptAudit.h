// The audit trail of what users did.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class rptAudit final : public ReportTemplate {
public:
    rptAudit() : ReportTemplate("rptAudit") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
    using ReportTemplate::SetHeadTitle;
};

} // namespace qbrpt
