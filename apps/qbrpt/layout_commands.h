// qbrpt layouts: the café's own layout files.
#pragma once

#include "layouts/layout_files.h"

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace qbrpt::cli {

struct LayoutsCall {
    enum class Verb : std::uint8_t { Export, Check, Preview };
    Verb verb = Verb::Check;
    std::string folder;                                   ///< Export
    layouts::Existing existing = layouts::Existing::Keep; ///< Export
    std::vector<std::string> files;                       ///< Check
    std::string file;                                     ///< Preview
    std::string pdfFile;                                  ///< Preview
    std::size_t rows = 40;                                ///< Preview
};

/// Adds `layouts` and its verbs; what is typed goes into `call`.
void AddLayouts(CLI::App& application, LayoutsCall& call);

/// Does it, and returns the exit status.
[[nodiscard]] int RunLayouts(const LayoutsCall& call);

} // namespace qbrpt::cli
