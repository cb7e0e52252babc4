#include "templates/logo_template.h"

#include "platform/desktop.h"
#include "support/error_trap.h"

namespace qbrpt {

void LogoTemplate::SetLogo(const Ref<const Picture>& logo) {
    ErrorTrap trap(ErrorTrap::BoxThenLeave, {}, BoxStyle::Plain);
    trap.Step([&] {
        TellObservers("SetLogo", {});
        mLogo = logo;
    });
}

} // namespace qbrpt
