// The income sheet by kinds of use. No command creates it.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class IncomeRpt final : public ReportTemplate {
public:
    IncomeRpt();
    void SetOtherTitle(const std::string& title);
};

} // namespace qbrpt
