// --print and what goes with it: printer, paper, tray, pages, copies, sides.
#pragma once

#include "adapters/output/report_output.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace CLI {
class App;
}

namespace qbrpt::cli {

/// How a report is to be printed; what is empty stays as the printer has it.
struct PrintChoice {
    std::string printer;
    std::string paper;
    std::string bin;
    PageRange pages;
    std::int32_t copies = 1;
    Sides sides = Sides::AsThePrinterHas;
};

/// The same as it was typed.
struct TypedPrint {
    bool print = false;
    PrintChoice choice;
    std::string pages;
    std::string duplex;
};

void AddPrintOptions(CLI::App& command, TypedPrint& typed);

/// The choice from what was typed. Raises WrongUse for pages that cannot be read, and for options without
/// --print.
[[nodiscard]] PrintChoice ReadPrintOptions(const CLI::App& command, const TypedPrint& typed);

/// "2", "2-3" or "2-" (to the end). Raises WrongUse for anything else: it is never taken for all pages.
[[nodiscard]] PageRange ReadPages(std::string_view typed);

} // namespace qbrpt::cli
