#include "templates/IncomeGrpRpt.h"

namespace qbrpt {

IncomeGrpRpt::IncomeGrpRpt() : ReportTemplate("IncomeGrpRpt") {
    HandleFormat("Section6", [this] { Section6_Format(); });
}

void IncomeGrpRpt::Section6_Format() {
    // The status is read and thrown away; nothing on the page depends on it.
    static_cast<void>(Report()->PrintingStatus());
}

} // namespace qbrpt
