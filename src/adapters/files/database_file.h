// Files that hold a database: no result is ever written over one.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

namespace qbrpt {

enum class DatabaseKind : std::uint8_t { None, Sqlite, Access };

/// What the first bytes of a file tell; twenty are enough.
[[nodiscard]] DatabaseKind KindOfHead(std::string_view head);

/// Whether an ordinary file stands at `file` (or behind it, where it is a link) that begins as a database
/// does. False where it cannot be read.
[[nodiscard]] bool HoldsDatabase(const std::filesystem::path& file);

} // namespace qbrpt
