#include "templates/AccountRpt.h"

namespace qbrpt {

void AccountRpt::SetTitle(const std::string& name, const std::string& title) {
    TellObservers("SetTitle", {name, title});
    SetText("HotelNameText", name);
    SetText("HeadTitleText", title);
}

} // namespace qbrpt
