#include "dialect/builtins.h"

#include "dialect/parser_limits.h"
#include "dialect/words.h"

#include <algorithm>
#include <array>

namespace qbrpt::dialect {

namespace {

constexpr int Many = MostArguments;

constexpr auto Builtins = std::to_array<Builtin>({
    // Choices and nulls.
    {"IIf", 3, 3, Form::IIf, Result::Choice, "v", {}},
    {"Switch", 2, Many, Form::Switch, Result::Choice, "v", {}},
    {"Choose", 2, Many, Form::Choose, Result::Choice, "v", {}},
    {"Nz", 1, 2, Form::Nz, Result::Choice, "v", {}},
    {"IsNull", 1, 1, Form::IsNull, Result::Boolean, "v", {}},
    {"IsNumeric", 1, 1, Form::Function, Result::Boolean, "v", "qb_isnumeric"},
    {"IsDate", 1, 1, Form::Function, Result::Boolean, "v", "qb_isdate"},
    // Text.
    {"Format", 1, 4, Form::Format, Result::Text, "vt", "qb_format"},
    {"Len", 1, 1, Form::Length, Result::Whole, "t", "qb_len"},
    {"Left", 2, 2, Form::Left, Result::Text, "tn", "qb_left"},
    {"Right", 2, 2, Form::Right, Result::Text, "tn", "qb_right"},
    {"Mid", 2, 3, Form::Mid, Result::Text, "tn", "qb_mid"},
    {"Trim", 1, 1, Form::Trim, Result::Text, "t", "qb_trim"},
    {"LTrim", 1, 1, Form::LTrim, Result::Text, "t", "qb_ltrim"},
    {"RTrim", 1, 1, Form::RTrim, Result::Text, "t", "qb_rtrim"},
    {"UCase", 1, 1, Form::Function, Result::Text, "t", "qb_ucase"},
    {"LCase", 1, 1, Form::Function, Result::Text, "t", "qb_lcase"},
    {"InStr", 2, 4, Form::Function, Result::Whole, "v", "qb_instr"},
    {"InStrRev", 2, 2, Form::Function, Result::Whole, "t", "qb_instrrev"},
    {"Replace", 3, 6, Form::Function, Result::Text, "tttn", "qb_replace"},
    {"StrComp", 2, 3, Form::Function, Result::Whole, "ttn", "qb_strcomp"},
    {"StrReverse", 1, 1, Form::Function, Result::Text, "t", "qb_strreverse"},
    {"Space", 1, 1, Form::Function, Result::Text, "n", "qb_space"},
    {"String", 2, 2, Form::Function, Result::Text, "nv", "qb_string"},
    {"Chr", 1, 1, Form::Function, Result::Text, "n", "qb_chr"},
    {"ChrW", 1, 1, Form::Function, Result::Text, "n", "qb_chr"},
    {"Asc", 1, 1, Form::Function, Result::Whole, "t", "qb_asc"},
    {"AscW", 1, 1, Form::Function, Result::Whole, "t", "qb_asc"},
    // Numbers.
    {"Abs", 1, 1, Form::Abs, Result::Numeric, "n", {}},
    {"Int", 1, 1, Form::Int, Result::Numeric, "n", {}},
    {"Fix", 1, 1, Form::Fix, Result::Numeric, "n", {}},
    {"Sgn", 1, 1, Form::Sgn, Result::Whole, "n", {}},
    {"Round", 1, 2, Form::Function, Result::Numeric, "n", "qb_round"},
    {"Sqr", 1, 1, Form::Function, Result::Number, "n", "qb_sqr"},
    {"Exp", 1, 1, Form::Function, Result::Number, "n", "qb_exp"},
    {"Log", 1, 1, Form::Function, Result::Number, "n", "qb_log"},
    // From one kind to another.
    {"CStr", 1, 1, Form::ToText, Result::Text, "v", "qb_text"},
    {"Str", 1, 1, Form::Function, Result::Text, "n", "qb_str"},
    {"CInt", 1, 1, Form::ToWhole, Result::Whole, "n", "qb_cint"},
    {"CLng", 1, 1, Form::ToWhole, Result::Whole, "n", "qb_clng"},
    {"CByte", 1, 1, Form::ToWhole, Result::Whole, "n", "qb_cbyte"},
    {"CDbl", 1, 1, Form::ToNumber, Result::Number, "n", "qb_cdbl"},
    {"CSng", 1, 1, Form::Function, Result::Number, "n", "qb_csng"},
    {"CCur", 1, 1, Form::Function, Result::Number, "n", "qb_ccur"},
    {"CBool", 1, 1, Form::ToBoolean, Result::Boolean, "v", "qb_cbool"},
    {"CDate", 1, 1, Form::ToDate, Result::Date, "d", "qb_cdate"},
    {"CVDate", 1, 1, Form::ToDate, Result::Date, "d", "qb_cdate"},
    {"Val", 1, 1, Form::Function, Result::Number, "t", "qb_val"},
    // Dates.
    {"Now", 0, 0, Form::Function, Result::Date, "", "qb_now"},
    {"Date", 0, 0, Form::Function, Result::Date, "", "qb_today"},
    {"Time", 0, 0, Form::Function, Result::Date, "", "qb_timeofday"},
    {"Year", 1, 1, Form::Function, Result::Whole, "d", "qb_year"},
    {"Month", 1, 1, Form::Function, Result::Whole, "d", "qb_month"},
    {"Day", 1, 1, Form::Function, Result::Whole, "d", "qb_day"},
    {"Hour", 1, 1, Form::Function, Result::Whole, "d", "qb_hour"},
    {"Minute", 1, 1, Form::Function, Result::Whole, "d", "qb_minute"},
    {"Second", 1, 1, Form::Function, Result::Whole, "d", "qb_second"},
    {"Weekday", 1, 2, Form::Function, Result::Whole, "dn", "qb_weekday"},
    {"DateAdd", 3, 3, Form::Function, Result::Date, "tnd", "qb_dateadd"},
    {"DateDiff", 3, 4, Form::Function, Result::Whole, "tddn", "qb_datediff"},
    {"DatePart", 2, 3, Form::Function, Result::Whole, "tdn", "qb_datepart"},
    {"DateSerial", 3, 3, Form::Function, Result::Date, "n", "qb_dateserial"},
    {"TimeSerial", 3, 3, Form::Function, Result::Date, "n", "qb_timeserial"},
    {"DateValue", 1, 1, Form::Function, Result::Date, "d", "qb_datevalue"},
    {"TimeValue", 1, 1, Form::Function, Result::Date, "d", "qb_timevalue"},
    {"MonthName", 1, 2, Form::Function, Result::Text, "n", "qb_monthname"},
    {"WeekdayName", 1, 3, Form::Function, Result::Text, "n", "qb_weekdayname"},
    // Aggregates.
    {"Count", 1, 1, Form::Count, Result::Whole, "v", {}},
    {"Sum", 1, 1, Form::Sum, Result::Numeric, "n", {}},
    {"Avg", 1, 1, Form::Avg, Result::Number, "n", {}},
    {"Min", 1, 1, Form::Min, Result::Argument, "v", {}},
    {"Max", 1, 1, Form::Max, Result::Argument, "v", {}},
    {"First", 1, 1, Form::First, Result::Argument, "v", "qb_first"},
    {"Last", 1, 1, Form::Last, Result::Argument, "v", "qb_last"},
});

} // namespace

const Builtin* FindBuiltin(std::string_view name) {
    const auto* found = std::find_if(Builtins.begin(), Builtins.end(),
                                     [name](const Builtin& entry) { return SameName(entry.name, name); });
    return found == Builtins.end() ? nullptr : found;
}

const Builtin* FindEmitted(std::string_view emitted) {
    const auto* found = std::find_if(Builtins.begin(), Builtins.end(),
                                     [emitted](const Builtin& entry) { return entry.emitted == emitted; });
    return found == Builtins.end() ? nullptr : found;
}

} // namespace qbrpt::dialect
