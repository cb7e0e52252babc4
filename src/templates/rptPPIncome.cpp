#include "templates/rptPPIncome.h"

namespace qbrpt {

rptPPIncome::rptPPIncome() : ReportTemplate("rptPPIncome") {
    HandleFormat("Section2", [this] { Section2_Format(); });
}

void rptPPIncome::Section2_Format() {
    if (!mTitle.empty()) SetText("HeadTitleText", mTitle);
}

void rptPPIncome::SetTitle(const std::string& title) {
    TellObservers("SetTitle", {title});
    mTitle = title;
}

} // namespace qbrpt
