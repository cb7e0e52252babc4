// The files that a report is written to.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace qbrpt::cli {

/// In the order in which they are written.
enum class OutputKind : std::uint8_t { Pdf, Csv, Xlsx, Html };

struct OutputOption {
    OutputKind kind;
    const char* name;
    const char* help;
};

constexpr auto OutputOptions = std::to_array<OutputOption>({
    {OutputKind::Pdf, "--pdf", "writes the pages to a PDF file"},
    {OutputKind::Csv, "--csv", "writes the rows to a CSV file"},
    {OutputKind::Xlsx, "--xlsx", "writes the table to a spreadsheet"},
    {OutputKind::Html, "--html", "writes the table to a web page"},
});

/// The option that asks for a file of this kind.
constexpr const char* NameOf(OutputKind kind) {
    return OutputOptions[static_cast<std::size_t>(kind)].name;
}

/// Names by kind; only those that are asked for.
using OutputFiles = std::map<OutputKind, std::string>;

} // namespace qbrpt::cli
