#include "support/control_reading.h"

#include "support/error_trap.h"

namespace qbrpt {

std::int32_t SelectedItemData(const ListControl& ctl) {
    return ctl.ListIndex() > -1 && ctl.ListCount() != 0 ? ctl.ItemData(ctl.ListIndex()) : 0;
}

std::int32_t GetItemData(const ListControl& ctl) {
    std::int32_t data = 0;
    ErrorTrap trap(ErrorTrap::SilentLeave);
    trap.Step([&] { data = SelectedItemData(ctl); });
    return data;
}

std::int16_t GetSelectedTab(const TabStrip& tabs) {
    ErrorTrap trap(ErrorTrap::SilentGoOn);
    std::int32_t count = 0; // wider than a tab's number, so that the walk over 32767 tabs ends
    trap.Step([&] { count = tabs.TabCount(); });
    for (std::int32_t position = 1; position <= count; ++position) {
        const auto tab = static_cast<std::int16_t>(position);
        bool selected = false;
        trap.Step([&] { selected = tabs.TabSelected(tab); });
        if (selected) return tab;
    }
    return 0;
}

} // namespace qbrpt
