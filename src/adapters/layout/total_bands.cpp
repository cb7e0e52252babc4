#include "adapters/layout/formats.h"
#include "adapters/layout/table_bands.h"

namespace qbrpt::layout {

namespace {

using report::Aggregate;
using report::Align;
using report::Scope;
using report::Total;

/// How one row of totals differs from the others.
struct TotalRow {
    std::string name;
    Total total; ///< of each column, but for its field
    bool Column::*wanted = nullptr;
    const RowMeasure& measure;
    TextStyle label;
    TextStyle figures;
    TextStyle keyFigures;
};

Placed TextInRow(const std::string& name, const std::string& text, const TextStyle& style, Span span,
                 const RowMeasure& row, Align align, const Place& place) {
    Placed words{{}, place, false};
    words.object.name = name;
    words.object.text = text;
    words.object.align = align;
    Dress(words.object, style);
    PutInRow(words.object, span, row);
    return words;
}

/// The label takes the columns before the first figure but leaves the last of them to the count; where
/// there is but one, they share it.
void AddWords(const Table& table, const TotalRow& row, const TotalWords& words, Band& band) {
    const std::vector<Column>& columns = table.columns.columns;
    std::size_t free = 0;
    while (free < columns.size() && !(columns[free].*row.wanted))
        ++free;
    if (free == 0) {
        table.shop.mistakes.Add(words.place, "the first column must not have a sum or an average: the "
                                             "label stands there");
        return;
    }
    const Span first = table.columns.Inside(columns[0]);
    const Span last = table.columns.Inside(columns[free - 1]);
    const Span whole = {first.right, last.right + last.width - first.right};
    Span label = whole;
    if (!words.noun.empty()) {
        Span count = whole;
        count.right = free > 1 ? table.columns.Inside(columns[1]).right : whole.right + whole.width / 2;
        count.width = whole.right + whole.width - count.right;
        label.width = count.right - whole.right - (free > 1 ? table.columns.padding : 0);
        const Align align = free > 1 ? words.countAlign : Align::Left;
        band.objects.push_back(TextInRow(row.name + " count", "{rows:" + words.noun + "}", table.style.note,
                                         count, row.measure, align, words.place));
    }
    band.objects.push_back(TextInRow(row.name + " label", words.label, row.label, label, row.measure,
                                     Align::Right, words.place));
}

void AddFigures(const Table& table, const TotalRow& row, Band& band) {
    for (const Column& column : table.columns.columns) {
        if (!(column.*row.wanted)) continue;
        Placed figure{{}, column.place, false};
        figure.object.name = column.name + " " + row.name;
        figure.object.type = report::ObjectType::Total;
        figure.object.total = row.total;
        figure.object.total.field = column.field;
        figure.object.format = column.format;
        figure.object.align = column.align;
        Dress(figure.object, column.key ? row.keyFigures : row.figures);
        if (column.emphasis) figure.object.color = column.emphasis->color;
        figure.object.zeroColor = table.style.zero;
        PutInRow(figure.object, table.columns.Figures(column), row.measure);
        band.objects.push_back(figure);
    }
}

TextStyle InInk(TextStyle style, report::Color ink) {
    style.color = ink;
    return style;
}

} // namespace

std::string ReadNoun(TableReader& reader, const Workshop& shop) {
    std::string noun = reader.Text("noun");
    if (noun.empty() || shop.styles.Nouns().contains(noun)) return noun;
    std::vector<std::string_view> known;
    for (const auto& entry : shop.styles.Nouns())
        known.push_back(entry.first);
    reader.Wrong("noun", "there is no noun " + Quoted(noun) + Suggestion(noun, known));
    return noun;
}

TotalWords ReadTotalWords(const Node& node, std::string_view what, const Workshop& shop) {
    TableReader reader(node, what, shop.mistakes);
    TotalWords words;
    words.place = node.place;
    words.label = reader.RequiredText("label");
    words.noun = ReadNoun(reader, shop);
    words.countAlign = ReadAlign(reader, "count_align", Align::Right);
    words.skipAlone = reader.Flag("skip_alone");
    reader.Finish();
    return words;
}

Band TotalBand(const Table& table, const TotalWords& words) {
    const TableStyle& style = table.style;
    const RowMeasure& row = style.totalRow;
    Band band;
    band.kind = report::SectionKind::ReportFooter;
    band.height = row.height + style.afterTotal;
    band.objects.push_back(TintedBox("total box", style.tint, table.Whole(), 0, row.height, words.place));
    band.objects.push_back(LineAcross("total line", style.strong, table.Whole(), 0, words.place));
    for (const report::Twips below : {style.ruleFirst, style.ruleSecond})
        band.objects.push_back(
            LineAcross("total rule", style.thin, table.Whole(), row.height + below, words.place));
    const TotalRow cells{"total",         {}, &Column::sum, row, style.totalLabel, style.BoldCell(),
                         style.BoldCell()};
    AddFigures(table, cells, band);
    AddWords(table, cells, words, band);
    return band;
}

Band SubtotalBand(const Table& table, const TotalWords& words, int group) {
    const TableStyle& style = table.style;
    const RowMeasure& row = style.subtotalRow;
    const std::string name = "subtotal " + std::to_string(group + 1);
    Band band;
    band.kind = report::SectionKind::GroupFooter;
    band.group = group;
    band.skipAlone = words.skipAlone;
    band.height = row.height + style.afterSubtotal;
    band.objects.push_back(
        TintedBox(name + " box", style.lightTint, table.Whole(), 0, row.height, words.place));
    band.objects.push_back(LineAcross(name + " line", style.thin, table.Whole(), 0, words.place));
    Total total;
    total.scope = Scope::Group;
    total.group = group;
    const TotalRow cells{
        name, total, &Column::sum, row, style.subtotalLabel, style.BoldCell(), style.BoldCell()};
    AddFigures(table, cells, band);
    AddWords(table, cells, words, band);
    return band;
}

Band AverageBand(const Table& table, const TotalWords& words) {
    const TableStyle& style = table.style;
    Band band;
    band.kind = report::SectionKind::ReportFooter;
    band.height = style.averageRow.height;
    Total total;
    total.aggregate = Aggregate::Average;
    TextStyle figures = style.cell;
    figures.color = style.note.color;
    const TotalRow cells{"average",
                         total,
                         &Column::average,
                         style.averageRow,
                         style.note,
                         figures,
                         InInk(style.BoldCell(), style.ink)};
    AddFigures(table, cells, band);
    AddWords(table, cells, words, band);
    return band;
}

} // namespace qbrpt::layout
