// Names of tables, columns and queries, which are the same in any case.
#pragma once

#include <string>
#include <string_view>

namespace qbrpt::database {

/// `name` with its Latin letters small; the form under which names are looked up.
[[nodiscard]] std::string FoldName(std::string_view name);

[[nodiscard]] bool SameName(std::string_view a, std::string_view b);

/// `text` without blanks, tabs and line ends around it.
[[nodiscard]] std::string_view Trimmed(std::string_view text);

} // namespace qbrpt::database
