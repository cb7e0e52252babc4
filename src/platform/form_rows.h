// Words in which the tables of forms are written.
#pragma once

#include "platform/forms.h"

#include <cstdint>
#include <string_view>

namespace qbrpt::rows {

constexpr ControlRow Field(ControlKind kind, std::string_view name, std::string_view parent, GridCell cell,
                           std::int16_t tabIndex) {
    return {.kind = kind, .name = name, .parent = parent, .cell = cell, .tabIndex = tabIndex};
}
constexpr ControlRow Words(ControlKind kind, std::string_view name, std::string_view parent,
                           std::string_view caption, GridCell cell, std::int16_t tabIndex = 0) {
    ControlRow row = Field(kind, name, parent, cell, tabIndex);
    row.caption = caption;
    return row;
}
/// A date picker.
constexpr ControlRow Picker(std::string_view name, std::string_view parent, std::string_view format,
                            GridCell cell, std::int16_t tabIndex) {
    ControlRow row = Field(ControlKind::DatePicker, name, parent, cell, tabIndex);
    row.format = format;
    return row;
}
constexpr ControlRow OnAtFirst(ControlRow row) {
    row.on = true;
    return row;
}
constexpr ControlRow Default(ControlRow row) {
    row.isDefault = true;
    return row;
}
constexpr ControlRow Cancels(ControlRow row) {
    row.isCancel = true;
    return row;
}

} // namespace qbrpt::rows
