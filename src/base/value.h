// One value of a row, a parameter or a trace line.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace qbrpt {

struct Null {
    friend bool operator==(Null, Null) { return true; }
};

/// A date with its time of day: whole days since 30 December 1899, the time as the fraction.
struct Date {
    double number = 0;
    friend bool operator==(Date a, Date b) { return a.number == b.number; }
};

/// Text is UTF-8. Whole numbers keep 64 bits; where the system speaks of a long, the code that
/// stores one checks for 32.
using Value = std::variant<Null, bool, std::int64_t, double, Date, std::string>;

/// Same order as the alternatives of Value.
enum class ValueKind : std::uint8_t { Null, Boolean, Whole, Number, Date, Text };

[[nodiscard]] inline ValueKind KindOf(const Value& value) {
    return static_cast<ValueKind>(value.index());
}
[[nodiscard]] inline bool IsNull(const Value& value) {
    return KindOf(value) == ValueKind::Null;
}

/// The number of a boolean (true is -1), a number or a date; nothing for null and for a text.
[[nodiscard]] inline std::optional<double> NumberIn(const Value& value) {
    switch (KindOf(value)) {
    case ValueKind::Boolean:
        return std::get<bool>(value) ? -1 : 0;
    case ValueKind::Whole:
        return static_cast<double>(std::get<std::int64_t>(value));
    case ValueKind::Number:
        return std::get<double>(value);
    case ValueKind::Date:
        return std::get<Date>(value).number;
    default:
        return std::nullopt;
    }
}

} // namespace qbrpt
