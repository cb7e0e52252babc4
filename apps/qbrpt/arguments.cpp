#include "arguments.h"

#include "base/calendar.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace qbrpt::cli {

namespace {

template <class Number>
std::optional<Number> NumberText(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

template <class Whole>
Whole ReadWhole(const std::string& typed) {
    const auto number = NumberText<std::int64_t>(typed);
    constexpr std::int64_t least = std::numeric_limits<Whole>::min();
    constexpr std::int64_t most = std::numeric_limits<Whole>::max();
    if (!number || *number < least || *number > most)
        throw WrongUse("\"" + typed + "\" is no whole number from " + std::to_string(least) + " to " +
                       std::to_string(most) + ".");
    return static_cast<Whole>(*number);
}

/// Digits at a place of a fixed form, or -1.
int DigitsAt(std::string_view text, std::size_t place, std::size_t count) {
    int number = 0;
    for (const char digit : text.substr(place, count)) {
        if (digit < '0' || digit > '9') return -1;
        number = number * 10 + (digit - '0');
    }
    return number;
}

/// The day number of yyyy-mm-dd or yyyy-mm-ddThh:mm; nothing for any other form and for days that no
/// calendar has.
std::optional<double> CalendarText(std::string_view text) {
    constexpr std::string_view dayForm = "yyyy-mm-dd";
    constexpr std::string_view minuteForm = "yyyy-mm-ddThh:mm";
    const bool withTime = text.size() == minuteForm.size() && text[10] == 'T' && text[13] == ':';
    if (text.size() != dayForm.size() && !withTime) return std::nullopt;
    if (text[4] != '-' || text[7] != '-') return std::nullopt;
    Moment moment;
    moment.year = DigitsAt(text, 0, 4);
    moment.month = DigitsAt(text, 5, 2);
    moment.day = DigitsAt(text, 8, 2);
    if (withTime) {
        moment.hour = DigitsAt(text, 11, 2);
        moment.minute = DigitsAt(text, 14, 2);
    }
    constexpr int firstYear = 100; // where day numbers begin
    if (moment.year < firstYear || moment.month < 1 || moment.month > 12 || moment.day < 1 ||
        moment.day > 31 || moment.hour < 0 || moment.hour > 23 || moment.minute < 0 || moment.minute > 59)
        return std::nullopt;
    const double number = DayNumberOf(moment);
    if (MomentOf(number).day != moment.day) return std::nullopt; // 31 February
    return number;
}

Argument ReadDay(const std::string& typed) {
    if (const auto number = CalendarText(typed)) {
        if (*number != std::floor(*number))
            throw WrongUse("\"" + typed + "\": whole days are expected here, as yyyy-mm-dd.");
        return static_cast<std::int32_t>(*number);
    }
    try {
        return ReadWhole<std::int32_t>(typed);
    } catch (const WrongUse&) {
        throw WrongUse("\"" + typed + "\" is no day: neither yyyy-mm-dd nor a whole date number.");
    }
}

Argument ReadDateNumber(const std::string& typed) {
    if (const auto number = CalendarText(typed)) return *number;
    const auto number = NumberText<double>(typed);
    if (!number || !std::isfinite(*number))
        throw WrongUse("\"" + typed +
                       "\" is no date: neither yyyy-mm-dd, yyyy-mm-ddThh:mm nor a date number.");
    return *number;
}

/// The argument behind those that have been read.
Argument LeftOut(const Member& member, const std::vector<Argument>& before) {
    const MemberArgument& expected = member.arguments[before.size()];
    for (std::size_t i = 0; i < before.size(); ++i)
        if (member.arguments[i].name == *expected.defaultText) return before[i];
    return ReadArgument(expected.kind, *expected.defaultText);
}

} // namespace

Argument ReadArgument(ArgumentKind kind, const std::string& typed) {
    switch (kind) {
    case ArgumentKind::Short:
        return ReadWhole<std::int16_t>(typed);
    case ArgumentKind::Long:
        return ReadWhole<std::int32_t>(typed);
    case ArgumentKind::Day:
        return ReadDay(typed);
    case ArgumentKind::DateNumber:
        return ReadDateNumber(typed);
    case ArgumentKind::Database:
        throw WrongUse("A database that is open already cannot be typed.");
    case ArgumentKind::Text:
    case ArgumentKind::File:
    case ArgumentKind::Statement:
        break;
    }
    return typed;
}

std::vector<Argument> ReadArguments(const Member& member, const std::vector<std::string>& typed) {
    std::vector<Argument> arguments;
    for (std::size_t i = 0; i < member.arguments.size(); ++i) {
        const MemberArgument& expected = member.arguments[i];
        if (i >= typed.size() && !expected.defaultText)
            throw WrongUse(member.name + ": the argument " + expected.name + " is missing.");
        try {
            arguments.push_back(i < typed.size() ? ReadArgument(expected.kind, typed[i])
                                                 : LeftOut(member, arguments));
        } catch (const WrongUse& wrong) {
            throw WrongUse(member.name + ": " + expected.name + ": " + wrong.what());
        }
    }
    if (typed.size() > member.arguments.size())
        throw WrongUse(member.name + ": \"" + typed[member.arguments.size()] +
                       "\" is one argument too many.");
    return arguments;
}

std::string_view KindWord(ArgumentKind kind) {
    switch (kind) {
    case ArgumentKind::Short:
    case ArgumentKind::Long:
        return "NUMBER";
    case ArgumentKind::Day:
        return "DAY";
    case ArgumentKind::DateNumber:
        return "DATE";
    case ArgumentKind::File:
        return "FILE";
    case ArgumentKind::Database:
        return "DATABASE";
    case ArgumentKind::Text:
    case ArgumentKind::Statement:
        break;
    }
    return "TEXT";
}

} // namespace qbrpt::cli
