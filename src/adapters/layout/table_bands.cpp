#include "adapters/layout/table_bands.h"

#include "adapters/layout/formats.h"

namespace qbrpt::layout {

namespace {

using report::Align;
using report::ObjectType;

Placed Caption(const Table& table, const Column& column, const RowMeasure& row, report::Twips top) {
    Placed caption{{}, column.place, column.captionNamed};
    caption.object.name = column.captionObject;
    caption.object.type = ObjectType::Text;
    caption.object.text = column.caption;
    caption.object.align = column.align;
    Dress(caption.object, table.style.caption);
    if (column.emphasis) caption.object.color = column.emphasis->color;
    PutInRow(caption.object, table.columns.Inside(column), row);
    caption.object.top = top;
    return caption;
}

Placed Unit(const Table& table, const Column& column, const Placed& caption) {
    Placed unit{caption.object, column.place, false};
    unit.object.name = column.name + " unit";
    unit.object.text = column.unit;
    unit.object.follows = caption.object.name;
    unit.object.right = table.style.unitGap;
    Dress(unit.object, table.style.unit);
    return unit;
}

Placed Cell(const Table& table, const Column& column) {
    Placed cell{{}, column.place, false};
    cell.object.name = column.name;
    cell.object.type = ObjectType::Field;
    cell.object.field = column.field;
    cell.object.format = column.format;
    cell.object.picture = column.picture;
    cell.object.align = column.align;
    cell.object.canGrow = column.grow;
    cell.object.hideRepeated = column.hideRepeated;
    Dress(cell.object, column.key ? table.style.BoldCell() : table.style.cell);
    // Growing text wraps at its full size, where figures have to shrink.
    if (column.grow) cell.object.shrinkTo = 0;
    const auto kind = table.shop.fields.KindOf(column.field);
    if (kind && IsNumberKind(*kind)) cell.object.zeroColor = table.style.zero;
    PutInRow(cell.object, table.columns.Figures(column), table.style.row);
    return cell;
}

/// The cells of a column: one, or two of which a row shows the plain or the emphasized one.
void AddCells(const Table& table, const Column& column, Band& band) {
    Placed cell = Cell(table, column);
    if (!column.emphasis) {
        band.objects.push_back(cell);
        return;
    }
    const Emphasis& emphasis = *column.emphasis;
    const report::Condition holds{column.field, emphasis.test, false};
    if (emphasis.ground) {
        Placed chip = TintedBox(column.name + " chip", *emphasis.ground, column.span, table.style.chipInset,
                                band.height - 2 * table.style.chipInset, column.place);
        chip.object.fullHeight = true;
        chip.object.showWhen = holds;
        band.objects.push_back(chip);
    }
    Placed emphasized = cell;
    cell.object.showWhen = {column.field, emphasis.test, true};
    emphasized.object.name += " emphasized";
    emphasized.object.color = emphasis.color;
    emphasized.object.zeroColor.reset();
    emphasized.object.font.spec.bold = emphasized.object.font.spec.bold || emphasis.bold;
    emphasized.object.showWhen = holds;
    band.objects.push_back(cell);
    band.objects.push_back(emphasized);
}

void AddBar(const Table& table, const Column& column, Band& band) {
    const Span inside = table.columns.Inside(column);
    const report::Twips middle = table.style.row.baseline - table.style.cell.font.size * 7 / 20;
    const report::Twips height = table.style.barHeight;
    Placed bar = TintedBox(column.name + " bar", column.bar->color,
                           {inside.right + inside.width - column.bar->width, column.bar->width},
                           middle - height / 2, height, column.place);
    bar.object.barField = column.field;
    bar.object.barToLargest = column.bar->full == 0;
    if (column.bar->full > 0) bar.object.barFull = column.bar->full;
    band.objects.push_back(bar);
}

void AddTiers(const Table& table, Band& band) {
    const TableStyle& style = table.style;
    for (std::size_t i = 0; i < table.columns.tiers.size(); ++i) {
        const Tier& tier = table.columns.tiers[i];
        const std::string name = "tier " + std::to_string(i + 1);
        const Span inside = {tier.span.right + table.columns.padding,
                             tier.span.width - 2 * table.columns.padding};
        band.objects.push_back(TintedBox(name + " box", style.tint, tier.span, 0, band.height, tier.place));
        if (tier.caption.empty()) continue;
        Placed caption{{}, tier.place, false};
        caption.object.name = name;
        caption.object.text = tier.caption;
        caption.object.align = Align::Centre;
        Dress(caption.object, style.tier);
        PutInRow(caption.object, inside, style.tierRow);
        band.objects.push_back(caption);
        band.objects.push_back(
            LineAcross(name + " line", style.thin, inside, style.tierRow.height, tier.place));
    }
}

/// Hairlines between rows. They leave out tinted columns, each of which is one strip of tint from its caption
/// to its total.
void AddRowLines(const Table& table, Band& band) {
    Span rest = table.Whole();
    const auto add = [&](Span span) {
        Placed line = LineAcross("row line", table.style.hairline, span, 0, table.columns.place);
        line.object.when = report::LineWhen::BetweenRows;
        line.object.atBottom = true;
        line.object.yieldsToRepeated =
            span.right == table.shop.margin && table.columns.Any(&Column::hideRepeated);
        if (span.width > 0) band.objects.push_back(line);
    };
    for (const Column& column : table.columns.columns) {
        if (!column.tinted) continue;
        add({rest.right, column.span.right - rest.right});
        const report::Twips end = column.span.right + column.span.width;
        rest = {end, rest.right + rest.width - end};
    }
    add(rest);
}

} // namespace

Band CaptionBand(const Table& table) {
    Band band;
    band.kind = report::SectionKind::PageHeader;
    const bool tiered = !table.columns.tiers.empty();
    const RowMeasure& row = tiered ? table.style.tieredCaptionRow : table.style.captionRow;
    const report::Twips top = tiered ? table.style.tierRow.height : 0;
    band.height = top + row.height;
    if (tiered)
        AddTiers(table, band);
    else
        band.objects.push_back(
            TintedBox("captions box", table.style.tint, table.Whole(), 0, band.height, table.columns.place));
    for (const Column& column : table.columns.columns) {
        band.objects.push_back(Caption(table, column, row, top));
        if (!column.unit.empty()) band.objects.push_back(Unit(table, column, band.objects.back()));
    }
    return band;
}

Band RowBand(const Table& table) {
    Band band;
    band.kind = report::SectionKind::Details;
    band.height = table.style.row.height;
    for (const Column& column : table.columns.columns) {
        if (!column.tinted) continue;
        Placed box =
            TintedBox(column.name + " box", table.style.lightTint, column.span, 0, band.height, column.place);
        box.object.fullHeight = true;
        band.objects.push_back(box);
    }
    AddRowLines(table, band);
    for (const Column& column : table.columns.columns) {
        if (column.bar) AddBar(table, column, band);
        AddCells(table, column, band);
    }
    return band;
}

Band GroupHeadBand(const Table& table, const std::string& text, const std::string& continued, int group,
                   const Place& place) {
    Band band;
    band.kind = report::SectionKind::GroupHeader;
    band.group = group;
    band.repeat = true;
    band.height = table.style.groupRow.height;
    const std::string name = "group " + std::to_string(group + 1);
    const report::Twips padding = table.columns.padding;
    const Span inside = {table.shop.margin + padding, table.shop.Content() - 2 * padding};
    Placed heading{{}, place, false};
    heading.object.name = name;
    heading.object.text = text;
    Dress(heading.object, table.style.group);
    PutInRow(heading.object, inside, table.style.groupRow);
    Placed again = heading;
    again.object.name = name + " continued";
    again.object.text = continued;
    again.object.follows = name;
    again.object.right = table.style.unitGap;
    Dress(again.object, table.style.note);
    band.objects.push_back(heading);
    if (!continued.empty()) band.objects.push_back(again);
    // A point above the rows, so that the tint of a key column leaves it whole.
    band.objects.push_back(
        LineAcross(name + " line", table.style.thin, table.Whole(), band.height - TwipsOf(1), place));
    return band;
}

} // namespace qbrpt::layout
