// A layout file as pages, with made-up rows.
#pragma once

#include "base/byte_sink.h"

#include <cstddef>
#include <filesystem>
#include <functional>

namespace qbrpt::layouts {

/// Writes the pages of a layout file, or of the built-in layout of a template's name, to `sink` as PDF: with
/// the house.toml and the pictures beside the file, made-up rows, and sample texts where a report would write
/// the café's. Mistakes in the file are a Failure. `onPage` is called before each page.
void PreviewLayout(const std::filesystem::path& file, std::size_t rows, ByteSink& sink,
                   const std::function<void(std::size_t done, std::size_t all)>& onPage);

} // namespace qbrpt::layouts
