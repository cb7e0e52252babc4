// The fonts of a character set, as the font pass of the report templates asks for them.
#pragma once

#include "platform/locale.h"

#include <memory>

namespace qbrpt::text {

/// Reports families under their own names: the house's chain first, then the others by name. The Arabic
/// character set lists the families with Arabic letters, the default and the ANSI set all of them, any
/// other set none.
[[nodiscard]] std::unique_ptr<FontSource> MakeFontSource();

} // namespace qbrpt::text
