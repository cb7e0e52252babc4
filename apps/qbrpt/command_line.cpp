#include "command_line.h"

#include "suggestion.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>

namespace qbrpt::cli {

namespace {

constexpr const char* ExitHelp =
    "Exit status: 0 report made; 3 no rows, nothing made; 1 an error was shown; 2 wrong use.";

/// The parts of a member's command line that are texts before they are anything else.
struct Typed {
    std::vector<std::string> arguments;
    bool print = false;
    bool preview = false;
    std::string onError;
};

std::string CommonHelp(const MemberArgument& argument) {
    return argument.defaultText && !argument.defaultText->empty()
               ? argument.help + " (default " + *argument.defaultText + ")"
               : argument.help;
}

void AddArguments(CLI::App& command, const Member& member, Typed& typed) {
    typed.arguments.resize(member.arguments.size());
    for (std::size_t i = 0; i < member.arguments.size(); ++i) {
        const MemberArgument& argument = member.arguments[i];
        command.add_option(argument.name, typed.arguments[i], CommonHelp(argument))
            ->required(!argument.defaultText.has_value())
            ->type_name(std::string{KindWord(argument.kind)});
    }
}

void AddOptions(CLI::App& command, MemberCall& call, Typed& typed) {
    command.add_option("--db", call.database, "the café's database file")->type_name("FILE");
    command.add_option("--connect", call.connect, "connect text of a database server")->type_name("TEXT");
    command.add_option("--title", call.title, "the café's name, in the heading")->type_name("TEXT");
    command.add_option("--addr1", call.addr1, "first line under the name")->type_name("TEXT");
    command.add_option("--addr2", call.addr2, "second line under the name")->type_name("TEXT");
    auto* pdf =
        command.add_option("--pdf", call.pdfFile, "writes the pages to a PDF file")->type_name("FILE");
    auto* csv = command.add_option("--csv", call.csvFile, "writes the rows to a CSV file")->type_name("FILE");
    auto* print = command.add_flag("--print", typed.print, "prints what would be shown or printed");
    auto* printer =
        command.add_option("--printer", call.printer, "the printer of --print")->type_name("NAME");
    auto* preview = command.add_flag("--preview", typed.preview, "shows what would be shown or printed");
    printer->needs(print);
    print->excludes(pdf)->excludes(csv)->excludes(preview);
    preview->excludes(pdf)->excludes(csv);
    command.add_option("--trace", call.traceFile, "writes what happens as JSON lines")->type_name("FILE");
    command.add_option("--on-error", typed.onError, "the answer to error boxes: cancel or retry")
        ->check(CLI::IsMember({"cancel", "retry"}))
        ->type_name("ANSWER");
    command.footer(ExitHelp);
}

/// Turns the texts of a parsed member call into the call.
void Complete(MemberCall& call, const CLI::App& command, Typed& typed) {
    std::size_t given = 0;
    for (const MemberArgument& argument : call.member->arguments)
        if (command.get_option(argument.name)->count() > 0) ++given;
    typed.arguments.resize(given);
    call.arguments = ReadArguments(*call.member, typed.arguments);
    if (!typed.onError.empty())
        call.onError = typed.onError == "retry" ? BoxAnswer::Retry : BoxAnswer::Cancel;
    for (const char* option : {"--db", "--pdf", "--csv", "--trace", "--printer"})
        if (const CLI::Option* given_ = command.get_option(option);
            given_->count() > 0 && given_->as<std::string>().empty())
            throw WrongUse(std::string{option} + " is given without a name.");
    if (!call.pdfFile.empty() || !call.csvFile.empty())
        call.destination = Destination::Files;
    else if (typed.print)
        call.destination = Destination::Printer;
    else if (typed.preview)
        call.destination = Destination::Preview;
    if (!call.pdfFile.empty() && call.pdfFile == call.csvFile)
        throw WrongUse("--pdf and --csv name the same file.");
}

void AddSample(CLI::App& application, sample::SampleOptions& options) {
    CLI::App* command = application.add_subcommand("sample", "Makes a café's database to try things with");
    command->add_option("file", options.file, "the database file")->required()->type_name("FILE");
    command->add_option("--days", options.days, "working days")
        ->capture_default_str()
        ->check(CLI::PositiveNumber);
    command->add_option("--sessions-per-day", options.sessionsPerDay, "sessions of each day")
        ->capture_default_str()
        ->check(CLI::NonNegativeNumber);
    command->add_option("--seed", options.seed, "the same seed makes the same rows")->capture_default_str();
}

[[noreturn]] void Refuse(const CLI::App& application, const CLI::ParseError& error,
                         std::string_view firstWord) {
    std::vector<std::string> names;
    for (const CLI::App* command : application.get_subcommands({}))
        names.push_back(command->get_name());
    const bool known = std::find(names.begin(), names.end(), firstWord) != names.end();
    if (known || firstWord.empty() || firstWord.starts_with('-'))
        throw WrongUse(std::string{error.what()} + "\nqbrpt " + (known ? std::string{firstWord} + " " : "") +
                       "--help tells more.");
    const std::string nearest = NearestName(firstWord, names);
    throw WrongUse("There is no member or command \"" + std::string{firstWord} + "\"" +
                   (nearest.empty() ? "." : "; did you mean " + nearest + "?") +
                   "\nqbrpt --help lists them.");
}

} // namespace

Request ReadCommandLine(int count, const char* const* words) {
    CLI::App application{"Reports and accounts of an internet café.", "qbrpt"};
    application.set_version_flag("--version", "qbrpt " QBRPT_VERSION);
    application.require_subcommand(1);
    application.footer(ExitHelp);

    sample::SampleOptions sampleOptions;
    AddSample(application, sampleOptions);
    MemberCall call;
    std::map<const CLI::App*, Typed> typed;
    std::map<const CLI::App*, const Member*> members;
    for (const Member& member : Members()) {
        CLI::App* command = application.add_subcommand(member.name, member.help);
        members[command] = &member;
        AddArguments(*command, member, typed[command]);
        AddOptions(*command, call, typed[command]);
    }
    try {
        application.parse(count, words);
    } catch (const CLI::CallForHelp&) {
        const auto chosen = application.get_subcommands();
        return Information{chosen.empty() ? application.help() : chosen.front()->help("qbrpt")};
    } catch (const CLI::CallForVersion&) {
        return Information{"qbrpt " QBRPT_VERSION "\n"};
    } catch (const CLI::ParseError& error) {
        Refuse(application, error, count > 1 ? words[1] : "");
    }
    const CLI::App* chosen = application.get_subcommands().front();
    if (!members.contains(chosen)) return sampleOptions;
    call.member = members.at(chosen);
    Complete(call, *chosen, typed.at(chosen));
    return call;
}

} // namespace qbrpt::cli
