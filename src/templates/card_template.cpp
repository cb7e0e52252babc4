#include "templates/card_template.h"

#include "support/error_trap.h"
#include "support/picture_fit.h"

namespace qbrpt {

CardTemplate::CardTemplate(std::string_view name) : ReportTemplate(name) {
    HandleFormat("Section3", [this] { Section3_Format(); });
}

void CardTemplate::SetCafeName(const std::string& name) {
    TellObservers("SetCafeName", {name});
    SetText("CafeNameText1", name);
    SetText("CafeNameText2", name);
}

void CardTemplate::Section3_Format() {
    for (const char* name : {"CardPicture1", "CardPicture2"})
        ShowCardPicture(Report()->ObjectNamed(name));
}

void CardTemplate::ShowCardPicture(const Ref<CrystalRuntime::ReportObject>& picture) {
    if (Logo().Empty()) return;
    ErrorTrap trap(ErrorTrap::BoxThenLeave);
    trap.Step([&] {
        FitPictureToBox(*Logo(), *picture, picture->Width(), picture->Height());
        picture->SetFormattedPicture(Logo());
        picture->SetSuppress(false);
        picture->SetLeft((ReportWidth() - picture->Width()) / 2);
    });
}

} // namespace qbrpt
