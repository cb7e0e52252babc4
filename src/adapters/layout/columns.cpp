#include "adapters/layout/columns.h"

#include "adapters/layout/formats.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>

namespace qbrpt::layout {

namespace {

using report::Twips;

/// Widths given to a tenth of a point add up to the page but for this part of it.
constexpr double Stretch = 0.01;
/// Narrower columns can hold no figure.
constexpr Twips NarrowestColumn = 300;

std::string UniqueName(const std::string& wanted, const std::vector<Column>& columns) {
    std::string name = wanted;
    for (int count = 2; std::any_of(columns.begin(), columns.end(),
                                    [&name](const Column& column) { return column.name == name; });
         ++count)
        name = wanted + " " + std::to_string(count);
    return name;
}

std::optional<Bar> ReadBar(const Node& node, Twips columnWidth, const Workshop& shop) {
    TableReader reader(node, "a bar", shop.mistakes);
    Bar bar;
    bar.width = reader.RequiredLength("width");
    bar.color = shop.styles.Color(reader.Text("color", "bar"), reader.PlaceOf("color"));
    bar.full = reader.Number("full", 0);
    reader.Finish();
    if (bar.full < 0) reader.Wrong("full", R"("full" is the value of a full bar, above 0)");
    if (bar.width > 0 && columnWidth - bar.width >= NarrowestColumn) return bar;
    reader.Wrong("width", "a bar needs a width that leaves its column room for the figures");
    return std::nullopt;
}

void ReadLooks(TableReader& reader, Column& column, const Workshop& shop) {
    if (reader.Has("emphasis"))
        column.emphasis = shop.styles.EmphasisNamed(reader.Text("emphasis"), reader.PlaceOf("emphasis"));
    const Node* bar = reader.Child("bar", NodeKind::Table);
    if (bar == nullptr) return;
    if (IsNumberFormat(column.format))
        column.bar = ReadBar(*bar, column.span.width, shop);
    else
        reader.Wrong("bar", "only numbers have a bar");
}

Column ReadColumn(const Node& node, const Columns& before, const Workshop& shop) {
    TableReader reader(node, "a column", shop.mistakes);
    Column column;
    column.place = node.place;
    const std::string field = reader.RequiredText("field");
    if (!field.empty()) column.field = shop.fields.Find(field, reader.PlaceOf("field"));
    column.name = UniqueName(field, before.columns);
    column.caption = reader.Text("caption");
    column.captionNamed = reader.Has("caption_object");
    column.captionObject = reader.Text("caption_object", column.name + " caption");
    column.unit = reader.Text("unit");
    column.span.width = reader.Length("width");
    column.format = ReadFormat(reader, shop.fields.KindOf(column.field));
    column.picture = reader.Text("picture");
    column.align = ReadAlign(reader, "align", UsualAlign(column.format));
    column.sum = reader.Flag("sum");
    column.average = reader.Flag("average");
    column.tinted = reader.Flag("key");
    column.key = reader.Flag("bold", column.tinted);
    ReadLooks(reader, column, shop);
    column.grow = reader.Flag("grow", column.format == report::ValueFormat::Text);
    column.hideRepeated = reader.Flag("hide_repeated");
    if ((column.sum || column.average) && column.field >= 0 && !IsNumberFormat(column.format))
        reader.Wrong(column.sum ? "sum" : "average", "only numbers have a sum or an average");
    if (column.format == report::ValueFormat::Picture && column.picture.empty())
        reader.Wrong("format", "format \"picture\" needs a \"picture\"");
    reader.Finish();
    return column;
}

/// Columns that state no width share what the others leave; then all are stretched to fill the page.
void ShareWidths(Columns& table, Twips available, const Workshop& shop) {
    std::vector<Column>& columns = table.columns;
    Twips stated = 0;
    Twips open = 0;
    for (const Column& column : columns) {
        stated += std::max(column.span.width, 0);
        open += column.span.width <= 0 ? 1 : 0;
    }
    if (open > 0 && stated + open * NarrowestColumn <= available) {
        const Twips share = (available - stated) / open;
        for (Column& column : columns)
            if (column.span.width <= 0) column.span.width = share;
        stated += open * share;
    }
    if (std::abs(stated - available) > available * Stretch) {
        shop.mistakes.Add(table.place, "the columns are " + std::to_string((stated + 10) / 20) +
                                           " points wide together; the page has room for " +
                                           std::to_string(available / 20));
        return;
    }
    Twips statedSoFar = 0;
    Twips placedSoFar = 0;
    for (Column& column : columns) {
        statedSoFar += column.span.width;
        const auto end = static_cast<Twips>(std::lround(1.0 * statedSoFar * available / stated));
        column.span.width = end - placedSoFar;
        placedSoFar = end;
        if (column.span.width < NarrowestColumn)
            shop.mistakes.Add(column.place, "the column is narrower than 15 points");
    }
}

} // namespace

bool Columns::Any(bool Column::*flag) const {
    return std::any_of(columns.begin(), columns.end(), [flag](const Column& column) { return column.*flag; });
}

Columns ReadColumns(const Node& list, const Node& metrics, const Workshop& shop) {
    TableReader reader(metrics, "[metrics]", shop.mistakes);
    Columns table;
    table.place = list.place;
    table.padding = reader.Length("padding", 4);
    const Twips gap = reader.Length("tier_gap", 6);

    std::vector<std::size_t> tierStarts;
    for (const Node& item : list.items) {
        if (item.Find("tier") != nullptr) {
            TableReader tier(item, "a tier", shop.mistakes);
            table.tiers.push_back({item.place, tier.Text("tier"), {}});
            tier.Finish();
            tierStarts.push_back(table.columns.size());
        } else {
            table.columns.push_back(ReadColumn(item, table, shop));
        }
    }
    if (table.columns.empty()) {
        shop.mistakes.Add(list.place, "a table needs at least one column");
        return table;
    }
    for (std::size_t i = 1; i < table.columns.size(); ++i)
        if (table.columns[i].hideRepeated && !table.columns[i - 1].hideRepeated)
            shop.mistakes.Add(
                table.columns[i].place,
                "only the first columns can hide what repeats: the line between rows begins behind them");
    if (!tierStarts.empty() && tierStarts.front() != 0)
        shop.mistakes.Add(table.columns.front().place, "where some columns have a tier, all must have one");
    for (std::size_t i = 0; i < tierStarts.size(); ++i) {
        const std::size_t end = i + 1 < tierStarts.size() ? tierStarts[i + 1] : table.columns.size();
        if (tierStarts[i] == end) shop.mistakes.Add(table.tiers[i].place, "a tier needs columns behind it");
    }
    const auto gaps = static_cast<Twips>(std::max<std::size_t>(tierStarts.size(), 1) - 1);
    ShareWidths(table, shop.Content() - gaps * gap, shop);

    Twips right = shop.margin;
    std::size_t tier = 0;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
        for (; tier < tierStarts.size() && tierStarts[tier] == i; ++tier) {
            if (i != 0) right += gap;
            table.tiers[tier].span.right = right;
        }
        table.columns[i].tier = static_cast<int>(tier) - 1;
        table.columns[i].width = table.columns[i].span.width;
        table.columns[i].span.right = right;
        right += table.columns[i].span.width;
        if (tier > 0) table.tiers[tier - 1].span.width = right - table.tiers[tier - 1].span.right;
    }
    return table;
}

} // namespace qbrpt::layout
