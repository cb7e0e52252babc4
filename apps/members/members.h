// The members of the public class as a table, for programs that offer all of them.
#pragma once

#include <qbrpt/VantlowCls.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace qbrpt::members {

enum class ArgumentKind : std::uint8_t {
    Short,      ///< 16-bit whole number
    Long,       ///< 32-bit whole number
    Day,        ///< date number of 32 bits
    DateNumber, ///< date number with its time of day
    Text,
    File,      ///< the name of a file
    Statement, ///< text in the dialect of statements, or a part of one
    Database   ///< a database that the host has opened
};

using Argument =
    std::variant<std::int16_t, std::int32_t, double, std::string, std::shared_ptr<DAO::Database>>;

/// What something is, said to users of either language.
struct Words {
    std::string english;
    std::string arabic;
};

struct MemberArgument {
    std::string name;
    ArgumentKind kind;
    Words help;
    /// As it would be typed; nothing: must be given. The name of an argument before it stands for its value.
    std::optional<std::string> defaultText{};
};

/// What a member leaves behind, when all goes well.
enum class Outcome : std::uint8_t {
    Report, ///< a report, or nothing where there are no rows
    Nothing,
    Window, ///< one that the user has seen
    Answer  ///< a value
};

struct Member {
    std::string name;
    Words help;
    Outcome outcome;
    std::vector<MemberArgument> arguments;
    /// Calls the member; the arguments are complete and of the right kinds. Returns the text of an answer.
    std::function<std::string(VantlowCls& object, std::span<const Argument> arguments)> call;
    Words more{}; ///< what a caller must know beyond the arguments
};

/// All of them, in the order of the interface.
[[nodiscard]] const std::vector<Member>& Members();

/// Whether texts can stand for all arguments; for an open database none can.
[[nodiscard]] bool CanBeTyped(const Member& member);

} // namespace qbrpt::members
