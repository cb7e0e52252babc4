// Income from outside: a line a receipt, with their sum.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class OutIncome final : public ReportTemplate {
public:
    OutIncome() : ReportTemplate("OutIncome") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
    using ReportTemplate::SetHeadTitle;
};

} // namespace qbrpt
