// All entries of the general accounts.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class AccountRpt final : public ReportTemplate {
public:
    AccountRpt() : ReportTemplate("AccountRpt") {}
    using ReportTemplate::ReportWidth;
    /// The café's name, and the title under it.
    void SetTitle(const std::string& name, const std::string& title);
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
};

} // namespace qbrpt
