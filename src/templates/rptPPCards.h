// Prepaid cards.
#pragma once

#include "templates/card_template.h"

namespace qbrpt {

class rptPPCards final : public CardTemplate {
public:
    rptPPCards() : CardTemplate("rptPPCards") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using CardTemplate::SetCafeName;
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
    using ReportTemplate::SetHeadTitle;
    using CardTemplate::Section3_Format;
};

} // namespace qbrpt
