// Payments of subscribers, on a narrow page.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class MembersPay final : public ReportTemplate {
public:
    MembersPay() : ReportTemplate("MembersPay") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
};

} // namespace qbrpt
