#include "adapters/layout/lists.h"

#include "adapters/layout/conditions.h"
#include "adapters/layout/formats.h"

namespace qbrpt::layout {

namespace {

using report::Align;
using report::Twips;

Placed TextInRow(const std::string& name, const std::string& text, const TextStyle& style, Span span,
                 const RowMeasure& row, const Place& place) {
    Placed words{{}, place, false};
    words.object.name = name;
    words.object.text = text;
    Dress(words.object, style);
    PutInRow(words.object, span, row);
    return words;
}

} // namespace

ListWords ReadList(TableReader& reader, const Place& place, const Workshop& shop) {
    ListWords words;
    words.place = place;
    words.heading = reader.RequiredText("heading");
    words.continued = reader.Text("continued", "{continued}");
    words.noun = ReadNoun(reader, shop);
    return words;
}

Band ListHeadBand(const Table& table, const ListWords& words) {
    const TableStyle& style = table.style;
    Band band = CaptionBand(table);
    band.kind = report::SectionKind::GroupHeader;
    band.repeat = true;
    const RowMeasure& row = style.listRow;
    for (Placed& placed : band.objects)
        placed.object.top += row.height;
    band.height += row.height;
    const Twips padding = table.columns.padding;
    Span heading = {table.shop.margin + padding, table.shop.Content() - 2 * padding};
    if (!words.noun.empty()) {
        const Twips room = heading.width / 4;
        Placed count = TextInRow("list count", "{rows:" + words.noun + "}", style.note,
                                 {heading.right + heading.width - room, room}, row, words.place);
        count.object.align = Align::Left;
        band.objects.push_back(count);
        heading.width -= room + padding;
    }
    band.objects.push_back(TextInRow("list heading", words.heading, style.list, heading, row, words.place));
    if (words.continued.empty()) return band;
    Placed again = TextInRow("list continued", words.continued, style.note, heading, row, words.place);
    again.object.follows = "list heading";
    again.object.right = style.unitGap;
    band.objects.push_back(again);
    return band;
}

Band NotesBand(const Node& list, const Table& table) {
    Band band;
    band.kind = report::SectionKind::ReportFooter;
    const Twips padding = table.columns.padding;
    const Span span = {table.shop.margin + padding, table.shop.Content() - 2 * padding};
    for (const Node& item : list.items) {
        TableReader reader(item, "a note", table.shop.mistakes);
        const std::string name = "note " + std::to_string(band.objects.size() / 2 + 1);
        Placed text = TextInRow(name, reader.RequiredText("text"), table.style.note, span,
                                table.style.averageRow, item.place);
        Placed figure = text;
        report::Object& object = figure.object;
        object.name = name + " figure";
        object.text.clear();
        object.type = report::ObjectType::Total;
        object.total.aggregate = ReadAggregate(reader);
        object.total.field = table.shop.fields.Find(reader.RequiredText("field"), reader.PlaceOf("field"));
        object.total.when = ReadCondition(reader, "when", table.shop);
        object.format = ReadFormat(reader, FieldKind::Number);
        object.follows = name;
        object.right = table.style.unitGap;
        reader.Finish();
        text.object.top = object.top = band.height;
        band.height += table.style.averageRow.height;
        band.objects.push_back(text);
        band.objects.push_back(figure);
    }
    return band;
}

} // namespace qbrpt::layout
