// Money paid out: a line a payment, with their sum.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class PayOutRpt final : public ReportTemplate {
public:
    PayOutRpt() : ReportTemplate("PayOutRpt") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
    using ReportTemplate::SetHeadTitle;
};

} // namespace qbrpt
