#include "command_line.h"

#include "suggestion.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <filesystem>
#include <map>

namespace qbrpt::cli {

namespace {

constexpr const char* ExitHelp =
    "Exit status: 0 report made; 3 no rows, nothing made; 1 an error was shown; 2 wrong use.";

// As many as day numbers and the memory of a machine allow without surprise.
constexpr int MostDays = 36'500;
constexpr int MostSessions = 1'000'000;

/// The parts of a member's command line that are texts before they are anything else.
struct Typed {
    std::vector<std::string> arguments;
    OutputFiles files;
    TypedPrint print;
    bool preview = false;
    TypedMembersChoice choice;
    std::string onError;
};

std::string CommonHelp(const MemberArgument& argument) {
    return argument.defaultText && !argument.defaultText->empty()
               ? argument.help.english + " (default " + *argument.defaultText + ")"
               : argument.help.english;
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
    for (const OutputOption& output : OutputOptions)
        command.add_option(output.name, typed.files[output.kind], output.help)->type_name("FILE");
    AddPrintOptions(command, typed.print);
    command.add_flag("--preview", typed.preview, "shows what would be shown or printed");
    command.add_option("--layouts", call.layoutsFolder, "folder with the café's own layout files")
        ->type_name("DIR");
    command.add_option("--trace", call.traceFile, "writes what happens as JSON lines")->type_name("FILE");
    command.add_option("--on-error", typed.onError, "the answer to error boxes: cancel or retry")
        ->check(CLI::IsMember({"cancel", "retry"}))
        ->type_name("ANSWER");
}

/// Whatever way the names go there.
std::string Place(const std::string& name) {
    std::error_code unreachable;
    const auto place = std::filesystem::weakly_canonical(std::filesystem::absolute(name), unreachable);
    return unreachable ? name : place.string();
}

/// What is written may stand in the place neither of the database nor of anything else that is written.
void RefuseSameFile(const MemberCall& call) {
    std::vector<std::pair<std::string, std::string>> files = {{"--db", call.database},
                                                              {"--trace", call.traceFile}};
    for (const auto& [kind, name] : call.files)
        files.emplace_back(NameOf(kind), name);
    std::map<std::string, std::string> taken;
    for (const auto& [option, name] : files) {
        if (name.empty()) continue;
        const auto [other, free] = taken.emplace(Place(name), option);
        if (!free) throw WrongUse(other->second + " and " + option + " name the same file.");
    }
}

/// Where the report goes; raises WrongUse where several ways are asked for.
Destination DestinationOf(const MemberCall& call, const Typed& typed) {
    const bool files = !call.files.empty();
    if (static_cast<int>(files) + static_cast<int>(typed.print.print) + static_cast<int>(typed.preview) > 1)
        throw WrongUse(
            "Files (--pdf, --csv, --xlsx, --html), --print and --preview cannot be asked for together.");
    if (files) return Destination::Files;
    if (typed.print.print) return Destination::Printer;
    return typed.preview ? Destination::Preview : Destination::AsCalled;
}

/// What a member that asks the user is answered.
void CompleteChoice(MemberCall& call, const CLI::App& command, const Typed& typed) {
    call.choice = ReadMembersChoice(command, typed.choice);
    const bool given = !std::get<std::string>(call.arguments.at(0)).empty();
    if (given && call.choice) throw WrongUse("--choose takes the place of the condition: give one of them.");
    if (!given && !call.choice && call.destination != Destination::Preview)
        throw WrongUse(call.member->name +
                       " asks in a window which subscriptions are meant: answer with --choose, give a "
                       "condition, or see the window with --preview.");
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
    for (const char* name : {"--db", "--pdf", "--csv", "--xlsx", "--html", "--trace", "--layouts"}) {
        const CLI::Option* option = command.get_option(name);
        if (option->count() > 0 && option->as<std::string>().empty())
            throw WrongUse(std::string{name} + " is given without a name.");
    }
    std::erase_if(typed.files, [](const auto& file) { return file.second.empty(); });
    call.files = typed.files;
    call.print = ReadPrintOptions(command, typed.print);
    call.destination = DestinationOf(call, typed);
    RefuseSameFile(call);
    if (AsksForMembers(*call.member)) CompleteChoice(call, command, typed);
    if (call.member->outcome == Outcome::Window) {
        if (call.destination == Destination::Files || call.destination == Destination::Printer)
            throw WrongUse(call.member->name + " opens a window and makes no report.");
        call.destination = Destination::Preview;
    }
}

void AddSample(CLI::App& application, sample::SampleOptions& options) {
    CLI::App* command = application.add_subcommand("sample", "Makes a café's database to try things with");
    command->add_option("file", options.file, "the database file")->required()->type_name("FILE");
    command->add_option("--days", options.days, "working days")
        ->capture_default_str()
        ->check(CLI::Range(1, MostDays));
    command->add_option("--sessions-per-day", options.sessionsPerDay, "sessions of each day")
        ->capture_default_str()
        ->check(CLI::Range(0, MostSessions));
    command->add_option("--seed", options.seed, "the same seed makes the same rows")->capture_default_str();
    command->add_flag("--overwrite", options.overwrite,
                      "takes the place also of a database that is no sample");
}

/// As the parser takes them, last word first. It would take "-.5" for an option.
std::vector<std::string> ReversedWords(int count, const char* const* words) {
    std::vector<std::string> reversed;
    for (int i = count - 1; i > 0; --i) {
        const std::string word = words[i];
        const bool number = word.size() > 2 && word.starts_with("-.") && word[2] >= '0' && word[2] <= '9';
        const bool ofOption = std::string_view(words[i - 1]).starts_with("--");
        reversed.push_back(number && !ofOption ? "-0" + word.substr(1) : word);
    }
    return reversed;
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
    if (firstWord == "SetDatabase")
        throw WrongUse(
            "SetDatabase takes a database that is open already, which no command line has: use --db.");
    const std::string nearest = NearestName(firstWord, names);
    throw WrongUse("There is no member or command \"" + std::string{firstWord} + "\"" +
                   (nearest.empty() ? "." : "; did you mean " + nearest + "?") +
                   "\nqbrpt --help lists them.");
}

/// The help of the command that was chosen last: that of `qbrpt layouts check` when it was typed so far.
std::string HelpOfInnermost(const CLI::App& command, const std::string& before) {
    const auto chosen = command.get_subcommands();
    if (chosen.empty()) return command.help(before);
    return HelpOfInnermost(*chosen.front(), before + (before.empty() ? "" : " ") + command.get_name());
}

} // namespace

Request ReadCommandLine(int count, const char* const* words) {
    CLI::App application{"Reports and accounts of an internet café.", "qbrpt"};
    application.set_version_flag("--version", "qbrpt " QBRPT_VERSION);
    application.require_subcommand(1);
    application.footer(ExitHelp);

    sample::SampleOptions sampleOptions;
    AddSample(application, sampleOptions);
    LayoutsCall layoutsCall;
    AddLayouts(application, layoutsCall);
    PrintersCall printersCall;
    AddPrinters(application, printersCall);
    MemberCall call;
    std::map<const CLI::App*, Typed> typed;
    std::map<const CLI::App*, const Member*> members;
    const auto addMember = [&](const Member& member) {
        CLI::App* command = application.add_subcommand(member.name, member.help.english);
        members[command] = &member;
        AddArguments(*command, member, typed[command]);
        AddOptions(*command, call, typed[command]);
        command->footer(member.more.english.empty() ? std::string{ExitHelp}
                                                    : member.more.english + "\n\n" + std::string{ExitHelp});
        if (AsksForMembers(member)) AddMembersChoice(*command, typed[command].choice);
        return command;
    };
    for (const Member& member : Members())
        if (CanBeTyped(member)) addMember(member);
    std::map<const CLI::App*, const LedgerReport*> ledger;
    for (const LedgerReport& report : LedgerReports())
        ledger[addMember(report.member)] = &report;
    AccountsCall accountsCall;
    AddAccounts(application, accountsCall);
    try {
        application.parse(ReversedWords(count, words));
    } catch (const CLI::CallForHelp&) {
        return Information{HelpOfInnermost(application, "")};
    } catch (const CLI::CallForVersion&) {
        return Information{"qbrpt " QBRPT_VERSION "\n"};
    } catch (const CLI::ParseError& error) {
        Refuse(application, error, count > 1 ? words[1] : "");
    }
    const CLI::App* chosen = application.get_subcommands().front();
    if (chosen->get_name() == "layouts") return layoutsCall;
    if (chosen->get_name() == "printers") return printersCall;
    if (chosen->get_name() == "accounts") return accountsCall;
    if (!members.contains(chosen)) return sampleOptions;
    call.member = members.at(chosen);
    if (const auto report = ledger.find(chosen); report != ledger.end()) call.ledger = report->second;
    Complete(call, *chosen, typed.at(chosen));
    return call;
}

} // namespace qbrpt::cli
