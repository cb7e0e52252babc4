// The café's own layout files: where they start from, and what is wrong with them.
#pragma once

#include "base/fields.h"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace qbrpt::layouts {

enum class Existing : std::uint8_t { Keep, Replace };

/// Writes the built-in layouts and the house style into `folder`, which is made where it is missing, and
/// returns their names. With Existing::Keep a folder that holds one of the files already is a Failure that
/// names them, and nothing is written.
std::vector<std::string> ExportLayouts(const std::filesystem::path& folder, Existing existing);

/// What is wrong with a layout file, a line each: file, line, column, what was expected; the house.toml
/// beside it counts with it. Empty: nothing. A file that cannot be read is a Failure.
[[nodiscard]] std::vector<std::string> MistakesIn(const std::filesystem::path& file);

/// The template that a layout file is for, by its name; one that is for none is a Failure.
[[nodiscard]] std::string TemplateOf(const std::filesystem::path& file);

/// Whether `file` is the bare name of a template, and there is no such file.
[[nodiscard]] bool IsBuiltIn(const std::filesystem::path& file);

} // namespace qbrpt::layouts
