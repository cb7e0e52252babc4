// The pages of a document, as they lie on their sheets.
#pragma once

#include "tools/child_process.h"

#include <filesystem>
#include <string>
#include <vector>

namespace qbrpt::test {

struct PrintedPage {
    int width = 0; ///< of the sheet, in points
    int height = 0;
    bool sideways = false; ///< its lines run along the sheet's height
    std::string text;      ///< without blanks
    int leftBlank = 0;     ///< of the sheet, in points
    int rightBlank = 0;
    int topBlank = 0;
    int bottomBlank = 0;
};

/// Raises what the reader says of a document that is none.
[[nodiscard]] std::vector<PrintedPage> PagesIn(const std::filesystem::path& document);

/// "2 3 2 3": the numbers that the pages bear.
[[nodiscard]] std::string NumbersOf(const std::vector<PrintedPage>& pages);

} // namespace qbrpt::test
