// The moves of one account: what came in, and in a subreport what went out.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class SngAccountRpt final : public ReportTemplate {
public:
    SngAccountRpt() : ReportTemplate("SngAccountRpt") {}
    using ReportTemplate::ReportWidth;
    /// The café's name, the title, what stands under it, and the sum of what went out.
    void SetTitle(const std::string& name, const std::string& title, const std::string& subTitle,
                  std::int32_t amount);
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
    /// Leaves out the sections of what came in, or of what went out.
    void ShowAccountSection(bool hideIncoming, bool hideOutgoing);
};

} // namespace qbrpt
