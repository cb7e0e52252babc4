// Money paid out: a line a payment, with their sum.
#pragma once

#include "templates/logo_template.h"

namespace qbrpt {

class PayOutRpt final : public LogoTemplate {
public:
    PayOutRpt();
    void SetHeadTitle(const std::string& title);
};

} // namespace qbrpt
