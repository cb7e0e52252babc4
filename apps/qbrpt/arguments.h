// Arguments of members, as they are typed.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

namespace qbrpt::cli {

enum class ArgumentKind : std::uint8_t {
    Short,      ///< 16-bit whole number
    Long,       ///< 32-bit whole number
    Day,        ///< date number of 32 bits: a whole number or yyyy-mm-dd
    DateNumber, ///< date number with time of day: a number, yyyy-mm-dd or yyyy-mm-ddThh:mm
    Text
};

using Argument = std::variant<std::int16_t, std::int32_t, double, std::string>;

/// Something that was typed wrongly; what() says what, and what is expected.
class WrongUse : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The value of a typed argument; raises WrongUse for one that does not fit its kind.
[[nodiscard]] Argument ReadArgument(ArgumentKind kind, const std::string& typed);

/// What a kind is called in help texts.
[[nodiscard]] std::string_view KindWord(ArgumentKind kind);

} // namespace qbrpt::cli
