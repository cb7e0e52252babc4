// The functions that a statement may call.
#pragma once

#include "base/value.h"

#include <cstdint>
#include <string_view>

namespace qbrpt::dialect {

/// What becomes of a call.
enum class Form : std::uint8_t {
    Function, ///< a call of one of our own functions
    IIf,
    Switch,
    Choose,
    Nz,
    IsNull,
    Format,
    Length,
    Trim,
    LTrim,
    RTrim,
    Left,
    Right,
    Mid,
    Abs,
    Int,
    Fix,
    Sgn,
    ToText,
    ToWhole, ///< CLng and its narrower kin
    ToNumber,
    ToBoolean,
    ToDate,
    Count,
    Sum,
    Avg,
    Min,
    Max,
    First,
    Last
};

/// How the kind of a call comes about.
enum class Result : std::uint8_t {
    Boolean,
    Whole,
    Number,
    Date,
    Text,
    Argument, ///< the kind of the first argument
    Numeric,  ///< the same, a boolean being a whole number and a text a number
    Choice    ///< what the possible values have in common
};

struct Builtin {
    std::string_view name;
    int minimum; ///< arguments
    int maximum;
    Form form;
    Result result;
    /// How each argument is handed over: t text, n number, d date, v as it is; the last one goes on.
    std::string_view arguments;
    std::string_view emitted; ///< name of our own function behind it
};

/// The function of this name, any case; nullptr where there is none.
[[nodiscard]] const Builtin* FindBuiltin(std::string_view name);

/// The first function behind which our own function of this name stands; nullptr where there is none.
[[nodiscard]] const Builtin* FindEmitted(std::string_view emitted);

[[nodiscard]] constexpr bool IsAggregate(Form form) {
    return form >= Form::Count;
}

} // namespace qbrpt::dialect
