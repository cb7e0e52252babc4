#include "adapters/layout/table_style.h"

namespace qbrpt::layout {

TextStyle TableStyle::BoldCell() const {
    TextStyle bold = cell;
    bold.font.bold = true;
    return bold;
}

TableStyle ResolveTableStyle(const Node& metrics, const Columns& columns, const Workshop& shop) {
    TableReader reader(metrics, "[metrics]", shop.mistakes);
    const StyleSheet& sheet = shop.styles;
    const Place& here = metrics.place;
    const bool dense = static_cast<double>(columns.columns.size()) >= reader.Number("dense_from", 8);
    static_cast<void>(reader.Child("padding"));  // read with the columns
    static_cast<void>(reader.Child("tier_gap")); // read with the columns

    TableStyle style;
    style.cell = sheet.Style(dense ? "cell-dense" : "cell", here);
    style.caption = sheet.Style("caption", here);
    style.tier = sheet.Style("tier", here);
    style.unit = sheet.Style("unit", here);
    style.totalLabel = sheet.Style("total-label", here);
    style.subtotalLabel = sheet.Style("subtotal-label", here);
    style.note = sheet.Style("note", here);
    style.group = sheet.Style("group", here);
    style.list = sheet.Style("list-heading", here);
    style.zero = sheet.Color("zero", here);
    style.ink = sheet.Color("ink", here);
    style.tint = sheet.Color("tint", here);
    style.lightTint = sheet.Color("light-tint", here);
    style.hairline = sheet.Line("hairline", here);
    style.thin = sheet.Line("thin", here);
    style.strong = sheet.Line("strong", here);
    style.captionRow = sheet.Row("caption", here);
    style.tierRow = sheet.Row("tier", here);
    style.tieredCaptionRow = sheet.Row("tier-caption", here);
    style.row = sheet.Row(dense ? "cell-dense" : "cell", here);
    style.totalRow = sheet.Row("total", here);
    style.averageRow = sheet.Row("average", here);
    style.listRow = sheet.Row("list", here);
    style.groupRow = sheet.Row("group", here);
    style.subtotalRow = sheet.Row("subtotal", here);
    style.ruleFirst = reader.Length("double_rule_first", 0.4);
    style.ruleSecond = reader.Length("double_rule_second", 2.4);
    style.afterTotal = reader.Length("after_total", 4);
    style.afterSubtotal = reader.Length("after_subtotal", 7);
    style.chipInset = reader.Length("chip_inset", 1);
    style.barHeight = reader.Length("bar_height", 6);
    style.unitGap = reader.Length("unit_gap", 3);
    reader.Finish();
    return style;
}

} // namespace qbrpt::layout
