#include "adapters/layout/table_parts.h"

#include "adapters/layout/columns.h"
#include "adapters/layout/formats.h"
#include "adapters/layout/lists.h"
#include "adapters/layout/table_bands.h"

#include <algorithm>

namespace qbrpt::layout {

namespace {

void AddGroup(const Node& node, const Table& table, Parts& parts, report::Definition& definition) {
    const Workshop& shop = table.shop;
    TableReader reader(node, "a group", shop.mistakes);
    const auto index = static_cast<int>(definition.groups.size());
    const std::string suffix = index == 0 ? "" : " " + std::to_string(index + 1);
    report::Group group;
    group.field = shop.fields.Find(reader.RequiredText("field"), reader.PlaceOf("field"));
    if (reader.Has("show")) group.shown = shop.fields.Find(reader.Text("show"), reader.PlaceOf("show"));
    if (reader.Flag("by_day")) group.by = report::Group::By::Day;
    const int told = group.shown >= 0 ? group.shown : group.field;
    if (told >= 0) group.format = ReadFormat(reader, shop.fields.KindOf(told));
    group.picture = reader.Text("picture");
    group.whenEmpty = reader.Text("when_empty");
    group.heading = reader.Text("heading", "{group}");
    const std::string continued = reader.Text("continued", "{continued}");
    if (!group.heading.empty())
        parts["group-heading" + suffix] = GroupHeadBand(table, group.heading, continued, index, node.place);
    if (const Node* total = reader.Child("total", NodeKind::Table)) {
        const TotalWords words = ReadTotalWords(*total, "a group's total", shop);
        group.total = words;
        parts["group-total" + suffix] = SubtotalBand(table, words, index);
    }
    reader.Finish();
    definition.groups.push_back(group);
}

/// All rows are the list: its heading takes the captions along.
void AddList(const Node& node, const Table& table, Parts& parts, report::Definition& definition) {
    TableReader reader(node, "[list]", table.shop.mistakes);
    const ListWords words = ReadList(reader, node.place, table.shop);
    report::Group group{.field = -1, .heading = words.heading};
    parts.erase("captions");
    parts["list-heading"] = ListHeadBand(table, words);
    if (const Node* total = reader.Child("total", NodeKind::Table)) {
        const TotalWords totalWords = ReadTotalWords(*total, "a list's total", table.shop);
        group.total = totalWords;
        parts["list-total"] = SubtotalBand(table, totalWords, 0);
    }
    reader.Finish();
    definition.groups.push_back(group);
}

/// Captions of fields that no table shows, for tables outside of pages.
void AddCaptions(const Node& node, const Workshop& shop, report::Definition& definition) {
    TableReader reader(node, "[captions]", shop.mistakes);
    for (const Entry& entry : node.entries) {
        report::Column column;
        column.field = shop.fields.Find(entry.key, entry.place);
        column.caption = reader.Text(entry.key);
        const auto kind = shop.fields.KindOf(column.field);
        // Without a format of its own a number stands as it is: a serial number has no thousands.
        column.format = kind && IsNumberKind(*kind) ? report::ValueFormat::Text : UsualFormat(kind);
        column.align = UsualAlign(column.format);
        column.width = shop.Content() / static_cast<report::Twips>(node.entries.size());
        definition.columns.push_back(column);
    }
}

void ReadOrder(TableReader& layout, const Workshop& shop, report::Definition& definition) {
    const Node* order = layout.Child("order", NodeKind::List);
    if (order == nullptr) return;
    for (const Node& item : order->items) {
        const bool descending = item.text.starts_with('-');
        const std::string name = item.text.substr(descending ? 1 : 0);
        const int field = shop.fields.Find(name, item.place);
        if (field >= static_cast<int>(shop.fields.Fields().size()))
            shop.mistakes.Add(item.place, "rows cannot stand in the order of a computed value");
        else if (field >= 0)
            definition.order.push_back({field, descending});
    }
}

} // namespace

void BuildTableParts(TableReader& layout, const Node& metrics, const Workshop& shop, Parts& parts,
                     report::Definition& definition) {
    const Node* list = layout.Child("columns", NodeKind::List);
    const Node* total = layout.Child("total", NodeKind::Table);
    const Node* average = layout.Child("average", NodeKind::Table);
    const Node* whole = layout.Child("list", NodeKind::Table);
    const Node* groups = layout.Child("group", NodeKind::List);
    const Node* notes = layout.Child("note", NodeKind::List);
    const Node* captions = layout.Child("captions", NodeKind::Table);
    ReadOrder(layout, shop, definition);
    if (captions != nullptr) AddCaptions(*captions, shop, definition);
    if (list == nullptr) return;
    const Columns columns = ReadColumns(*list, metrics, shop);
    definition.columns.assign(columns.columns.begin(), columns.columns.end());
    for (const Tier& tier : columns.tiers)
        definition.tiers.push_back(tier.caption);
    const TableStyle style = ResolveTableStyle(metrics, columns, shop);
    const Table table{columns, style, shop};
    parts["captions"] = CaptionBand(table);
    parts["rows"] = RowBand(table);
    if (whole != nullptr) AddList(*whole, table, parts, definition);
    if (groups != nullptr) {
        for (const Node& group : groups->items)
            AddGroup(group, table, parts, definition);
    }
    if (total != nullptr) {
        const TotalWords words = ReadTotalWords(*total, "[total]", shop);
        definition.total = words;
        parts["total"] = TotalBand(table, words);
    }
    if (average != nullptr) {
        const TotalWords words = ReadTotalWords(*average, "[average]", shop);
        definition.average = words;
        parts["average"] = AverageBand(table, words);
    }
    if (notes != nullptr) parts["notes"] = NotesBand(*notes, table);
}

} // namespace qbrpt::layout
