// What was asked for on the command line.
#pragma once

#include "account_commands.h"
#include "arguments.h"
#include "layout_commands.h"
#include "members_choice.h"
#include "output_files.h"
#include "platform/desktop.h"
#include "print_options.h"
#include "printers_command.h"
#include "sample/sample.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace qbrpt::cli {

/// Where the report of a member goes.
enum class Destination : std::uint8_t {
    AsCalled, ///< as the member's own arguments say
    Files,    ///< --pdf, --csv, --xlsx, --html
    Printer,  ///< --print
    Preview   ///< --preview
};

struct MemberCall {
    const Member* member = nullptr;
    const LedgerReport* ledger = nullptr; ///< where the member is that of a report on the accounts
    std::vector<Argument> arguments;
    std::optional<MembersChoice> choice; ///< the window that asks is answered so
    std::string database;
    std::string connect;
    std::string title;
    std::string addr1;
    std::string addr2;
    Destination destination = Destination::AsCalled;
    OutputFiles files;
    PrintChoice print;
    std::string traceFile;
    std::optional<std::string> layoutsFolder; ///< nothing: as the settings say
    std::optional<BoxAnswer> onError;         ///< nothing: as the settings say
};

/// A text to print instead of doing anything: help, version.
struct Information {
    std::string text;
};

using Request =
    std::variant<MemberCall, sample::SampleOptions, LayoutsCall, PrintersCall, AccountsCall, Information>;

/// Reads the command line; raises WrongUse, with words for the user.
[[nodiscard]] Request ReadCommandLine(int count, const char* const* words);

} // namespace qbrpt::cli
