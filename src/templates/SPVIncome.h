// Income by supervisor.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class SPVIncome final : public ReportTemplate {
public:
    SPVIncome() : ReportTemplate("SPVIncome") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetOtherTitels;
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
};

} // namespace qbrpt
