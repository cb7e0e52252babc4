// The number that a text begins with.
#pragma once

#include <string_view>

namespace qbrpt {

/// The number at the head of `text`: a sign, digits with one ".", an exponent (e or d). Blanks, tabs and
/// line ends are skipped wherever they stand; reading stops at the first character that cannot continue the
/// number. 0 where no number begins; infinite where it is too large.
[[nodiscard]] double LeadingNumber(std::string_view text);

} // namespace qbrpt
