#include "templates/report_template.h"

#include "platform/desktop.h"
#include "platform/platform.h"
#include "support/Startupmdl.h"
#include "support/error_trap.h"

#include <vector>

namespace qbrpt {

ReportTemplate::ReportTemplate(std::string_view name)
    : mFacts(FactsOf(name)),
      mReport(Platform::Current().reports->NewReport(std::string(name), mFacts.fields)) {
    Report_Initialize();
}

void ReportTemplate::Report_Initialize() {
    if (mFacts.fontPass) ApplyReportFonts(mReport);
    mFirstSectionHeight = mReport->Sections(1)->Height();
}

void ReportTemplate::SetHotelInfoByName(const std::string& Name1, const std::string& addr1,
                                        const std::string& addr2) {
    TellObservers("SetHotelInfo", {Name1, addr1, addr2});
    switch (mFacts.heading) {
    case HotelHeading::None:
        throw Failure(FailureNumber::NotInCollection,
                      "The report template \"" + std::string(mFacts.name) + "\" has no member SetHotelInfo.");
    case HotelHeading::TopBottom:
        SetText("HotelNameTextTop", Name1);
        SetText("HotelNameTextBottom", Name1);
        break;
    case HotelHeading::NameOnly:
    case HotelHeading::NameAddress:
        SetText("HotelNameText", Name1);
    }
    if (mFacts.heading == HotelHeading::NameOnly) return;
    SetText("HotelAddr1Text", addr1);
    SetText("HotelAddr2Text", addr2);
}

void ReportTemplate::SetLogo(const Ref<const Picture>& logo) {
    ErrorTrap trap(ErrorTrap::BoxThenLeave, {.style = BoxStyle::Plain});
    trap.Step([&] {
        TellObservers("SetLogo", {});
        mLogo = logo;
    });
}

void ReportTemplate::SetHeadTitle(const std::string& title) {
    SetTitleText("SetHeadTitle", "HeadTitleText", title);
}

void ReportTemplate::SetOtherTitle(const std::string& title) {
    SetTitleText("SetOtherTitle", "IncomeTitleText", title);
}

void ReportTemplate::SetInfoData(const std::string& title) {
    SetTitleText("SetInfoData", "IncomeTitleText", title);
}

void ReportTemplate::SetOtherTitels(const std::string& title) {
    ErrorTrap trap(ErrorTrap::SilentGoOn);
    trap.Step([&] { SetTitleText("SetOtherTitels", "OtherTitleText", title); });
}

void ReportTemplate::SetText(const std::string& object, const std::string& text) {
    mReport->ObjectNamed(object)->SetText(text);
}

void ReportTemplate::SetTitleText(std::string_view member, const std::string& object,
                                  const std::string& text) {
    TellObservers(member, {text});
    SetText(object, text);
}

void ReportTemplate::HandleFormat(const std::string& section, const std::function<void()>& handler) {
    mReport->OnFormat(section, [handler, alive = std::weak_ptr<const bool>(mAlive)] {
        if (!alive.expired()) handler();
    });
}

void ReportTemplate::TellObservers(std::string_view member, std::initializer_list<Value> arguments) {
    Platform::Current().observers.MemberCalled(member, std::vector<Value>(arguments));
}

} // namespace qbrpt
