// The font objects of a PDF file: subset, widths, and what each code reads as.
#pragma once

#include "adapters/pdf/font_codes.h"
#include "adapters/pdf/object_file.h"
#include "adapters/text/font_face.h"

#include <string>

namespace qbrpt::pdf {

/// Writes one font with all that belongs to it; gives its object.
ObjectId WriteFont(ObjectFile& file, const text::FontFace& face, const CodeTable& codes, FontId number);

/// The table that maps each code to its letter, as the body of a stream.
[[nodiscard]] std::string ToUnicode(const CodeTable& codes);

} // namespace qbrpt::pdf
