// The Like operator.
#pragma once

#include <string_view>

namespace qbrpt::dialect {

/// Whether `text` is like `pattern`, without regard to case: `*` any characters, `?` one, `#` one digit,
/// `[abc]`, `[a-f]`, `[!0-9]` one of these or none of these. Raises InvalidArgument for a bracket that is
/// not closed.
[[nodiscard]] bool IsLike(std::string_view text, std::string_view pattern);

} // namespace qbrpt::dialect
