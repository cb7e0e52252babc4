// Picture files as pixels.
#pragma once

#include "base/picture.h"

#include <memory>
#include <string>
#include <string_view>

namespace qbrpt {

/// The pixels of a PNG or JPEG file. Any other content, a damaged file and a picture of more than 25 million
/// pixels are FailureNumber::FileAccess; `name` stands in the description.
[[nodiscard]] std::shared_ptr<const Picture> ReadPicture(std::string_view bytes, const std::string& name);

} // namespace qbrpt
