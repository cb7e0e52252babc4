#include "print_options.h"

#include "adapters/printing/printer_delivery.h"
#include "arguments.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <optional>

namespace qbrpt::cli {

namespace {

std::optional<std::int32_t> PageNumber(std::string_view typed) {
    std::int32_t number = 0;
    const char* end = typed.data() + typed.size();
    const auto [behind, error] = std::from_chars(typed.data(), end, number);
    if (error != std::errc{} || behind != end || number < 1) return std::nullopt;
    return number;
}

} // namespace

void AddPrintOptions(CLI::App& command, TypedPrint& typed) {
    command.add_flag("--print", typed.print, "prints what would be shown or printed");
    command
        .add_option("--printer", typed.choice.printer, "the printer of --print (qbrpt printers lists them)")
        ->type_name("NAME");
    command.add_option("--paper", typed.choice.paper, "the paper of --print")->type_name("NAME");
    command.add_option("--bin", typed.choice.bin, "the tray of --print")->type_name("NAME");
    command.add_option("--pages", typed.pages, "the pages of --print: 2, 2-3, or 2- to the end")
        ->type_name("RANGE");
    command.add_option("--copies", typed.choice.copies, "copies of --print, collated")
        ->check(CLI::Range(std::int32_t{1}, MostCopies));
    command.add_option("--duplex", typed.duplex, "both sides, turned over the long or the short edge")
        ->check(CLI::IsMember({"long", "short"}))
        ->type_name("EDGE");
}

PrintChoice ReadPrintOptions(const CLI::App& command, const TypedPrint& typed) {
    for (const char* name : {"--printer", "--paper", "--bin", "--pages", "--copies", "--duplex"}) {
        const CLI::Option* option = command.get_option(name);
        if (option->count() == 0) continue;
        if (!typed.print) throw WrongUse(std::string{name} + " goes with --print.");
        if (option->as<std::string>().empty())
            throw WrongUse(std::string{name} + " is given without a name.");
    }
    PrintChoice choice = typed.choice;
    if (!typed.pages.empty()) choice.pages = ReadPages(typed.pages);
    if (!typed.duplex.empty()) choice.sides = typed.duplex == "long" ? Sides::LongEdge : Sides::ShortEdge;
    return choice;
}

PageRange ReadPages(std::string_view typed) {
    const std::size_t dash = typed.find('-');
    const std::optional<std::int32_t> first = PageNumber(typed.substr(0, dash));
    const bool toTheEnd = dash != std::string_view::npos && dash + 1 == typed.size();
    std::optional<std::int32_t> last = first;
    if (dash != std::string_view::npos) last = PageNumber(typed.substr(dash + 1));
    if (!first || (!last && !toTheEnd) || (last && *last < *first))
        throw WrongUse("--pages: \"" + std::string{typed} + "\" are no pages; 2, 2-3 or 2- are.");
    return {first, last};
}

} // namespace qbrpt::cli
