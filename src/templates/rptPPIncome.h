// A list of prepaid cards.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class rptPPIncome final : public ReportTemplate {
public:
    rptPPIncome();
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
    /// Writes the title that SetTitle left here; an empty one leaves the layout's own.
    void Section2_Format();
    /// Only keeps the title; it reaches the page when Section2 is formatted.
    void SetTitle(const std::string& title);

private:
    std::string mTitle;
};

} // namespace qbrpt
