// The income sheet by kinds of use. No command creates it.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class IncomeRpt final : public ReportTemplate {
public:
    IncomeRpt() : ReportTemplate("IncomeRpt") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::Report_Initialize;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetOtherTitle;
};

} // namespace qbrpt
