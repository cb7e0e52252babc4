// The field list of a report template: what a row must carry, by position.
#pragma once

#include <cstdint>
#include <string_view>

namespace qbrpt {

/// Kinds of the field list, with the type code of the trade's field definition files.
enum class FieldKind : std::uint8_t { WholeNumber = 4, Number = 6, Boolean = 8, String = 11, DateTime = 15 };

/// One field. Columns of a record set fill the fields by position, never by name.
struct Field {
    std::string_view name;
    FieldKind kind;
    std::uint16_t width;  ///< bytes; a string of width 51 holds 50 characters
    std::uint16_t offset; ///< bytes from the start of the row; the one before plus its width
};

} // namespace qbrpt
