// One value of a row, a parameter or a trace line.
#pragma once

#include <cstdint>
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

} // namespace qbrpt
