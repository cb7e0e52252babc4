// Texts of a web page.
#pragma once

#include <string>
#include <string_view>

namespace qbrpt {

/// Appends `text` with the marks of HTML written out, safe between tags and inside quoted attributes.
void AppendEscaped(std::string& html, std::string_view text);

/// The same for the text of a cell, in which figures, dates and codes keep their own direction, so that
/// 02-03-2025 doesn't read 2025-03-02 among Arabic words.
void AppendCellText(std::string& html, std::string_view text);

} // namespace qbrpt
