#include "templates/SngAccountRpt.h"

#include "base/pictures.h"

namespace qbrpt {

void SngAccountRpt::SetTitle(const std::string& name, const std::string& title, const std::string& subTitle,
                             std::int32_t amount) {
    TellObservers("SetTitle", {name, title, subTitle, std::int64_t{amount}});
    SetText("HotelNameText", name);
    SetText("HeadTitleText", title);
    SetText("AccountSubTitleText", subTitle);
    SetText("AccountAmountText", FormatNumber(amount, "#,##.00#"));
}

void SngAccountRpt::ShowAccountSection(bool hideIncoming, bool hideOutgoing) {
    TellObservers("ShowAccountSection", {hideIncoming, hideOutgoing});
    for (const char* section : {"AccountSection1", "AccountSection2", "AccountSection3"})
        Report()->SectionNamed(section)->SetSuppress(hideIncoming);
    Report()->SectionNamed("AccountSection4")->SetSuppress(hideOutgoing);
}

} // namespace qbrpt
