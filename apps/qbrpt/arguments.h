// Arguments of members, as they are typed.
#pragma once

#include "members/members.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::cli {

using members::Argument;
using members::ArgumentKind;
using members::CanBeTyped;
using members::Member;
using members::MemberArgument;
using members::Members;
using members::Outcome;

/// Something that was typed wrongly; what() says what, and what is expected.
class WrongUse : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The value of a typed argument; raises WrongUse for one that does not fit its kind. Days are whole numbers
/// or yyyy-mm-dd, date numbers also yyyy-mm-ddThh:mm.
[[nodiscard]] Argument ReadArgument(ArgumentKind kind, const std::string& typed);

/// The arguments of a call from what was typed, with defaults for what was left out. Raises WrongUse.
[[nodiscard]] std::vector<Argument> ReadArguments(const Member& member,
                                                  const std::vector<std::string>& typed);

/// What a kind is called in help texts.
[[nodiscard]] std::string_view KindWord(ArgumentKind kind);

} // namespace qbrpt::cli
