// Files of the café's own layout folder.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace qbrpt::layout {

struct OwnFile {
    std::string path;
    std::string text;
};

/// The café's file `name`; nothing where there is no folder or none of that name. One that cannot be read
/// is FailureNumber::FileAccess, one above `largest` bytes FailureNumber::Layout; `what` names its kind.
[[nodiscard]] std::optional<OwnFile> ReadOwnFile(const std::string& folder, const std::string& name,
                                                 std::uintmax_t largest, const std::string& what);

} // namespace qbrpt::layout
