// What the windows ask of their list boxes and tabs.
#pragma once

#include "platform/controls.h"

#include <cstdint>

namespace qbrpt {

/// The item data of the selected entry; 0 where none is selected, and where the control fails.
[[nodiscard]] std::int32_t GetItemData(const ListControl& ctl);

/// The same, but a control that fails is a failure.
[[nodiscard]] std::int32_t SelectedItemData(const ListControl& ctl);

/// The number of the selected tab, counted from 1; 0 when none is. A tab that cannot be read is skipped.
[[nodiscard]] std::int16_t GetSelectedTab(const TabStrip& tabs);

} // namespace qbrpt
