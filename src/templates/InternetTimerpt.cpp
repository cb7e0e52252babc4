#include "templates/InternetTimerpt.h"

namespace qbrpt {

void InternetTimerpt::SetGroup(bool group) {
    TellObservers("SetGroup", {group});
    if (group) SetText("GroupColumnText", "عدد الأيام");
}

} // namespace qbrpt
