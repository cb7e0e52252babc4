// Subscriptions of the subscribers, with what is owed.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class MembersInfo final : public ReportTemplate {
public:
    MembersInfo() : ReportTemplate("MembersInfo") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
    /// This template's title object has a name of its own.
    void SetHeadTitle(const std::string& title) { SetTitleText("SetHeadTitle", "MembersTitleText", title); }
};

} // namespace qbrpt
