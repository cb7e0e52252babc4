#include "printers_command.h"

#include "adapters/printing/printer_list.h"
#include "adapters/real/real_platform.h"
#include "command_host.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::cli {

namespace {

constexpr double HundredthsToTheMillimetre = 100;

struct StateWord {
    std::uint32_t bit;
    std::string_view word;
};

constexpr StateWord StateWords[] = {
    {PrinterStatus::Printing, "printing"},
    {PrinterStatus::Paused, "paused"},
    {PrinterStatus::NotAvailable, "takes no jobs"},
    {PrinterStatus::Offline, "offline"},
    {PrinterStatus::PaperOut, "out of paper"},
    {PrinterStatus::PaperJam, "paper jam"},
    {PrinterStatus::DoorOpen, "door open"},
    {PrinterStatus::OutputFull, "output full"},
    {PrinterStatus::NoToner, "out of toner"},
    {PrinterStatus::TonerLow, "toner low"},
    {PrinterStatus::Error, "error"},
};

std::vector<std::string> StateOf(std::uint32_t status) {
    std::vector<std::string> state;
    for (const StateWord& one : StateWords)
        if ((status & one.bit) != 0) state.emplace_back(one.word);
    if (state.empty()) state.emplace_back("ready");
    return state;
}

template <class Offer>
std::string NameOf(const Offer* offer) {
    return offer == nullptr ? std::string{} : offer->name;
}

std::string Joined(const std::vector<std::string>& words) {
    std::string joined;
    for (const std::string& word : words)
        joined += (joined.empty() ? "" : ", ") + word;
    return joined;
}

template <class Offer>
std::string Names(const std::vector<Offer>& offers) {
    std::vector<std::string> names;
    for (const Offer& offer : offers)
        names.push_back(offer.name);
    return Joined(names);
}

void Line(std::string_view head, const std::string& text) {
    constexpr std::size_t headWidth = 9;
    if (text.empty()) return;
    std::cout << "  " << head << std::string(headWidth - head.size(), ' ') << text << '\n';
}

/// The printer as it begins: paper, tray, direction.
std::string DefaultsOf(const InstalledPrinter& printer) {
    std::vector<std::string> words = {NameOf(printer.PaperOf(printer.info.paperSize))};
    if (const std::string bin = NameOf(printer.BinOf(printer.info.paperBin)); !bin.empty())
        words.push_back(bin);
    words.emplace_back(printer.info.orientation == OrientationLandscape ? "landscape" : "upright");
    return Joined(words);
}

void Show(const InstalledPrinter& printer, bool isDefault) {
    std::cout << printer.info.deviceName << (isDefault ? "  (default)" : "") << '\n';
    Line("state", Joined(StateOf(printer.status)));
    Line("driver", printer.info.driverName);
    Line("port", printer.info.port);
    Line("place", printer.place);
    Line("comment", printer.comment);
    Line("begins", DefaultsOf(printer));
    Line("papers", Names(printer.papers));
    Line("trays", Names(printer.bins));
    if (printer.twoSided) Line("sides", "one or both");
}

nlohmann::ordered_json Described(const InstalledPrinter& printer, bool isDefault) {
    nlohmann::ordered_json json = {{"name", printer.info.deviceName},
                                   {"default", isDefault},
                                   {"state", StateOf(printer.status)},
                                   {"status", printer.status},
                                   {"driver", printer.info.driverName},
                                   {"port", printer.info.port},
                                   {"place", printer.place},
                                   {"comment", printer.comment},
                                   {"paper", printer.info.paperSize},
                                   {"bin", printer.info.paperBin},
                                   {"orientation", printer.info.orientation},
                                   {"bothSides", printer.twoSided}};
    json["papers"] = nlohmann::ordered_json::array();
    for (const PrinterPaper& paper : printer.papers)
        json["papers"].push_back({{"code", paper.code},
                                  {"name", paper.name},
                                  {"keyword", paper.keyword},
                                  {"widthMm", paper.width / HundredthsToTheMillimetre},
                                  {"heightMm", paper.height / HundredthsToTheMillimetre}});
    json["bins"] = nlohmann::ordered_json::array();
    for (const PrinterBin& bin : printer.bins)
        json["bins"].push_back({{"code", bin.code}, {"name", bin.name}, {"keyword", bin.keyword}});
    return json;
}

} // namespace

void AddPrinters(CLI::App& application, PrintersCall& call) {
    CLI::App* command =
        application.add_subcommand("printers", "Lists the printers, with their papers and trays");
    command->add_flag("--json", call.json, "as JSON, for programs");
    command->footer("The names of printers, papers and trays go with --printer, --paper and --bin.\n"
                    "Exit status: 0 listed; 1 the print service does not answer; 2 wrong use.");
}

int RunPrinters(const PrintersCall& call) {
    const auto printers = PrintersOfThisMachine({});
    const InstalledPrinters::Snapshot all = printers->All();
    if (call.json) {
        nlohmann::ordered_json json = {{"printers", nlohmann::ordered_json::array()},
                                       {"trouble", printers->Trouble()}};
        for (const InstalledPrinter& printer : *all)
            json["printers"].push_back(Described(printer, &printer == &all->front()));
        constexpr int indent = 2;
        std::cout << json.dump(indent, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
    } else {
        for (const InstalledPrinter& printer : *all)
            Show(printer, &printer == &all->front());
    }
    if (!printers->Trouble().empty()) std::cerr << "qbrpt: " << printers->Trouble() << '\n';
    return !printers->Hung() ? ReportMade : ErrorShown;
}

} // namespace qbrpt::cli
