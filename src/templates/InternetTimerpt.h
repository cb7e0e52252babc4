// Connection time of the internet devices.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class InternetTimerpt final : public ReportTemplate {
public:
    InternetTimerpt() : ReportTemplate("InternetTimerpt") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetOtherTitels;
    using ReportTemplate::Report_Initialize;
    /// The second column counts days (`group`); else the layout's own caption stands over it.
    void SetGroup(bool group);
};

} // namespace qbrpt
