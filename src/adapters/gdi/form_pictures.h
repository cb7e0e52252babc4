// The pictures that forms are built with.
#pragma once

#include "base/picture.h"

#include <optional>
#include <string_view>

namespace qbrpt::gdi {

/// By the name that a form's table gives: a sheet of paper, upright or turned. Nothing for another name.
[[nodiscard]] std::optional<Picture> FormPicture(std::string_view name);

} // namespace qbrpt::gdi
