// The members of the public class, as the command line offers them.
#pragma once

#include "arguments.h"
#include "service/VantlowCls.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace qbrpt::cli {

struct MemberArgument {
    std::string name;
    ArgumentKind kind;
    std::string help;
    std::optional<std::string> defaultText{}; ///< as it would be typed; nothing: must be given
};

/// What a member leaves behind, when all goes well.
enum class Outcome : std::uint8_t {
    Report, ///< a report, or nothing where there are no rows
    Nothing,
    Answer ///< a value, which is printed
};

struct Member {
    std::string name;
    std::string help;
    Outcome outcome;
    std::vector<MemberArgument> arguments;
    /// Calls the member; the arguments are complete and of the right kinds. Returns the text of an answer.
    std::function<std::string(VantlowCls& object, std::span<const Argument> arguments)> call;
    std::string more{}; ///< what a caller must know beyond the arguments
};

/// In the order of the interface. `SetDatabase` is missing: no text can stand for an open database.
[[nodiscard]] const std::vector<Member>& Members();

/// The arguments of a call from what was typed, with defaults for what was left out. Raises WrongUse.
[[nodiscard]] std::vector<Argument> ReadArguments(const Member& member,
                                                  const std::vector<std::string>& typed);

} // namespace qbrpt::cli
