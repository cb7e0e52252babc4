// The income sheet: one line a working day, with sums and daily averages.
#pragma once

#include "templates/report_template.h"

namespace qbrpt {

class IncomeGrpRpt final : public ReportTemplate {
public:
    IncomeGrpRpt();
    void SetOtherTitle(const std::string& title);

private:
    void Section6_Format();
};

} // namespace qbrpt
