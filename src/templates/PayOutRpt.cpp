#include "templates/PayOutRpt.h"

namespace qbrpt {

PayOutRpt::PayOutRpt() : LogoTemplate("PayOutRpt") {}

void PayOutRpt::SetHeadTitle(const std::string& title) {
    SetTitleText("SetHeadTitle", "HeadTitleText", title);
}

} // namespace qbrpt
