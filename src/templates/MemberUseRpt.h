// Sessions of subscribers or of a prepaid card.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class MemberUseRpt final : public ReportTemplate {
public:
    MemberUseRpt() : ReportTemplate("MemberUseRpt") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
};

} // namespace qbrpt
