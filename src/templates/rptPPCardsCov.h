// Prepaid cards in their other shape. No command creates it.
#pragma once

#include "templates/card_template.h"

namespace qbrpt {

class rptPPCardsCov final : public CardTemplate {
public:
    rptPPCardsCov() : CardTemplate("rptPPCardsCov") {}
    using ReportTemplate::ReportWidth;
    using ReportTemplate::SetHotelInfo;
    using CardTemplate::SetCafeName;
    using ReportTemplate::SetLogo;
    using ReportTemplate::Report_Initialize;
    using ReportTemplate::SetHeadTitle;
    using CardTemplate::Section3_Format;
};

} // namespace qbrpt
