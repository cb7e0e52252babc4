#include "templates/logo_template.h"

#include "platform/desktop.h"
#include "platform/platform.h"

#include <exception>

namespace qbrpt {

void LogoTemplate::SetLogo(const Ref<const Picture>& logo) {
    try {
        TellObservers("SetLogo", {});
        mLogo = logo;
    } catch (const std::exception& failure) {
        Platform::Current().messages->MsgBox(failure.what(), BoxStyle::Plain);
    }
}

} // namespace qbrpt
