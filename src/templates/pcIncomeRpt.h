// Use and income of each host, with its share of all use.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class pcIncomeRpt final : public ReportTemplate {
public:
    pcIncomeRpt() : ReportTemplate("pcIncomeRpt") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::Report_Initialize;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetInfoData;
};

} // namespace qbrpt
