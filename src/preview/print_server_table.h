// The preview window as it is built: its controls, and their English words.
#pragma once

#include "platform/forms.h"

#include <span>
#include <string_view>

namespace qbrpt {

/// Built with the Arabic words.
[[nodiscard]] const FormTable& PrintServerTable();

struct EnglishWord {
    std::string_view name; ///< of a menu item, or the key of a tool bar's button
    std::string_view word; ///< its caption, or its tool tip
};

/// In the order in which SetEnglishCaptions sets them.
[[nodiscard]] std::span<const EnglishWord> EnglishCaptions();
[[nodiscard]] std::span<const EnglishWord> EnglishToolTips();

} // namespace qbrpt
