// Texts of rows and titles as other programs' files may carry them.
#pragma once

#include <string>
#include <string_view>

namespace qbrpt {

/// `text` as valid UTF-8 that XML may hold: line ends are '\n', other control characters blanks,
/// characters that are none U+FFFD.
[[nodiscard]] std::string PlainText(std::string_view text);

/// `text` without the invisible signs that keep inserted values apart on pages.
[[nodiscard]] std::string WithoutIsolates(std::string_view text);

} // namespace qbrpt
