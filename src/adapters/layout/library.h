// The layouts that a process can use: those built in, and a café's own that stand before them.
#pragma once

#include "base/fields.h"
#include "report/definition.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::layout {

/// A layout file that is built into the program.
struct BuiltInFile {
    std::string_view name; ///< without ".toml"
    std::string_view text;
};
[[nodiscard]] std::span<const BuiltInFile> BuiltInFiles();

class Library {
public:
    /// `folder` holds the café's own files: NAME.toml stands before the built-in layout NAME, house.toml
    /// is laid over the built-in house style. Empty: the built-in ones only.
    explicit Library(std::string folder = {});
    /// The folder that the environment variable QBRPT_LAYOUTS names.
    [[nodiscard]] static Library FromEnvironment();

    /// The layout of a template whose rows are `fields`, which must outlive it. Mistakes in a file are
    /// FailureNumber::Layout, a line each: file, line, column, what was expected. A café's own layout must
    /// have the page width, the sections and the named objects of the built-in one.
    [[nodiscard]] std::shared_ptr<const report::Definition> Load(const std::string& name,
                                                                 std::span<const Field> fields) const;

    /// Reads the text of a layout, as if it stood in a file `fileName`, upon the house style.
    [[nodiscard]] std::shared_ptr<const report::Definition> Read(const std::string& name,
                                                                 std::string_view text,
                                                                 const std::string& fileName,
                                                                 std::span<const Field> fields) const;

private:
    std::string mFolder;
};

} // namespace qbrpt::layout
