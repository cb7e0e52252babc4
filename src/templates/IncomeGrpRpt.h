// The income sheet: one line a working day, with sums and daily averages.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class IncomeGrpRpt final : public ReportTemplate {
public:
    IncomeGrpRpt();
    using ReportTemplate::ReportWidth;
    using ReportTemplate::Report_Initialize;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetOtherTitle;
    void Section6_Format();
};

} // namespace qbrpt
