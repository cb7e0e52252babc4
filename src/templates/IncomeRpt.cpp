#include "templates/IncomeRpt.h"

namespace qbrpt {

IncomeRpt::IncomeRpt() : ReportTemplate("IncomeRpt") {}

void IncomeRpt::SetOtherTitle(const std::string& title) {
    SetTitleText("SetOtherTitle", "IncomeTitleText", title);
}

} // namespace qbrpt
