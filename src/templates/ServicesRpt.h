// Orders of customers.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class ServicesRpt final : public ReportTemplate {
public:
    ServicesRpt() : ReportTemplate("ServicesRpt") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
    using ReportTemplate::SetHeadTitle;
};

} // namespace qbrpt
