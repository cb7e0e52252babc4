// Finished sessions one by one.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class UsageRpt final : public ReportTemplate {
public:
    UsageRpt() : ReportTemplate("UsageRpt") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetOtherTitels;
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
};

} // namespace qbrpt
