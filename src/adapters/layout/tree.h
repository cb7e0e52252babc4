// A layout file as a tree that remembers where each word stands.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace qbrpt::layout {

/// A place in a layout file. Line and column count from 1; 0 where the file as a whole is meant.
struct Place {
    std::shared_ptr<const std::string> file;
    std::uint32_t line = 0;
    std::uint32_t column = 0;
};

/// "FILE:LINE:COLUMN", as much of it as is known.
[[nodiscard]] std::string ToText(const Place& place);

enum class NodeKind : std::uint8_t { Text, Number, Flag, List, Table };

struct Entry;

/// One value of a layout file.
struct Node {
    NodeKind kind = NodeKind::Table;
    Place place;
    std::string text;
    double number = 0;
    bool flag = false;
    std::vector<Node> items;    ///< List
    std::vector<Entry> entries; ///< Table, in the order of the file

    /// The entry of a table, or null.
    [[nodiscard]] const Node* Find(std::string_view key) const;
};

struct Entry {
    std::string key;
    Place place; ///< of the key
    Node value;
};

/// "a text", "a number", ...: for descriptions.
[[nodiscard]] std::string_view NameOf(NodeKind kind);

/// Reads a layout file. `fileName` stands in descriptions. Text that is no TOML is
/// FailureNumber::Layout with line, column and the reader's words.
[[nodiscard]] Node Parse(std::string_view text, const std::string& fileName);

/// `base` with the entries of `over` laid upon it: tables are merged entry by entry, all else is
/// replaced. Both are tables. Every part keeps the place in the file that it comes from.
[[nodiscard]] Node Merge(Node base, Node over);

} // namespace qbrpt::layout
