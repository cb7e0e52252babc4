// The one file that knows the TOML reader.
#include "adapters/layout/tree.h"
#include "base/failure.h"

#include <toml++/toml.h>

#include <algorithm>

namespace qbrpt::layout {

namespace {

using File = std::shared_ptr<const std::string>;

Place PlaceOf(const toml::source_region& region, const File& file) {
    return {file, region.begin.line, region.begin.column};
}

Node Convert(const toml::node& source, const File& file);

Node ConvertTable(const toml::table& source, const File& file) {
    Node node;
    for (const auto& [key, value] : source)
        node.entries.push_back({std::string(key.str()), PlaceOf(key.source(), file), Convert(value, file)});
    // The reader sorts its keys by name; a layout is read in the order in which it was written.
    std::stable_sort(node.entries.begin(), node.entries.end(), [](const Entry& a, const Entry& b) {
        return std::pair(a.place.line, a.place.column) < std::pair(b.place.line, b.place.column);
    });
    return node;
}

Node Convert(const toml::node& source, const File& file) {
    Node node;
    if (const toml::table* table = source.as_table()) {
        node = ConvertTable(*table, file);
    } else if (const toml::array* array = source.as_array()) {
        node.kind = NodeKind::List;
        for (const toml::node& item : *array)
            node.items.push_back(Convert(item, file));
    } else if (const auto* text = source.as_string()) {
        node.kind = NodeKind::Text;
        node.text = text->get();
    } else if (const auto* flag = source.as_boolean()) {
        node.kind = NodeKind::Flag;
        node.flag = flag->get();
    } else if (source.is_number()) {
        node.kind = NodeKind::Number;
        node.number = source.value<double>().value_or(0.0);
    } else {
        throw Failure(FailureNumber::Layout, ToText(PlaceOf(source.source(), file)) +
                                                 ": a date or a time stands here; write it as a text");
    }
    node.place = PlaceOf(source.source(), file);
    return node;
}

} // namespace

Node Parse(std::string_view text, const std::string& fileName) {
    const auto file = std::make_shared<const std::string>(fileName);
    try {
        return Convert(toml::parse(text, fileName), file);
    } catch (const toml::parse_error& error) {
        throw Failure(FailureNumber::Layout,
                      ToText(PlaceOf(error.source(), file)) + ": " + std::string(error.description()));
    }
}

} // namespace qbrpt::layout
