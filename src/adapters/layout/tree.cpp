#include "adapters/layout/tree.h"

#include <algorithm>

namespace qbrpt::layout {

std::string ToText(const Place& place) {
    std::string text = place.file ? *place.file : std::string("layout");
    if (place.line != 0) text += ":" + std::to_string(place.line) + ":" + std::to_string(place.column);
    return text;
}

const Node* Node::Find(std::string_view key) const {
    const auto entry =
        std::find_if(entries.begin(), entries.end(), [key](const Entry& one) { return one.key == key; });
    return entry == entries.end() ? nullptr : &entry->value;
}

std::string_view NameOf(NodeKind kind) {
    switch (kind) {
    case NodeKind::Text:
        return "a text";
    case NodeKind::Number:
        return "a number";
    case NodeKind::Flag:
        return "true or false";
    case NodeKind::List:
        return "a list";
    case NodeKind::Table:
        return "a table";
    }
    return "a value";
}

Node Merge(Node base, Node over) {
    for (Entry& entry : over.entries) {
        const auto same = std::find_if(base.entries.begin(), base.entries.end(),
                                       [&entry](const Entry& one) { return one.key == entry.key; });
        if (same == base.entries.end()) {
            base.entries.push_back(std::move(entry));
        } else if (same->value.kind == NodeKind::Table && entry.value.kind == NodeKind::Table) {
            same->place = entry.place;
            same->value = Merge(std::move(same->value), std::move(entry.value));
        } else {
            *same = std::move(entry);
        }
    }
    base.place = over.place;
    return base;
}

} // namespace qbrpt::layout
