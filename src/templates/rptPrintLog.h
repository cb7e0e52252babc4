// The log of print jobs.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class rptPrintLog final : public ReportTemplate {
public:
    rptPrintLog() : ReportTemplate("rptPrintLog") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
    using ReportTemplate::SetHeadTitle;
};

} // namespace qbrpt
