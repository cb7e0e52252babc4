#include "layout_commands.h"

#include "adapters/files/atomic_file.h"
#include "base/failure.h"
#include "command_host.h"
#include "interrupt.h"
#include "layouts/layout_preview.h"
#include "progress_line.h"

#include <CLI/CLI.hpp>

#include <iostream>

namespace qbrpt::cli {

namespace {

constexpr std::size_t MostPreviewRows = 100'000;

int Export(const LayoutsCall& call) {
    for (const std::string& name : layouts::ExportLayouts(call.folder, call.existing))
        std::cout << name << '\n';
    return ReportMade;
}

std::vector<std::string> MistakesIn(const std::string& file) {
    try {
        return layouts::MistakesIn(file);
    } catch (const Failure& failure) {
        return {failure.Description()}; // the next file is still looked at
    }
}

int Check(const LayoutsCall& call) {
    bool wrong = false;
    for (const std::string& file : call.files) {
        const std::vector<std::string> mistakes = MistakesIn(file);
        for (const std::string& mistake : mistakes)
            std::cerr << mistake << '\n';
        if (mistakes.empty()) std::cout << file << ": no mistakes\n";
        wrong = wrong || !mistakes.empty();
    }
    return wrong ? ErrorShown : ReportMade;
}

int Preview(const LayoutsCall& call) {
    ProgressLine line;
    AtomicFile file(call.pdfFile);
    InterruptibleSink sink(file);
    layouts::PreviewLayout(call.file, call.rows, sink, [&line](std::size_t done, std::size_t all) {
        StopIfInterrupted();
        line.Show("page " + std::to_string(done + 1) + " of " + std::to_string(all));
    });
    file.Commit();
    return ReportMade;
}

} // namespace

void AddLayouts(CLI::App& application, LayoutsCall& call) {
    CLI::App* layouts = application.add_subcommand(
        "layouts", "The café's own layout files: write them out, check them, look at them");
    layouts->require_subcommand(1);
    layouts->footer("A folder with such files takes effect by --layouts DIR or by QBRPT_LAYOUTS.");

    CLI::App* write = layouts->add_subcommand("export", "Writes the built-in layout files into a folder");
    write->add_option("folder", call.folder, "the folder; made where it is missing")
        ->required()
        ->type_name("DIR");
    write->add_flag_callback(
        "--overwrite", [&call] { call.existing = layouts::Existing::Replace; },
        "replaces files that are there already");
    write->footer("Exit status: 0 written; 1 not written, an error was shown; 2 wrong use.");
    write->callback([&call] { call.verb = LayoutsCall::Verb::Export; });

    CLI::App* check = layouts->add_subcommand("check", "Says what is wrong with layout files");
    check->add_option("files", call.files, "layout files, named after their templates, or house.toml")
        ->required()
        ->type_name("FILE");
    check->footer("A line for each mistake: FILE:LINE:COLUMN: what was expected.\n"
                  "Exit status: 0 no mistakes; 1 mistakes; 2 wrong use.");
    check->callback([&call] { call.verb = LayoutsCall::Verb::Check; });

    CLI::App* preview = layouts->add_subcommand("preview", "Renders a layout file with sample rows");
    preview
        ->add_option("file", call.file,
                     "the layout file; house.toml and pictures beside it count. Or a template's name: its "
                     "built-in layout")
        ->required()
        ->type_name("FILE");
    preview->add_option("--pdf", call.pdfFile, "the PDF file")->required()->type_name("FILE");
    preview->add_option("--rows", call.rows, "sample rows")
        ->capture_default_str()
        ->check(CLI::Range(std::size_t{0}, MostPreviewRows));
    preview->footer("Exit status: 0 written; 1 an error was shown; 2 wrong use.");
    preview->callback([&call] { call.verb = LayoutsCall::Verb::Preview; });
}

int RunLayouts(const LayoutsCall& call) {
    switch (call.verb) {
    case LayoutsCall::Verb::Export:
        return Export(call);
    case LayoutsCall::Verb::Preview:
        return Preview(call);
    default:
        return Check(call);
    }
}

} // namespace qbrpt::cli
