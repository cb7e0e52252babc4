// The answers to the question which subscriptions are to be printed, typed instead of clicked.
#pragma once

#include "arguments.h"
#include "platform/platform.h"

#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace qbrpt::cli {

struct MembersChoice {
    int type = 0; ///< as the window numbers its options
    std::optional<double> from;
    std::optional<double> to;
    bool group = false;
};

/// As it was typed.
struct TypedMembersChoice {
    int type = 0;
    std::string from;
    std::string to;
    bool group = false;
};

/// Whether a member asks the user where it is given nothing.
[[nodiscard]] bool AsksForMembers(const Member& member);

/// Adds `--choose` and what goes with it.
void AddMembersChoice(CLI::App& command, TypedMembersChoice& typed);

/// Nothing where it was not typed; raises WrongUse.
[[nodiscard]] std::optional<MembersChoice> ReadMembersChoice(const CLI::App& command,
                                                             const TypedMembersChoice& typed);

/// Has the window answered by `choice` whenever it would open.
void AnswerMembersWindow(Platform& platform, const MembersChoice& choice);

} // namespace qbrpt::cli
